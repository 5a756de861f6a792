#include "gateway/associations.hpp"

#include <algorithm>
#include <charconv>
#include <nlohmann/json.hpp>

#include "boundary/boundary.hpp"
#include "gateway/calls.hpp"
#include "gateway/gateway.hpp"
#include "gateway/instances.hpp"
#include "gateway/proxy.hpp"
#include "gateway/stations.hpp"
#include "gateway/wlan.hpp"
#include "platform/proxy.h"
#include "platform/wlan.h"
#include "platform/wlan.hpp"

namespace gateway {

namespace {

[[maybe_unused]] const BlockList &registered = blockList();

constexpr std::string_view kSsidStem = "IGD.LD1.WLAN";

uint32_t ssidNumber(std::string_view ssidInstance) {
  uint32_t number = 0;
  if (ssidInstance.starts_with(kSsidStem)) {
    const char *digits = ssidInstance.data() + kSsidStem.size();
    std::from_chars(digits, ssidInstance.data() + ssidInstance.size(), number);
  }
  return number;
}

Row associationAt(Store &store, const char *name) {
  const std::string path = pathFrom(name);
  if (!store.has<AssociatedDeviceView>(path)) throw Refusal(kUnknownInstance);
  return store.row<AssociatedDeviceView>(path);
}

std::vector<std::string> associationsOf(Store &store, const std::string &ssid) {
  std::vector<std::string> paths = store.paths(layoutOf<AssociatedDeviceView>());
  std::erase_if(paths, [&](const std::string &path) {
    return store.row<AssociatedDeviceView>(path).text(AssociatedDeviceView::ssidInstance) != ssid;
  });
  return paths;
}

void writeHost(const Row &association, uint8_t *entry) {
  const Row row = fieldsOf<WlanHostEntry>(entry);
  row.setWord(WlanHostEntry::ssidNumber,
              ssidNumber(association.text(AssociatedDeviceView::ssidInstance)));
  row.setMac(WlanHostEntry::mac, association.mac(AssociatedDeviceView::mac));
  row.setWord(WlanHostEntry::rssi, association.word(AssociatedDeviceView::rssi));
}

ProxyReply radioInformation(Gateway &gateway, std::span<const uint8_t> request) {
  if (request.size() != RadioInfoRequest::kSize)
    throw Refusal(kBadRequest, "no radio is asked for");
  const uint32_t radio = fieldsOf<RadioInfoRequest>(const_cast<uint8_t *>(request.data()))
                             .word(RadioInfoRequest::radioType);
  if (radio > kRadio5G) throw Refusal(kBadRequest, "no such radio");
  RadioInfoRecord record = {};
  const int32_t status =
      gateway.store().get(layoutOf<RadioInfoRecord>(), radioBase(radio), &record);
  return {status, status == kOk ? bytesOf(record) : Bytes{}};
}

const ProxyEvent kRadioInformation{CTSGW_EVENT_GET_WLANRADIOINFO, radioInformation};

}  // namespace

BlockList &blockList() {
  static BlockList *const instance = new BlockList;
  return *instance;
}

bool BlockList::holds(const MacAddress &mac) const {
  return std::ranges::find(stations, mac) != stations.end();
}

void BlockList::load(const Json &value, const std::string &place) {
  Members members(value, place);
  members.each("stations", [&](const Json &element, const std::string &elementPlace) {
    const std::optional<MacAddress> mac =
        element.is_string() ? parseMac(element.get<std::string>()) : std::nullopt;
    if (!mac) throw InputError(elementPlace, "must be a MAC address");
    stations.push_back(*mac);
  });
  members.finish();
}

Json BlockList::save() const {
  if (stations.empty()) return nullptr;
  Json list = Json::array();
  for (const MacAddress &mac : stations) list.push_back(printMac(mac));
  return {{"stations", std::move(list)}};
}

}  // namespace gateway

using namespace gateway;

int32_t gateway::pm_wlan_list_ad(const char *instance, InstanceList *list) {
  Gateway &gateway = Gateway::current();
  const Row row = associationAt(gateway.store(), instance);
  fill(list, associationsOf(gateway.store(), row.text(AssociatedDeviceView::ssidInstance)));
  return kOk;
}

int32_t gateway::pm_wlan_get_ad(const char *name, AssociatedDeviceView *view) {
  Gateway &gateway = Gateway::current();
  const std::string path = name;
  return gateway.store().get(layoutOf<AssociatedDeviceView>(), path, view);
}

int32_t gateway::pm_wlan_add_blklist(const char *name, AssociatedDeviceView *view) {
  Gateway &gateway = Gateway::current();
  const Row row = associationAt(gateway.store(), name);
  const MacAddress mac = row.mac(AssociatedDeviceView::mac);
  if (fieldsOf<AssociatedDeviceView>(view).mac(AssociatedDeviceView::mac) != mac) {
    throw Refusal(kBadRequest, "the record is another station's");
  }
  if (blockList().holds(mac)) return kNothingChanged;
  blockList().stations.push_back(mac);
  return kOk;
}

int32_t gateway::pm_wlan_del_ad(const char *name) {
  Gateway &gateway = Gateway::current();
  const Row row = associationAt(gateway.store(), name);
  Station *station = stations().byMac(row.mac(AssociatedDeviceView::mac));
  if (station != nullptr) {
    stations().leave(gateway, *station);
    return kOk;
  }
  return static_cast<Status>(gateway.store().remove(layoutOf<AssociatedDeviceView>(), name));
}

int32_t gateway::ctSgw_wlanGetHostInfo(WlanHostTable *table) {
  Gateway &gateway = Gateway::current();
  const Store &store = gateway.store();
  uint32_t count = 0;
  for (const std::string &path : store.paths(layoutOf<AssociatedDeviceView>())) {
    if (count == WlanHostTable::Entries::kCount) break;
    uint8_t *entry = table->bytes + WlanHostTable::entries.offset + count * WlanHostEntry::kSize;
    writeHost(store.row<AssociatedDeviceView>(path), entry);
    ++count;
  }
  fieldsOf<WlanHostTable>(table).setWord(WlanHostTable::count, count);
  return kOk;
}
