#include "objects/wlan_scan.hpp"

#include "frame/instance.hpp"

namespace pm {

using platform::WlanApEntry;

namespace {

constexpr uint32_t kScanEverything = UINT32_MAX;

}  // namespace

int32_t startScan(const char *radioInstance) {
  RecordBuffer<WlanScanRequest> request;
  request.set(request.setting1, kScanEverything);
  request.set(request.setting2, 0);
  const InstancePath instance(radioInstance);
  return pm_wlan_set_scan_ap(instance.text, &request);
}

int32_t listAccessPoints(const char *ssidInstance, ApListBuffer &list) {
  list.put(list.selector, UINT32_MAX);
  const InstancePath instance(ssidInstance);
  return pm_wlan_list_ap(instance.text, &list);
}

uint32_t countOf(const ApListBuffer &list) {
  return clampCount(list.get(list.count), WlanApList::kMaxEntries);
}

HeardAccessPoint accessPointAt(const ApListBuffer &list, uint32_t position) {
  const uint8_t *entry = list.get(list.entries) + position * WlanApEntry::kSize;
  HeardAccessPoint heard = {};
  memcpy(heard.ssid, entry + WlanApEntry::ssid.offset, WlanApEntry::ssid.width);
  memcpy(heard.bssid, entry + WlanApEntry::bssid.offset, sizeof heard.bssid);
  heard.channel = loadAs<int32_t>(entry, WlanApEntry::channel.offset);
  heard.rssi = loadAs<int32_t>(entry, WlanApEntry::rssi.offset);
  heard.securityMode = loadAs<int32_t>(entry, WlanApEntry::securityMode.offset);
  heard.encryption = loadAs<int32_t>(entry, WlanApEntry::encryption.offset);
  return heard;
}

}  // namespace pm
