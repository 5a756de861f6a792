#include "frame/codes.hpp"
#include "frame/log.hpp"
#include "frame/status.hpp"
#include "objects/shared/wlan_scan.hpp"
#include "platform/host.h"
#include "pmapi/wlan_neighborinfo.h"

using namespace pm;

static constexpr char kSourceTag[] = "object_nexumd_wlan_neighborinfo_pmapi.c";

namespace {

constexpr uint32_t kScanSeconds = 5;

void fillEntry(const HeardAccessPoint &heard, const char *radio, NeighborApEntry &entry) {
  SafeStrncpy(entry.radio, radio, sizeof entry.radio);
  SafeStrncpy(entry.ssid, heard.ssid, sizeof entry.ssid);
  MACToStr(heard.bssid, entry.bssid, sizeof entry.bssid);
  printDecimal(entry.apValueText, heard.channel);
  entry.apValue52 = heard.rssi;
  entry.apValue104 = heard.encryption;
  entry.apValue100 = heard.securityMode;
}

/// Scans one band. The entries start over with every scan, so the bands share them.
int32_t scanBand(const Trail &log, uint32_t band, NeighborInfoRecord *record, int32_t *count) {
  if (const int32_t status = startScan(band); status != kOk) {
    PM_LOG(log, kError, status, "pm_wlan_set_scan_ap fail=%d\n", status);
    return status;
  }
  waitSeconds(kScanSeconds);
  ApListBuffer list;
  if (const int32_t status = listAccessPoints(band, list); status != kOk) {
    PM_LOG(log, kError, status, "pm_wlan_list_ap fail=%d\n", status);
    return status;
  }
  const uint32_t heard = countOf(list);
  *count = static_cast<int32_t>(heard);
  const char *radio = nameOf(kBands, band);
  for (uint32_t i = 0; i < heard; ++i) fillEntry(accessPointAt(list, i), radio, record->entries[i]);
  return kOk;
}

}  // namespace

uint32_t pm_ubus_wlan_neighborinfo_get_2g(NeighborInfoRecord *record) {
  const Trail log(kSourceTag);
  PM_LOG(log, kVerbose, 0, "Enter pm_ubus_wlan_neighbourinfo_get_2g\n");
  if (record == nullptr) {
    PM_LOG(log, kError, 0, "buff is NULL\n");
    return static_cast<uint32_t>(PM_STATUS_NO_RECORD);
  }
  return static_cast<uint32_t>(scanBand(log, kBand24G, record, &record->neighborNum24G));
}

uint32_t pm_ubus_wlan_neighborinfo_get_5g(NeighborInfoRecord *record) {
  const Trail log(kSourceTag);
  PM_LOG(log, kVerbose, 0, "Enter pm_ubus_ortand_neighbourinfo_get_5g\n");
  if (record == nullptr) {
    PM_LOG(log, kError, 0, "buff is NULL\n");
    return static_cast<uint32_t>(PM_STATUS_NO_RECORD);
  }
  return static_cast<uint32_t>(scanBand(log, kBand5G, record, &record->neighborNum5G));
}
