// Collection of channel state information: one record per radio, one per station, in the store.
#include <algorithm>
#include <cctype>
#include <string>

#include "boundary/boundary.hpp"
#include "gateway/calls.hpp"
#include "gateway/gateway.hpp"
#include "gateway/instances.hpp"
#include "platform/wlan.hpp"

namespace gateway {

namespace {

constexpr size_t kMacDigits = 12;
constexpr const char *kStations = "IGD.CsiMac";

/// The station that a record names; refuses what is no MAC.
std::string stationIn(WlanCsiMacRecord *record) {
  const Row row = fieldsOf<WlanCsiMacRecord>(record);
  const std::string mac = row.text(WlanCsiMacRecord::macText);
  const bool valid = row.mark(WlanCsiMacRecord::macText) == 1 && mac.size() == kMacDigits &&
                     std::ranges::all_of(mac, [](unsigned char c) { return std::isxdigit(c); });
  if (!valid) throw Refusal(kInvalidField);
  return mac;
}

std::string pathOfStation(const char *parent, const std::string &mac) {
  for (const std::string &path : store().list<WlanCsiMacRecord>(parent)) {
    if (store().row<WlanCsiMacRecord>(path).text(WlanCsiMacRecord::macText) == mac) return path;
  }
  return {};
}

}  // namespace

int32_t pm_wlan_get_csi_info(const char *instance, WlanCsiRecord *record) {
  return store().get(instance, record);
}

int32_t pm_wlan_set_csi_info(const char *instance, WlanCsiRecord *record) {
  return store().set(instance, record, Unchanged::kReported);
}

int32_t pm_wlan_add_csi_mac(const char *parent, WlanCsiMacRecord *record) {
  const std::string mac = stationIn(record);
  if (!pathOfStation(parent, mac).empty()) return kNothingChanged;
  for (uint32_t number = 1; number <= PLATFORM_CSI_STATIONS_MAX; ++number) {
    const std::string path = kStations + std::to_string(number);
    if (store().has<WlanCsiMacRecord>(path)) continue;
    store().create<WlanCsiMacRecord>(path).setText(WlanCsiMacRecord::macText, mac);
    return kOk;
  }
  return kTableFull;
}

int32_t pm_wlan_del_csi_mac(const char *parent, WlanCsiMacRecord *record) {
  return store().remove<WlanCsiMacRecord>(pathOfStation(parent, stationIn(record)));
}

int32_t pm_wlan_list_csi_mac(const char *parent, CsiMacList *list) {
  if (list->nameSize != PLATFORM_INSTANCE_SIZE) throw Refusal(kBadHeader, "names of 32 only");
  list->dwCount = writePaths(store().list<WlanCsiMacRecord>(parent), PLATFORM_CSI_STATIONS_MAX,
                             list->instances);
  return kOk;
}

int32_t pm_wlan_get_csi_mac_par(const char *name, WlanCsiMacRecord *record) {
  return store().get(name, record);
}

}  // namespace gateway
