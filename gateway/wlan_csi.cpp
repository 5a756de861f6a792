// Collection of channel state information: one record per radio, one per station, in the store.
#include <algorithm>
#include <cctype>
#include <string>

#include "boundary/boundary.hpp"
#include "gateway/calls.hpp"
#include "gateway/gateway.hpp"
#include "gateway/instances.hpp"
#include "platform/wlan.h"
#include "platform/wlan.hpp"

using namespace gateway;

namespace {

constexpr size_t kMacDigits = 12;
constexpr const char *kStations = "IGD.CsiMac";

template <class Record>
int32_t get(const char *instance, Record *record) {
  return Gateway::current().store().get(layoutOf<Record>(), instance, record);
}

std::vector<std::string> stationsUnder(Store &store, const std::string &parent) {
  return store.list(layoutOf<WlanCsiMacRecord>(), parent);
}

/// The station that a record names; refuses what is no MAC.
std::string stationIn(WlanCsiMacRecord *record) {
  const Row row = fieldsOf<WlanCsiMacRecord>(record);
  const std::string mac = row.text(WlanCsiMacRecord::macText);
  const bool valid = row.mark(WlanCsiMacRecord::macText) == 1 && mac.size() == kMacDigits &&
                     std::ranges::all_of(mac, [](unsigned char c) { return std::isxdigit(c); });
  if (!valid) throw Refusal(kInvalidField);
  return mac;
}

std::string pathOfStation(Store &store, const std::string &parent, const std::string &mac) {
  for (const std::string &path : stationsUnder(store, parent)) {
    if (store.row<WlanCsiMacRecord>(path).text(WlanCsiMacRecord::macText) == mac) return path;
  }
  return {};
}

int32_t addStation(Store &store, const std::string &mac) {
  for (uint32_t number = 1; number <= PLATFORM_CSI_STATIONS_MAX; ++number) {
    const std::string path = kStations + std::to_string(number);
    if (store.has<WlanCsiMacRecord>(path)) continue;
    store.create<WlanCsiMacRecord>(path).setText(WlanCsiMacRecord::macText, mac);
    return kOk;
  }
  return kTableFull;
}

}  // namespace

int32_t gateway::pm_wlan_get_csi_info(const char *instance, WlanCsiRecord *record) {
  return get(instance, record);
}

int32_t gateway::pm_wlan_set_csi_info(const char *instance, WlanCsiRecord *record) {
  Gateway &gateway = Gateway::current();
  const std::string path = instance;
  return gateway.store().set(layoutOf<WlanCsiRecord>(), path, record, Unchanged::kReported);
}

int32_t gateway::pm_wlan_add_csi_mac(const char *parent, WlanCsiMacRecord *record) {
  Gateway &gateway = Gateway::current();
  const std::string path = parent;
  const std::string mac = stationIn(record);
  if (!pathOfStation(gateway.store(), path, mac).empty()) return int32_t{kNothingChanged};
  return addStation(gateway.store(), mac);
}

int32_t gateway::pm_wlan_del_csi_mac(const char *parent, WlanCsiMacRecord *record) {
  Gateway &gateway = Gateway::current();
  Store &store = gateway.store();
  const std::string path = pathOfStation(store, parent, stationIn(record));
  return store.remove(layoutOf<WlanCsiMacRecord>(), path);
}

int32_t gateway::pm_wlan_list_csi_mac(const char *parent, CsiMacList *list) {
  Gateway &gateway = Gateway::current();
  const std::string path = parent;
  if (list->nameSize != PLATFORM_INSTANCE_SIZE) throw Refusal(kBadHeader, "names of 32 only");
  list->dwCount =
      writePaths(stationsUnder(gateway.store(), path), PLATFORM_CSI_STATIONS_MAX, list->instances);
  return kOk;
}

int32_t gateway::pm_wlan_get_csi_mac_par(const char *name, WlanCsiMacRecord *record) {
  return get(name, record);
}
