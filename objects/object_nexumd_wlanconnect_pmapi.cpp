#include "frame/instance.hpp"
#include "frame/log.hpp"
#include "frame/status.hpp"
#include "objects/shared/wlan_scan.hpp"
#include "platform/wan.h"
#include "platform/wan.hpp"
#include "platform/wlan.hpp"
#include "pmapi/wlanconnect.h"

using namespace pm;

static constexpr char kSourceTag[] = "object_nexumd_wlanconnect_pmapi.c";

namespace {

constexpr uint32_t kScanSeconds = 10;
constexpr uint32_t kJoinSeconds = 10;
constexpr uint32_t kPassphraseSize = 63;

constexpr InstancePath kClient = InstancePath::constant("IGD.LD1.WLANApcli1");

/// Makes Wi-Fi the uplink. A platform that does not take over the new mode at once is only logged.
int32_t switchUplink(const Trail &log) {
  UpModeInfo before{};
  if (const int32_t status = pm_upmode_info_get(&before); status != kOk) {
    PM_LOG(log, kError, status, "[%s] pm_upmode_info_get error, iret = %d\n", log.function, status);
    return status;
  }
  ViewBuffer<NetworkingDeviceView> networking;
  networking.set(networking.uplinkMode, kWlanClientUplink);
  if (const int32_t status = networking.write(kGatewayPath); status != kOk) {
    PM_LOG(log, kError, status, "[%s] set DBVIEW_NETWORKING_DEV_INFO failed! iRet:%d\n",
           log.function, status);
    return status;
  }
  vcorDbSave();
  RecordBuffer<UpModeBlock> block;
  block.put(block.mode, before.mode);
  block.put(block.port, before.port);
  const UpModeInfo after{UP_MODE_WLAN, before.port};
  if (const int32_t status = pm_upmode_info_set(&before, &after, &block); status != kOk) {
    PM_LOG(log, kError, status, "error:pm_upmode_info_set\n");
  }
  return kOk;
}

/// Looks for the network in one band; `status` keeps the scan's or the list's result.
bool findNetwork(const Trail &log, uint32_t band, const char *ssid, int32_t &status,
                 HeardAccessPoint &found) {
  status = startScan(band);
  if (status != kOk) {
    PM_LOG(log, kError, status, "tScanPara fail=%d\n", status);
    return false;
  }
  waitSeconds(kScanSeconds);
  ApListBuffer list;
  status = listAccessPoints(band, list);
  if (status != kOk) {
    PM_LOG(log, kError, status, " pm_wlan_list_ap=%d ", status);
    return false;
  }
  PM_LOG(log, kInfo, 0, " radiotype %d , tWLANAPList.dwCount=%d ", band, list.get(list.count));
  const uint32_t heard = countOf(list);
  for (uint32_t i = 0; i < heard; ++i) {
    PM_LOG(log, kInfo, 0, "dwCount = %d, LINE =%d\n", i, __LINE__);
    found = accessPointAt(list, i);
    if (strcmp(found.ssid, ssid) == 0) return true;
  }
  return false;
}

int32_t selectNetwork(const Trail &log, uint32_t band, const HeardAccessPoint &network,
                      const char *passphrase) {
  RecordBuffer<WlanSelectRecord> selection;
  selection.set(selection.bssid, network.bssid);
  selection.set(selection.securityMode, static_cast<uint32_t>(network.securityMode));
  selection.set(selection.channel, static_cast<uint32_t>(network.channel));
  selection.set(selection.passphrase, passphrase);
  const int32_t status = pm_wlan_select_ap_bystamode(band, &selection);
  if (status != kOk) {
    PM_LOG(log, kError, status, "pm_wlan_select_ap_bystamode fail=%d\n", status);
  }
  return status;
}

int32_t recordClient(const Trail &log) {
  ViewBuffer<WlanClientView> client;
  client.set(client.clientFlag1, 1);
  client.set(client.clientFlag2, 1);
  client.set(client.clientFlag3, 1);
  client.set(client.clientFlag4, 1);
  if (const int32_t status = client.write(kClient); status != kOk) {
    PM_LOG(log, kError, status, "Set DBVIEW_WLAN_APCLI error! line(%d)\n", __LINE__);
    return PM_STATUS_NOT_WRITTEN;
  }
  PM_LOG(log, kInfo, 0, "Find Uplink ssid and uplink success!!! line(%d)\n", __LINE__);
  return kOk;
}

}  // namespace

int32_t pm_ubus_wlanconnect_set(const WlanConnectRecord *record) {
  const Trail log = entered(kSourceTag);
  if (const int32_t status = switchUplink(log); status != kOk) return status;
  if (record == nullptr) {
    PM_LOG(log, kError, 0, "pm_ubus_wlanconnect_set_new para is null");
    return kNullRecord;
  }
  char ssid[sizeof record->ssid];
  copyText(ssid, record->ssid);
  char passphrase[kPassphraseSize];
  copyText(passphrase, record->pwd);

  int32_t status = kOk;
  HeardAccessPoint network = {};
  uint32_t band = kBand24G;
  while (band <= kBand5G && !findNetwork(log, band, ssid, status, network)) ++band;
  if (band > kBand5G) {
    PM_LOG(log, kError, status, "Cannot find Uplink ssid  line(%d)\n", __LINE__);
    return status;
  }
  if (status = selectNetwork(log, band, network, passphrase); status != kOk) return status;
  PM_LOG(log, kInfo, 0, "Find ssid!!! LINE =%d\n", __LINE__);
  waitSeconds(kJoinSeconds);
  return recordClient(log);
}
