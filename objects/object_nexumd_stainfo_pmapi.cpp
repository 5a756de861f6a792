#include <cstdio>

#include "frame/attached_device.hpp"
#include "frame/codes.hpp"
#include "frame/getter.hpp"
#include "frame/instance.hpp"
#include "frame/log.hpp"
#include "frame/rate_text.hpp"
#include "frame/record_buffer.hpp"
#include "frame/status.hpp"
#include "platform/attached_devices.hpp"
#include "platform/host.h"
#include "platform/ports.h"
#include "platform/wlan.h"
#include "platform/wlan.hpp"
#include "pmapi/helpers.h"
#include "pmapi/stainfo.h"

using namespace pm;

static constexpr char kSourceTag[] = "object_nexumd_stainfo_pmapi.c";

namespace {

int32_t listDevices(DeviceTable &devices) {
  return plib_adev_list_view_all(&devices.list) == kOk ? PM_STATUS_OK : PM_STATUS_LIST_UNREADABLE;
}

/// The path at a position, whether or not the list reaches that far.
InstancePath pathAt(const DeviceTable &devices, int32_t index) {
  if (index < 0 || index >= PLATFORM_ATTACHED_DEVICES_MAX) return InstancePath("");
  return devices.at(static_cast<uint32_t>(index));
}

/// What every getter begins with; without an output the platform is not asked.
int32_t lookUp(const Trail &log, int32_t index, const char *out, DeviceBuffer &device) {
  if (out == nullptr) return kFailure;
  DeviceTable devices;
  if (const int32_t status = listDevices(devices); status != kOk) return status;
  DeviceReply reply;
  return queryDevice(log, pathAt(devices, index), reply, device);
}

}  // namespace

int32_t ubus_getIpAddress(int32_t index, char *out) {
  DeviceBuffer device;
  if (const int32_t status = lookUp(Trail(kSourceTag), index, out, device); status != kOk)
    return status;
  char text[kGetterTextSize] = {};
  IPToStr(device.get(device.ipv4Address), text, sizeof text);
  copyExact(out, text, sizeof text - 1);
  return kOk;
}

int32_t ubus_getHostName(int32_t index, char *out) {
  DeviceBuffer device;
  if (const int32_t status = lookUp(Trail(kSourceTag), index, out, device); status != kOk)
    return status;
  copyExact(out, device.text(device.hostName), kGetterTextSize - 1);
  return kOk;
}

int32_t ubus_getMacAddress(int32_t index, char *out) {
  DeviceBuffer device;
  if (const int32_t status = lookUp(Trail(kSourceTag), index, out, device); status != kOk)
    return status;
  char text[kGetterTextSize] = {};
  MacToString(device.get(device.mac), text, sizeof text);
  copyExact(out, text, sizeof text - 1);
  return kOk;
}

int32_t ubus_getStatype(int32_t index, char *out) {
  const Trail log(kSourceTag);
  DeviceBuffer device;
  if (const int32_t status = lookUp(log, index, out, device); status != kOk) return status;
  const char *name = nameOf(kDeviceKinds, device.get(device.kind), "other");
  copyExact(out, name, kGetterTextSize - 1);
  PM_LOG(log, kInfo, 0, "statype:%s\n", name);
  return kOk;
}

int32_t ubus_getUptime(int32_t index, char *out) {
  const Trail log(kSourceTag);
  DeviceBuffer device;
  if (const int32_t status = lookUp(log, index, out, device); status != kOk) return status;
  const auto now = static_cast<uint32_t>(GetUpTime());
  const uint32_t connected = device.get(device.connectionTime);
  // An earlier "now" means that the uptime counter has wrapped since.
  const uint32_t online = now >= connected ? now - connected : now + (UINT32_MAX - connected);
  snprintf(out, kGetterTextSize, "%u", online);
  PM_LOG(log, kInfo, 0, "uptime:%s\n", out);
  return kOk;
}

namespace {

constexpr uint32_t kRateUnit = 1000;

/// Fills what the association says.
void fillAssociation(const Trail &log, ViewBuffer<AssociatedDeviceView> &association,
                     StaConfigResult *result) {
  const int32_t rssi = association.getSigned(association.rssi);
  PM_LOG(log, kError, 0, "staconfig -> rssi=%d\n", rssi);
  printDecimal(result->rssi, rssi);
  printDecimal(result->linkRate, association.get(association.linkRate) / kRateUnit);
  printDecimal(result->linkRate2, association.get(association.linkRate2) / kRateUnit);
}

/// Fills what the configuration of the station's SSID says.
int32_t fillRadio(const InstancePath &ssid, StaConfigResult *result) {
  RecordBuffer<WlanConfigRecord> config;
  if (const int32_t status = pm_wlan_get_config(ssid.text, &config); status != kOk) {
    printf("pm_wlan_get_config fail=%d\n", status);
    return status;
  }
  const char *band = nameOf(kBands, config.get(config.band));
  if (band != nullptr) copyText(result->band, band);
  copyExact(result->wlanName, config.text(config.ssid), sizeof result->wlanName - 1);
  printDecimal(result->radioValue, config.get(config.channel));
  return kOk;
}

int32_t readWirelessLink(const Trail &log, const uint8_t *mac, StaConfigResult *result) {
  AssociationTable matches;
  if (const int32_t status = findAssociations(mac, matches); status != kOk) {
    PM_LOG(log, kError, status, "qry DBVIEW_WLAN_AD error, iret=%d\n", status);
    return status;
  }
  if (matches.reported() != 1) {
    PM_LOG(log, kError, 0, "tAdList.dwCount=%d\n", matches.reported());
    return kFailure;
  }
  ViewBuffer<AssociatedDeviceView> association;
  if (const int32_t status = association.read(matches.at(0)); status != kOk) {
    PM_LOG(log, kError, status, "qry DBVIEW_WLAN_AD error, iret=%d\n", status);
    return status;
  }
  fillAssociation(log, association, result);
  return fillRadio(InstancePath(association.text(association.ssidInstance)), result);
}

int32_t readWiredLink(const char *interfaceName, StaConfigResult *result) {
  LanInfoBuffer lan;
  if (!findLanInterface(interfaceName, lan)) return kFailure;
  const char *speed = lan.text(lan.speed);
  const char *rate = "";
  for (const Code &known : kUplinkSpeeds) {
    if (startsWith(speed, nameOf(kPortRates, known.value))) rate = known.name;
  }
  copyText(result->linkRate, rate);
  copyText(result->linkRate2, rate);
  return kOk;
}

int32_t readMeasuredTraffic(const Trail &log, const uint8_t *mac,
                            StationStatisticsBuffer &traffic) {
  const bool read = queryStationStatistics(log, CTSGW_EVENT_GET_BW_STATS, mac, traffic);
  return read ? kOk : kFailure;
}

/// The hardware's counters, or the measured ones where the hardware has run out of registers.
int32_t readWiredTraffic(const Trail &log, const uint8_t *mac, StationStatisticsBuffer &traffic) {
  if (!queryStationStatistics(log, CTSGW_EVENT_GET_HARD_STATS, mac, traffic)) return kFailure;
  if (traffic.get(traffic.notEnoughRegister) == 0) return kOk;
  printf("pm_bw_get_hard_stats not enough register, use olt func\n");
  traffic.clear();
  return readMeasuredTraffic(log, mac, traffic);
}

void fillRates(const StationStatisticsBuffer &traffic, StaConfigResult *result) {
  printRate(result->rxRate, sizeof result->rxRate,
            static_cast<float>(traffic.getSigned(traffic.rxRate)));
  printRate(result->txRate, sizeof result->txRate,
            static_cast<float>(traffic.getSigned(traffic.txRate)));
  result->valid = 1;
}

}  // namespace

int32_t ubus_get_sta_config(int32_t index, StaConfigResult *result) {
  const Trail log = entered(kSourceTag);
  if (log.lacks(result)) return kFailure;
  DeviceTable devices;
  if (const int32_t status = listDevices(devices); status != kOk) return status;
  DeviceBuffer device;
  {
    DeviceReply reply;
    queryDevice(log, pathAt(devices, index), reply, device);
  }
  const InterfaceName interface(device.bytes);
  const uint8_t *mac = device.get(device.mac);
  const bool isWireless = startsWith(interface.text, "wlan");
  if (!isWireless && !startsWith(interface.text, "eth")) return kOk;

  const int32_t link =
      isWireless ? readWirelessLink(log, mac, result) : readWiredLink(interface.text, result);
  if (link != kOk) return link;
  StationStatisticsBuffer traffic;
  const int32_t status =
      isWireless ? readMeasuredTraffic(log, mac, traffic) : readWiredTraffic(log, mac, traffic);
  if (status != kOk) return status;
  fillRates(traffic, result);
  return kOk;
}

namespace {

int32_t fillAccess(const Trail &log, const InstancePath &path, StaInfoRecord *record) {
  ViewBuffer<AccessDeviceView> access;
  if (const int32_t status = access.read(path); status != kOk) {
    PM_LOG(log, kError, status, "get DBVIEW_ACCESS_DEV failed, iRet=%d\n", status);
    return PM_STATUS_UNREADABLE;
  }
  PM_LOG(log, kVerbose, 0, " get DBVIEW_ACCESS_DEV succ");
  record->adevValue = access.getSigned(access.adevValue);
  copyText(record->vendor, access.text(access.vendor));
  PM_LOG(log, kInfo, 0, "tVendor=%s\n", access.text(access.vendor));
  copyText(record->ipv6Address, access.text(access.ipv6Address));
  PM_LOG(log, kInfo, 0, "tIPV6Address=%s\n", access.text(access.ipv6Address));
  copyText(record->accessTime, access.text(access.lastConnection));
  PM_LOG(log, kInfo, 0, "tLastConnection=%s\n", access.text(access.lastConnection));
  PM_LOG(log, kInfo, 0, "p_ubus_sta_info -> accessTime=%s\n", record->accessTime);
  return kOk;
}

int32_t fillTraffic(const Trail &log, const InstancePath &path, StaInfoRecord *record) {
  StationStatisticsBuffer traffic;
  if (pm_bw_get_hard_stats(path.text, &traffic) != kOk) return PM_STATUS_UNREADABLE;
  PM_LOG(log, kInfo, 0, "out pm_bw_get_hard_stats");
  record->totalBytesSent = traffic.get(traffic.totalBytesSent);
  record->totalBytesReceived = traffic.get(traffic.totalBytesReceived);
  record->totalPacketsSent = traffic.get(traffic.totalPacketsSent);
  record->totalPacketsReceived = traffic.get(traffic.totalPacketsReceived);
  PM_LOG(log, kInfo, 0, "[pm_ubus_get_sta_info] p_ubus_sta_info -> totalBytesReceived: %llu\n",
         record->totalBytesReceived);
  PM_LOG(log, kInfo, 0, "[pm_ubus_get_sta_info] tBwstats.ttotalPacketsSent: %llu\n",
         record->totalPacketsSent);
  return kOk;
}

void fillConfig(int32_t index, StaInfoRecord *record) {
  StaConfigResult config = {};
  ubus_get_sta_config(index, &config);
  copyText(record->band, config.band);
  copyText(record->wlanName, config.wlanName);
  copyText(record->rssi, config.rssi);
  copyText(record->radioValue, config.radioValue);
  copyText(record->linkRate, config.linkRate);
  copyText(record->linkRate2, config.linkRate2);
  copyText(record->rxRate, config.rxRate);
  copyText(record->txRate, config.txRate);
  record->staConfigValid = config.valid;
}

}  // namespace

int32_t pm_ubus_get_sta_info(int32_t index, StaInfoRecord *record) {
  const Trail log(kSourceTag);
  PM_LOG(log, kInfo, 0, "enter pm_ubus_get_sta_info");
  if (log.lacks(record)) return kFailure;
  fill(record->ipAddress, ubus_getIpAddress, index);
  const auto position = static_cast<int32_t>(static_cast<uint32_t>(index) + 1);
  const InstancePath path = InstancePath::numbered("IGD.LD1.Hosts.Adev", position);
  PM_LOG(log, kInfo, 0, "szViewName=%s\n", path.text);
  if (const int32_t status = fillAccess(log, path, record); status != kOk) return status;
  if (const int32_t status = fillTraffic(log, path, record); status != kOk) return status;
  fill(record->hostName, ubus_getHostName, index);
  fill(record->macAddress, ubus_getMacAddress, index);
  fill(record->staType, ubus_getStatype, index);
  fill(record->onlineTime, ubus_getUptime, index);
  fillConfig(index, record);
  printf("===================pmapi end========================");
  return kOk;
}
