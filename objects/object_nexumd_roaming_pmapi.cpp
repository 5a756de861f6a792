#include <cstdio>

#include "frame/attached_device.hpp"
#include "frame/codes.hpp"
#include "frame/getter.hpp"
#include "frame/instance.hpp"
#include "frame/log.hpp"
#include "frame/parse.hpp"
#include "frame/proxy.hpp"
#include "frame/record_buffer.hpp"
#include "frame/status.hpp"
#include "platform/host.h"
#include "platform/wlan.h"
#include "platform/wlan.hpp"
#include "pmapi/helpers.h"
#include "pmapi/roaming.h"

using namespace pm;
using AssociationBuffer = ViewBuffer<AssociatedDeviceView>;
using SteeringBuffer = RecordBuffer<WlanBandSteeringRecord>;

static constexpr char kSourceTag[] = "object_nexumd_roaming_pmapi.c";

namespace {

constexpr int32_t kAssociationFault = 1566;
constexpr uint32_t kLast24GSsid = 4;

/// The whole of a getter of one word of the record that roaming and band steering share.
int32_t getSteeringWord(const Trail &log, WordPlace word, const char *label, uint32_t *out) {
  PM_LOG(log, kInfo, 0, "now in %s\n", log.function);
  if (out == nullptr) return kFailure;
  SteeringBuffer steering;
  if (const int32_t status = pm_wlan_get_wifibandsteering(&steering); status != kOk) {
    PM_LOG(log, kError, status, "[%s] pm_wlan_get_wifibandsteering fail(%d)\r\n", log.function,
           status);
    return kFailure;
  }
  *out = steering.get(word);
  PM_LOG(log, kInfo, 0, "%s:%d\n", label, *out);
  return kOk;
}

}  // namespace

int32_t ubus_getRoamingSwitch(uint32_t *out) {
  return getSteeringWord(Trail(kSourceTag), WlanBandSteeringRecord::steeringEnable, "roamingSwitch",
                         out);
}

int32_t ubus_getLowRSSI24G(uint32_t *out) {
  return getSteeringWord(Trail(kSourceTag), WlanBandSteeringRecord::lowRssi24G, "LowRSSI24G", out);
}

int32_t ubus_getLowRSSI5G(uint32_t *out) {
  return getSteeringWord(Trail(kSourceTag), WlanBandSteeringRecord::lowRssi5G, "LowRSSI5G", out);
}

int32_t ubus_getRssiThreshold(uint32_t *out) {
  return getSteeringWord(Trail(kSourceTag), WlanBandSteeringRecord::lowRssi24G, "RssiThreshold",
                         out);
}

int32_t ubus_getRssiThreshold5G(uint32_t *out) {
  return getSteeringWord(Trail(kSourceTag), WlanBandSteeringRecord::lowRssi5G, "RssiThreshold5G",
                         out);
}

int32_t ubus_getBandSteeringStatus(uint32_t *out) {
  const Trail log = entered(kSourceTag);
  if (out == nullptr) return kFailure;
  RecordBuffer<WlanConfigRecord> config;
  const int32_t status = pm_wlan_get_config(kFirst24GSsid.text, &config);
  if (log.readResult(status) != kOk) return kFailure;
  *out = config.get(config.bandSteering);
  PM_LOG(log, kInfo, 0, "BandSteeringStatus:%d\n", *out);
  return kOk;
}

namespace {

int32_t writeSteering(const Trail &log, bool enable, uint32_t low24G, uint32_t low5G) {
  SteeringBuffer steering;
  steering.set(steering.steeringEnable, enable ? 1 : 0);
  steering.set(steering.lowRssi24G, low24G);
  steering.set(steering.lowRssi5G, low5G);
  const int32_t status = pm_wlan_set_wifibandsteering(&steering);
  if (status == kOk) return kOk;
  PM_LOG(log, kError, status, "pm_wlan_set_wifibandsteering  fail=%d\n", status);
  return kFailure;
}

}  // namespace

int32_t ubus_setLowRSSI(int32_t roamingSwitch, uint32_t low24G, uint32_t low5G) {
  return writeSteering(Trail(kSourceTag), roamingSwitch == 1, low24G, low5G);
}

int32_t ubus_getPacketLoss(void) {
  return kOk;
}
int32_t ubus_getRetryRatio(void) {
  return kOk;
}
int32_t ubus_getXIndex(void) {
  return kOk;
}
int32_t ubus_getDetectPeriod(void) {
  return kOk;
}
int32_t ubus_getRssiCheckDelta(void) {
  return kOk;
}
int32_t ubus_getDismissTime(void) {
  return kOk;
}
int32_t ubus_setPacketLoss(void) {
  return kOk;
}
int32_t ubus_setRetryRatio(void) {
  return kOk;
}
int32_t ubus_setXIndex(void) {
  return kOk;
}
int32_t ubus_setDetectPeriod(void) {
  return kOk;
}
int32_t ubus_setRssiCheckDelta(void) {
  return kOk;
}
int32_t ubus_setDismissTime(void) {
  return kOk;
}

int32_t pm_ubus_roaming_get(RoamingRecord *record) {
  const Trail log = entered(kSourceTag);
  if (log.lacks(record)) return kFailure;
  RoamingRecord settings = {};
  fill(settings.roamingSwitch, ubus_getRoamingSwitch);
  fill(settings.lowRSSI24G, ubus_getLowRSSI24G);
  fill(settings.lowRSSI5G, ubus_getLowRSSI5G);
  *record = settings;
  return kOk;
}

int32_t pm_ubus_roaming_set(const RoamingRecord *record) {
  const Trail log = entered(kSourceTag);
  if (log.lacks(record)) return kNullRecord;
  const int32_t status =
      ubus_setLowRSSI(record->roamingSwitch, static_cast<uint32_t>(record->lowRSSI24G),
                      static_cast<uint32_t>(record->lowRSSI5G));
  if (status != kOk) {
    PM_LOG(log, kError, status, "call ubus_setLowRSSI faild,iRet=%d\n", status);
    return kFailure;
  }
  return kOk;
}

int32_t pm_ubus_roaming_bandsteering_get(BandSteeringRecord *record) {
  const Trail log = entered(kSourceTag);
  if (log.lacks(record)) return kFailure;
  fill(record->bandSteeringStatus, ubus_getBandSteeringStatus);
  fill(record->rssiThreshold, ubus_getRssiThreshold);
  fill(record->rssiThreshold5G, ubus_getRssiThreshold5G);
  return kOk;
}

int32_t pm_ubus_roaming_bandsteering_set(const BandSteeringRecord *record) {
  const Trail log = entered(kSourceTag);
  if (log.lacks(record)) return kNullRecord;
  const bool enable = record->bandSteeringStatus == 1;
  RecordBuffer<WlanConfigRecord> config;
  config.set(config.bandSteering, enable ? 1 : 0);
  if (const int32_t status = pm_wlan_set_config(kFirst24GSsid.text, &config);
      !appliedOrUnchanged(status)) {
    PM_LOG(log, kError, status, "pm_wlan_set_config 2.4G fail = %d\n", status);
    return kFailure;
  }
  if (writeSteering(log, enable, static_cast<uint32_t>(record->rssiThreshold),
                    static_cast<uint32_t>(record->rssiThreshold5G)) != kOk) {
    return kFailure;
  }
  if (const int32_t status = pm_wlan_set_same_ssid_2G(kFirst24GSsid.text, kFirst5GSsid.text);
      status != kOk) {
    PM_LOG(log, kError, status, "pm_wlan_set_same_ssid_2G failed!! iRet:%d\n", status);
    return status;
  }
  return kOk;
}

namespace {

bool parseMac(const Trail &log, const char *text, uint8_t mac[6]) {
  if (StrToMAC(text, mac) == 0) {
    PM_LOG(log, kError, 0, "Invalid MACAddress\n");
    return false;
  }
  printf("=======strtoMAc======%02x:%02x:%02x:%02x:%02x:%02x\n", mac[0], mac[1], mac[2], mac[3],
         mac[4], mac[5]);
  return true;
}

int32_t queryAssociations(const Trail &log, const uint8_t mac[6], AssociationTable &matches) {
  const int32_t status = findAssociations(mac, matches);
  if (status != kOk) PM_LOG(log, kFault, kAssociationFault, "DBVIEW_WLAN_AD");
  return status;
}

/// Blocks the association of that name and takes it away.
int32_t blockAndRemove(const char *name) {
  AssociationBuffer station;
  if (pm_wlan_get_ad(name, &station) != kOk) return kFailure;
  pm_wlan_add_blklist(name, &station);
  return pm_wlan_del_ad(name);
}

}  // namespace

int32_t pm_ubus_roaming_sta_disconnect(const char *mac) {
  const Trail log = entered(kSourceTag);
  if (log.lacks(mac)) return kFailure;
  uint8_t station[6] = {};
  if (!parseMac(log, mac, station)) return kFailure;

  AssociationTable matches;
  if (const int32_t status = queryAssociations(log, station, matches); status != kOk) {
    return status;
  }
  if (matches.reported() != 1) {
    printf("Database don't have this mac or more the one!\n");
    return kFailure;
  }
  printf("=======number=======%d\n", matches.reported());

  const InstancePath instance = matches.at(0);
  // The stations beside it do not matter: only whether the platform can list them decides.
  AssociationTable neighbours;
  if (const int32_t status = pm_wlan_list_ad(instance.text, &neighbours.list); status != kOk) {
    printf("pm_wlan_list_ad fail=%d\n", status);
    return status;
  }
  AssociationBuffer association;
  const bool isRead = wlan_get_ad_db_q(instance.text, association.bytes) == kOk;
  const char *recorded = association.text(association.name);
  const InstancePath name(isRead && *recorded != '\0' ? recorded : instance.text);
  printf("=======tViewName=======%s\n", name.text);
  return blockAndRemove(name.text);
}

namespace {

struct AssociatedHost {
  uint32_t ssidNumber;
  int32_t rssi;
};

bool findHost(const uint8_t mac[6], AssociatedHost &host) {
  RecordBuffer<WlanHostTable> table;
  if (ctSgw_wlanGetHostInfo(&table) != kOk) return false;
  const uint32_t count = clampCount(table.get(table.count), WlanHostTable::Entries::kCount);
  for (uint32_t i = 0; i < count; ++i) {
    const uint8_t *entry = table.row(table.entries, i);
    if (memcmp(load(entry, WlanHostEntry::mac), mac, 6) != 0) continue;
    host.ssidNumber = load(entry, WlanHostEntry::ssidNumber);
    host.rssi = loadSigned(entry, WlanHostEntry::rssi);
    return true;
  }
  return false;
}

}  // namespace

int32_t pm_ubus_roaming_starssi_get(StaRssiRecord *record) {
  const Trail log = entered(kSourceTag);
  if (log.lacks(record)) return kFailure;
  uint8_t mac[6] = {};
  const BoundedRequest<StaRssiRecord> bounded(*record);
  if (!parseMac(log, bounded.request.macAddress, mac)) return kFailure;
  AssociatedHost host = {};
  if (!findHost(mac, host)) return kFailure;
  const uint32_t radioType = host.ssidNumber > kLast24GSsid ? kBand5G : kBand24G;
  printf("radioType:%d\n", radioType);

  ProxyReply<20480> reply;
  if (const int32_t status =
          reply.send(CTSGW_EVENT_GET_WLANRADIOINFO, &radioType, sizeof radioType);
      status < kOk) {
    PM_LOG(log, kError, status, "ctSgw_ssend_to_proxy CTSGW_EVENT_GET_WLANRADIOINFO error!\n");
    return kFailure;
  }
  RecordBuffer<RadioInfoRecord> radio;
  reply.copyPayload(radio.bytes, radio.kSize);
  copyText(record->radio, nameOf(kBands, radioType));
  printDecimal(record->rssi, host.rssi);
  printDecimal(record->radioValue, radio.get(radio.radioValue));
  return kOk;
}

namespace {

enum class Medium { kNone, kWired, k24G, k5G };

Medium wirelessMedium(const Trail &log, const uint8_t mac[6]) {
  AssociationTable matches;
  if (queryAssociations(log, mac, matches) != kOk) return Medium::kNone;
  if (matches.reported() != 1) return Medium::kNone;
  AssociationBuffer association;
  if (wlan_get_ad_db_q(matches.at(0).text, association.bytes) != kOk) return Medium::kNone;
  const InstancePath ssid(association.text(association.ssidInstance));
  RecordBuffer<WlanConfigRecord> config;
  if (const int32_t status = pm_wlan_get_config(ssid.text, &config); status != kOk) {
    printf("pm_wlan_get_config fail=%d\n", status);
    return Medium::kNone;
  }
  switch (config.get(config.band)) {
    case kBand24G:
      return Medium::k24G;
    case kBand5G:
      return Medium::k5G;
    default:
      return Medium::kNone;
  }
}

/// Where a device is attached; kNone for one that does not count.
Medium mediumOf(const Trail &log, const InstancePath &path) {
  DeviceBuffer device;
  ProxyReply<20480> reply;
  queryDevice(log, path, reply, device);
  // A torn record says nothing about its device.
  if (reply.payloadLength() < device.kSize) return Medium::kNone;
  if (net_json_check_dev_valid(device.bytes) == 0) return Medium::kNone;
  const char *interfaceName = device.text(device.interfaceName);
  if (startsWith(interfaceName, "eth")) return Medium::kWired;
  if (startsWith(interfaceName, "wlan")) return wirelessMedium(log, device.get(device.mac));
  return Medium::kNone;
}

}  // namespace

int32_t pm_ubus_sta_num_get(StaNumRecord *record) {
  const Trail log = entered(kSourceTag);
  if (log.lacks(record)) return kFailure;
  DeviceTable devices;
  if (const int32_t status = plib_adev_list_view(&devices.list); status != kOk) {
    PM_LOG(log, kError, status, "plib_adev_list_view inquiry fail\n");
    return kFailure;
  }
  StaNumRecord counted = {};
  for (uint32_t i = 0; i < devices.count(); ++i) {
    PM_LOG(log, kInfo, 0, "Adev num is %d!\n", i + 1);
    switch (mediumOf(log, devices.at(i))) {
      case Medium::kWired:
        ++counted.ethNum;
        break;
      case Medium::k24G:
        ++counted.wlan24GNum;
        break;
      case Medium::k5G:
        ++counted.wlan5GNum;
        break;
      case Medium::kNone:
        break;
    }
  }
  *record = counted;
  return kOk;
}
