#include "objects/shared/wlan_scan.hpp"

#include <unistd.h>

#include "objects/shared/wlan_instances.hpp"

namespace pm {

namespace {

constexpr uint32_t kScanEverything = UINT32_MAX;

}  // namespace

int32_t startScan(uint32_t band) {
  RecordBuffer<WlanScanRequest> request;
  request.set(request.setting1, kScanEverything);
  request.set(request.setting2, 0);
  return pm_wlan_set_scan_ap(wlan::scanInstance(band).text, &request);
}

void waitSeconds(uint32_t seconds) {
  for (uint32_t left = seconds; left > 0;) left = sleep(left);
}

int32_t listAccessPoints(uint32_t band, ApListBuffer &list) {
  list.put(list.selector, UINT32_MAX);
  return pm_wlan_list_ap(wlan::radioInstance(band).text, &list);
}

uint32_t countOf(const ApListBuffer &list) {
  return clampCount(list.get(list.count), WlanApList::Entries::kCount);
}

HeardAccessPoint accessPointAt(const ApListBuffer &list, uint32_t position) {
  const uint8_t *entry = list.row(list.entries, position);
  HeardAccessPoint heard = {};
  memcpy(heard.ssid, load(entry, WlanApEntry::ssid), WlanApEntry::ssid.width);
  memcpy(heard.bssid, load(entry, WlanApEntry::bssid), sizeof heard.bssid);
  heard.channel = loadSigned(entry, WlanApEntry::channel);
  heard.rssi = loadSigned(entry, WlanApEntry::rssi);
  heard.securityMode = loadSigned(entry, WlanApEntry::securityMode);
  heard.encryption = loadSigned(entry, WlanApEntry::encryption);
  return heard;
}

}  // namespace pm
