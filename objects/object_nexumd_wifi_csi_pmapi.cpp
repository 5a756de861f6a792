#include "frame/instance.hpp"
#include "frame/log.hpp"
#include "frame/record_buffer.hpp"
#include "frame/status.hpp"
#include "platform/wlan.h"
#include "platform/wlan.hpp"
#include "pmapi/wifi_csi.h"

using namespace pm;
using CsiBuffer = RecordBuffer<WlanCsiRecord>;
using StationBuffer = RecordBuffer<WlanCsiMacRecord>;

static constexpr char kSourceTag[] = "object_nexumd_wifi_csi_pmapi.c";

namespace {

constexpr InstancePath kCsi24G = InstancePath::constant("IGD.CsiInfo1");
constexpr InstancePath kCsi5G = InstancePath::constant("IGD.CsiInfo2");

enum StationOperation { kAddStation = 1, kDeleteStation = 2 };

/// What the daemon allocates for a list.
constexpr uint32_t kListRoom = 416;
constexpr uint32_t kMacDigits = 12;
constexpr uint32_t kMacStep = kMacDigits + 1;

/// Writes the record to the radios that the text names; false for a text that names none.
bool writeToRadios(const char *radio, CsiBuffer &csi, int32_t &status) {
  if (strcmp(radio, "2.4G") == 0) {
    status = pm_wlan_set_csi_info(kCsi24G.text, &csi);
  } else if (strcmp(radio, "5G") == 0) {
    status = pm_wlan_set_csi_info(kCsi5G.text, &csi);
  } else if (strcmp(radio, "All") == 0) {
    pm_wlan_set_csi_info(kCsi24G.text, &csi);
    status = pm_wlan_set_csi_info(kCsi5G.text, &csi);
  } else {
    return false;
  }
  return true;
}

}  // namespace

int32_t pm_ubus_set_csi_enable(const CsiEnableSetRecord *record) {
  const Trail log = entered(kSourceTag);
  if (log.lacks(record)) return kNullRecord;
  CsiBuffer csi;
  csi.set(csi.csiEnable, static_cast<uint32_t>(record->enable));
  int32_t status = kOk;
  if (!writeToRadios(record->radio, csi, status)) {
    PM_LOG(log, kError, 0, "radio illegal!");
    return kFailure;
  }
  if (status != kOk) {
    PM_LOG(log, kError, status, "pm_wlan_set_csi_info  fail=%d\n", status);
    return kFailure;
  }
  return kOk;
}

int32_t pm_ubus_get_csi_enable(CsiEnableRecord *record) {
  const Trail log = entered(kSourceTag);
  if (log.lacks(record)) return kNullRecord;
  CsiBuffer csi24G;
  CsiBuffer csi5G;
  int32_t status = pm_wlan_get_csi_info(kCsi24G.text, &csi24G);
  if (status == kOk) status = pm_wlan_get_csi_info(kCsi5G.text, &csi5G);
  if (status != kOk) {
    PM_LOG(log, kError, status, "[%s] pm_ubus_get_csi_enable fail(%d)\r\n", log.function, status);
    return kFailure;
  }
  copyText(record->radio1, csi24G.text(csi24G.radioName));
  record->enable1 = csi24G.getSigned(csi24G.csiEnable);
  copyText(record->radio2, csi5G.text(csi5G.radioName));
  record->enable2 = csi5G.getSigned(csi5G.csiEnable);
  return kOk;
}

int32_t pm_ubus_set_csi_mac(const CsiMacRecord *record) {
  const Trail log = entered(kSourceTag);
  if (log.lacks(record)) return kNullRecord;
  if (record->operation != kAddStation && record->operation != kDeleteStation) {
    PM_LOG(log, kError, 0, "pm_ubus_set_csi_mac  fail=%d\n", 0);
    return kFailure;
  }
  const size_t length = strnlen(record->macList, kListRoom);
  for (size_t position = 0; position < length; position += kMacStep) {
    char mac[kMacStep];
    copyText(mac, record->macList + position);
    StationBuffer station;
    station.set(station.macText, mac);
    if (record->operation == kAddStation) {
      pm_wlan_add_csi_mac(kGatewayPath.text, &station);
    } else {
      pm_wlan_del_csi_mac(kGatewayPath.text, &station);
    }
  }
  return kOk;
}

int32_t pm_ubus_get_csi_mac(CsiMacRecord *record) {
  const Trail log = entered(kSourceTag);
  if (record == nullptr) return kFailure;
  InstanceTable<PLATFORM_CSI_STATIONS_MAX> stations;
  CsiMacList list{PLATFORM_INSTANCE_SIZE, 0, stations.list.instances};
  if (const int32_t status = pm_wlan_list_csi_mac(kGatewayPath.text, &list); status != kOk) {
    PM_LOG(log, kError, status, "pm_wlan_list_csi_mac fail=%d\n", status);
    return status;
  }
  stations.list.dwCount = list.dwCount;
  for (uint32_t i = 0; i < stations.count(); ++i) {
    StationBuffer station;
    if (const int32_t status = pm_wlan_get_csi_mac_par(stations.at(i).text, &station);
        status != kOk) {
      PM_LOG(log, kError, status, "pm_wlan_get_csi_mac_par(%d) fail=%d\n", i, status);
      return kOk;
    }
    char *mac = record->macList + i * kMacStep;
    copyText(mac, kMacStep, station.text(station.macText));
    if (i > 0) mac[-1] = ',';
  }
  return kOk;
}

int32_t pm_ubus_set_csi_config(const CsiConfigRecord *record) {
  const Trail log = entered(kSourceTag);
  if (log.lacks(record)) return kNullRecord;
  CsiBuffer csi;
  csi.set(csi.csiParam1, static_cast<uint32_t>(record->csiParam1));
  csi.set(csi.csiParam2, static_cast<uint32_t>(record->csiParam2));
  int32_t status = pm_wlan_set_csi_info(kCsi24G.text, &csi);
  if (status == kOk) status = pm_wlan_set_csi_info(kCsi5G.text, &csi);
  if (status != kOk) {
    PM_LOG(log, kError, status, "pm_ubus_set_csi_config  fail=%d\n", status);
    return kFailure;
  }
  return kOk;
}

int32_t pm_ubus_get_csi_config(CsiConfigRecord *record) {
  const Trail log = entered(kSourceTag);
  if (record == nullptr) return kFailure;
  CsiBuffer csi;
  if (const int32_t status = pm_wlan_get_csi_info(kCsi24G.text, &csi); status != kOk) {
    PM_LOG(log, kError, status, "[%s] pm_ubus_get_csi_config fail(%d)\r\n", log.function, status);
    return kFailure;
  }
  record->csiParam1 = csi.getSigned(csi.csiParam1);
  record->csiParam2 = csi.getSigned(csi.csiParam2);
  return kOk;
}
