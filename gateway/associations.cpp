// Who is associated with which SSID: rows of DBVIEW_WLAN_AD.
#include <charconv>

#include "boundary/boundary.hpp"
#include "gateway/calls.hpp"
#include "gateway/gateway.hpp"
#include "gateway/instances.hpp"
#include "gateway/proxy.hpp"
#include "gateway/radios.hpp"
#include "gateway/stations.hpp"
#include "platform/wlan.hpp"

namespace gateway {

namespace {

constexpr std::string_view kSsidStem = "IGD.LD1.WLAN";

uint32_t ssidNumber(std::string_view ssidInstance) {
  uint32_t number = 0;
  if (ssidInstance.starts_with(kSsidStem)) {
    const char *digits = ssidInstance.data() + kSsidStem.size();
    std::from_chars(digits, ssidInstance.data() + ssidInstance.size(), number);
  }
  return number;
}

Row associationAt(const char *name) {
  if (!store().has<AssociatedDeviceView>(name)) throw Refusal(kUnknownInstance);
  return store().row<AssociatedDeviceView>(name);
}

std::vector<std::string> associationsOf(const std::string &ssid) {
  std::vector<std::string> paths = store().paths<AssociatedDeviceView>();
  std::erase_if(paths, [&](const std::string &path) {
    return store().row<AssociatedDeviceView>(path).text(AssociatedDeviceView::ssidInstance) != ssid;
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
  if (radio > kBand5G) throw Refusal(kBadRequest, "no such radio");
  RadioInfoRecord record = {};
  const int32_t status = gateway.store().get(radioBase(radio), &record);
  return {status, status == kOk ? bytesOf(record) : Bytes{}};
}

const ProxyEvent kRadioInformation{CTSGW_EVENT_GET_WLANRADIOINFO, radioInformation};

}  // namespace

int32_t pm_wlan_list_ad(const char *instance, InstanceList *list) {
  fill(list, associationsOf(associationAt(instance).text(AssociatedDeviceView::ssidInstance)));
  return kOk;
}

int32_t pm_wlan_get_ad(const char *name, AssociatedDeviceView *view) {
  return store().get(name, view);
}

int32_t pm_wlan_del_ad(const char *name) {
  Station *station = stations().byMac(associationAt(name).mac(AssociatedDeviceView::mac));
  if (station == nullptr) return store().remove<AssociatedDeviceView>(name);
  stations().leave(*station);
  return kOk;
}

int32_t ctSgw_wlanGetHostInfo(WlanHostTable *table) {
  uint32_t count = 0;
  for (const std::string &path : store().paths<AssociatedDeviceView>()) {
    if (count == WlanHostTable::Entries::kCount) break;
    uint8_t *entry = table->bytes + WlanHostTable::entries.offset + count * WlanHostEntry::kSize;
    writeHost(store().row<AssociatedDeviceView>(path), entry);
    ++count;
  }
  fieldsOf<WlanHostTable>(table).setWord(WlanHostTable::count, count);
  return kOk;
}

}  // namespace gateway
