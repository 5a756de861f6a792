#include <cstdio>
#include <cstdlib>

#include "frame/instance.hpp"
#include "frame/log.hpp"
#include "frame/proxy.hpp"
#include "frame/record_buffer.hpp"
#include "frame/status.hpp"
#include "platform/device.h"
#include "platform/records/log_config.hpp"
#include "platform/records/wan_ip_ext.hpp"
#include "platform/records/wan_ppp_ext.hpp"
#include "platform/records/wlan_config.hpp"
#include "platform/views/firewall_base.hpp"
#include "platform/views/networking_device.hpp"
#include "platform/views/wan_connection.hpp"
#include "platform/views/wan_ip_connection.hpp"
#include "platform/views/wan_ppp_connection.hpp"
#include "platform/views/wlan_config.hpp"
#include "platform/wan.h"
#include "platform/wlan.h"
#include "pmapi/control.h"

using namespace pm;
using platform::LogConfigRecord;
using platform::NetworkingDeviceView;
using platform::WanIpConnectionView;
using platform::WanIpExtRecord;
using platform::WanPppConnectionView;
using platform::WanPppExtRecord;

static constexpr char kSourceTag[] = "object_nexumd_control_pmapi.c";

namespace {

enum ControlType { kRestartGateway = 1, kRestart24G = 2, kRestart5G = 3 };

constexpr uint32_t kRestoreKind = 5;

int32_t restartRadio(const LogOrigin &origin, const char *ssidInstance) {
  RecordBuffer<WlanConfigRecord> config;
  config.set(config.restart, 1);
  const InstancePath instance(ssidInstance);
  const int32_t status = pm_wlan_set_config(instance.text, &config);
  if (appliedOrUnchanged(status)) return kOk;
  PM_LOG_FOR(origin, kError, status, "wifi channel restart failed,iRet = %d \n", status);
  return kFailure;
}

}  // namespace

int32_t pm_ubus_control_set(int32_t type) {
  switch (type) {
    case kRestartGateway:
      return pm_dev_restart(PLATFORM_RESTART_BY_MANAGEMENT);
    case kRestart24G:
      return restartRadio(PM_ORIGIN, kFirst24GSsid);
    case kRestart5G:
      return restartRadio(PM_ORIGIN, kFirst5GSsid);
    default:
      PM_FAIL(0, "reboot controlType is not 1 2 or 3\n");
      return kFailure;
  }
}

int32_t pm_ubus_set_locknet(uint32_t value) {
  PM_LOG(kInfo, "now in pm_ubus_set_locknet\n");
  return sendEvent(PM_ORIGIN, CTSGW_EVENT_SET_LOCK, &value, sizeof value,
                   "ctSgw_ssend_to_proxy CTSGW_EVENT_SET_LOCK error!\n");
}

int32_t pm_ubus_set_kernelcount(uint32_t value) {
  PM_LOG(kInfo, "now in pm_ubus_set_kernelcount\n");
  return sendEvent(PM_ORIGIN, CTSGW_EVENT_SET_KERNELCOUNT, &value, sizeof value,
                   "ctSgw_ssend_to_proxy CTSGW_EVENT_SET_KERNELCOUNT error!\n");
}

int32_t pm_ubus_set_hwnetClean(void) {
  PM_LOG(kInfo, "now in pm_ubus_set_hwnetClean\n");
  return sendEvent(PM_ORIGIN, CTSGW_EVENT_CLEAN_HWNAT, nullptr, 0,
                   "ctSgw_ssend_to_proxy CTSGW_EVENT_CLEAN_HWNAT error!\n");
}

int32_t pm_ubus_set_pmfctrl(const uint32_t *value) {
  PM_ENTER();
  if (value == nullptr) {
    PM_FAIL(0, "pm_ubus_set_pmfctrl para is null");
    return kNullRecord;
  }
  PM_LOG(kInfo, "Set pmfctrl:%d\n", *value);
  const InstancePath radio24G(kFirst24GSsid);
  if (const int32_t status = pm_wlan_set_pmf(radio24G.text, *value); status != kOk) {
    PM_FAIL(status, "call pm_wlan_set_pmf 2G faild,iRet=%d\n", status);
    return kFailure;
  }
  const InstancePath radio5G(kFirst5GSsid);
  if (const int32_t status = pm_wlan_set_pmf(radio5G.text, *value); status != kOk) {
    PM_FAIL(status, "call pm_wlan_set_pmf 5G faild,iRet=%d\n", status);
    return kFailure;
  }
  return kOk;
}

int32_t pm_ubus_get_pmfctrl(uint32_t *value) {
  PM_ENTER();
  if (value == nullptr) {
    PM_FAIL(0, "pm_ubus_get_pmfctrl para is null");
    return kNullRecord;
  }
  PM_LOG(kInfo, "Get pmfctrl:%d\n", *value);
  ViewBuffer<platform::WlanConfigView> ssid;
  if (const int32_t status = ssid.read(kFirst24GSsid); status != kOk) {
    PM_FAIL(status, "In %s, line%d vcorDbGetView failed!\n", __func__, __LINE__);
    return status;
  }
  const uint32_t pmf24G = ssid.get(ssid.pmf);
  ssid.reset();
  if (const int32_t status = ssid.read(kFirst5GSsid); status != kOk) {
    PM_FAIL(status, "In %s, line%d vcorDbGetView failed!\n", __func__, __LINE__);
    return status;
  }
  if (ssid.get(ssid.pmf) != pmf24G) {
    PM_FAIL(0, "WLAN1 and WLAN5 not same !\n");
    return kOk;
  }
  *value = pmf24G;
  return kOk;
}

namespace {

constexpr uint32_t kProcTextSize = 8;

/// Reads the first seven characters of a file's first line. A file that can be opened but not read
/// leaves the text as it is and still counts as read.
int32_t GetStrFromFile(const char *path, char (&text)[kProcTextSize]) {
  FILE *file = fopen(path, "r");
  if (file == nullptr) {
    PM_FAIL(0, "Open %s fail\n", path);
    return kFailure;
  }
  char line[kProcTextSize] = {};
  if (fgets(line, sizeof line, file) == nullptr) {
    PM_FAIL(0, "fgets %s fail\n", path);
  } else {
    memcpy(text, line, sizeof line);
  }
  fclose(file);
  return kOk;
}

/// Reads the number in a file; false, and a line, when there is no such file.
bool readNumber(const LogOrigin &origin, const char *path, int32_t &number) {
  char text[kProcTextSize] = {};
  if (GetStrFromFile(path, text) != kOk) {
    PM_LOG_FOR(origin, kError, kFailure, "GetStrFromProcFile error!\n");
    return false;
  }
  number = atoi(text);
  return true;
}

}  // namespace

int32_t pm_ubus_get_kernelcount(int32_t *count) {
  PM_LOG(kInfo, "now in pm_ubus_get_kernelcount\n");
  if (count == nullptr) return kFailure;
  int32_t enabled = 0;
  if (!readNumber(PM_ORIGIN, "/proc/ffe/hff_enable", enabled)) return kFailure;
  if (enabled == 0) {
    *count = -1;
    return kOk;
  }
  if (enabled != 1) {
    PM_FAIL(0, "hff_enable parameter error!\n");
    return kFailure;
  }
  return readNumber(PM_ORIGIN, "/proc/ffe/hff_skip_num", *count) ? kOk : kFailure;
}

int32_t pm_ubus_lockstatus_get(uint32_t *status) {
  ViewBuffer<platform::FirewallBaseView> firewall;
  const int32_t result = firewall.read("IGD.FWBASE");
  if (result == kOk) *status = firewall.get(firewall.lockStatus);
  return result;
}

int32_t pm_ubus_dev_restore_special(uint32_t /*kind*/, uint32_t a, uint32_t b, uint32_t c) {
  return pm_dev_restore_special(kRestoreKind, a, b, c);
}

int32_t pm_ubus_led_control(uint32_t a, uint32_t b, uint32_t c, uint32_t d) {
  return pm_pdt_ctl_leds(a, b, c, d);
}

int32_t pm_ubus_led_get(uint32_t a, uint32_t b, uint32_t c, uint32_t d) {
  return pm_pdt_get_leds_status(a, b, c, d);
}

namespace {

constexpr uint32_t kRouterMode = 1;

enum AccessMode : uint32_t { kStaticIp = 1, kPpp = 2 };

/// Room for a WAN connection's path as the networking-device view holds it.
constexpr uint32_t kWanPathSize = 128;

constexpr FixedWord kPppDefaults[] = {
    fixed(WanPppExtRecord::setting28, 1),    fixed(WanPppExtRecord::setting860, 1),
    fixed(WanPppExtRecord::setting1020, -1), fixed(WanPppExtRecord::setting1212, 0),
    fixed(WanPppExtRecord::setting1984, 0),  fixed(WanPppExtRecord::setting3784, 3),
    fixed(WanPppExtRecord::setting3848, 7),  fixed(WanPppExtRecord::setting3880, 1),
    fixed(WanPppExtRecord::setting4140, 7),  fixed(WanPppExtRecord::setting4304, 7),
    fixed(WanPppExtRecord::setting4412, 1),  fixed(WanPppExtRecord::setting4444, 3),
    fixed(WanPppExtRecord::setting5476, 0),  fixed(WanPppExtRecord::ipv6Enable, 1),
    fixed(WanPppExtRecord::setting5540, 0),  fixed(WanPppExtRecord::setting5572, 0),
    fixed(WanPppExtRecord::setting5972, 1)};

constexpr CarriedWord kPppCarried[] = {
    carried(WanPppConnectionView::setting484, WanPppExtRecord::setting1920),
    carried(WanPppConnectionView::setting324, WanPppExtRecord::setting2016),
    carried(WanPppConnectionView::setting1220, WanPppExtRecord::setting2144)};

constexpr FixedWord kIpDefaults[] = {
    fixed(WanIpExtRecord::setting28, 1),    fixed(WanIpExtRecord::setting860, 1),
    fixed(WanIpExtRecord::setting1020, -1), fixed(WanIpExtRecord::setting1212, 0),
    fixed(WanIpExtRecord::setting2048, 3),  fixed(WanIpExtRecord::setting2464, 7),
    fixed(WanIpExtRecord::setting2496, 1),  fixed(WanIpExtRecord::setting2756, 7),
    fixed(WanIpExtRecord::setting2920, 7),  fixed(WanIpExtRecord::setting3028, 1),
    fixed(WanIpExtRecord::setting3060, 3),  fixed(WanIpExtRecord::setting4016, 0),
    fixed(WanIpExtRecord::ipv6Enable, 1),   fixed(WanIpExtRecord::setting4080, 0),
    fixed(WanIpExtRecord::setting4112, 0),  fixed(WanIpExtRecord::setting4512, 1)};

constexpr CarriedWord kIpCarried[] = {
    carried(WanIpConnectionView::setting196, WanIpExtRecord::setting1760),
    carried(WanIpConnectionView::setting388, WanIpExtRecord::setting1792)};

constexpr CarriedWord kStaticAddressing[] = {
    carried(WanIpConnectionView::staticAddressing1, WanIpExtRecord::staticAddressing1),
    carried(WanIpConnectionView::staticAddressing2, WanIpExtRecord::staticAddressing2),
    carried(WanIpConnectionView::staticAddressing3, WanIpExtRecord::staticAddressing3),
    carried(WanIpConnectionView::staticAddressing4, WanIpExtRecord::staticAddressing4),
    carried(WanIpConnectionView::staticAddressing5, WanIpExtRecord::staticAddressing5),
    carried(WanIpConnectionView::staticAddressing6, WanIpExtRecord::staticAddressing6)};

constexpr char kInternetService[] = "INTERNET";
constexpr char kNoLanBinding[] = "000000000000";

int32_t clearConnections(const LogOrigin &origin) {
  const int32_t status = si_ifsadapt_clear_wanc();
  if (status == kOk) return kOk;
  PM_LOG_FOR(origin, kError, status, "[%s] si_ifsadapt_clear_wanc iRet=%d\n", origin.function,
             status);
  return kFailure;
}

int32_t rewritePpp(const LogOrigin &origin, const char *path) {
  ViewBuffer<WanPppConnectionView> ppp;
  if (const int32_t status = ppp.read(path); status != kOk) {
    PM_LOG_FOR(origin, kError, status, "getdbview wancppp error, iRet is %d\n", status);
    return status;
  }
  if (clearConnections(origin) != kOk) return kFailure;

  RecordBuffer<WanPppExtRecord> connection;
  connection.set(kPppDefaults);
  connection.carry(ppp.bytes, kPppCarried);
  connection.set(connection.serviceList, kInternetService);
  connection.set(connection.userName, ppp.text(ppp.userName));
  connection.set(connection.password, ppp.text(ppp.password));
  connection.set(connection.text5924, kNoLanBinding);
  char instance[kWanPathSize] = {};
  const int32_t status = pm_e8_wanc_set_comm_ppp_ext(instance, connection.bytes);
  if (appliedOrUnchanged(status)) return kOk;
  PM_LOG_FOR(origin, kError, status, "[%s] pm_e8_wanc_set_comm_ppp_ext failed! iret:%d\n",
             origin.function, status);
  return status;
}

int32_t rewriteIp(const LogOrigin &origin, const char *path, bool isStatic) {
  ViewBuffer<WanIpConnectionView> ip;
  if (const int32_t status = ip.read(path); status != kOk) {
    PM_LOG_FOR(origin, kError, status, "getdbview wancip error, iRet is %d\n", status);
    return status;
  }
  if (clearConnections(origin) != kOk) return kFailure;

  RecordBuffer<WanIpExtRecord> connection;
  connection.set(kIpDefaults);
  connection.carry(ip.bytes, kIpCarried);
  if (isStatic) connection.carry(ip.bytes, kStaticAddressing);
  connection.set(connection.serviceList, kInternetService);
  connection.set(connection.text4464, kNoLanBinding);
  char instance[kWanPathSize] = {};
  const int32_t status = pm_e8_wanc_set_comm_ip_ext(instance, connection.bytes);
  if (appliedOrUnchanged(status)) return kOk;
  PM_LOG_FOR(origin, kError, status, "[%s] pm_e8_wanc_set_comm_ip_ext failed! iRet:%d\n",
             origin.function, status);
  return status;
}

/// Makes the Internet connection carry IPv6.
int32_t rewriteConnection(const LogOrigin &origin, ViewBuffer<NetworkingDeviceView> &networking) {
  char path[kWanPathSize] = {};
  copyText(path, networking.text(networking.wanInstance));
  {
    ViewBuffer<platform::WanConnectionView> connection;
    if (const int32_t status = connection.read(path); status != kOk) {
      PM_LOG_FOR(origin, kError, status, "getdbview wanc error, iRet is %d\n", status);
      return status;
    }
  }
  const uint32_t kind = networking.get(networking.accessMode);
  return kind == kPpp ? rewritePpp(origin, path) : rewriteIp(origin, path, kind == kStaticIp);
}

}  // namespace

int32_t pm_ubus_ipv6enable_get(uint32_t *enable) {
  ViewBuffer<NetworkingDeviceView> networking;
  if (const int32_t status = networking.read("IGD"); status != kOk) {
    PM_FAIL(status, "getdbview networkingdevinfo error, iRet is %d\n", status);
    return status;
  }
  *enable = networking.get(networking.ipv6Enable);
  return kOk;
}

int32_t pm_ubus_ipv6enable_set(uint32_t enable) {
  PM_ENTER();
  ViewBuffer<NetworkingDeviceView> networking;
  if (const int32_t status = networking.read("IGD"); status != kOk) {
    PM_FAIL(status, "getdbview networkingdevinfo error, iRet is %d\n", status);
    return status;
  }
  if (enable == 1 && networking.get(networking.workingMode) == kRouterMode) {
    if (const int32_t status = rewriteConnection(PM_ORIGIN, networking); status != kOk) {
      return status;
    }
  }
  networking.set(networking.ipv6Enable, enable);
  if (const int32_t status = networking.write("IGD"); status != kOk) {
    PM_FAIL(status, "setdbview networkingdevinfo error, iRet is %d\n", status);
    return status;
  }
  return kOk;
}

namespace {

constexpr uint32_t kUnknownLevel = UINT32_MAX;

uint32_t platformLevel(uint32_t index) {
  switch (index) {
    case 0:
    case 3:
      return 7;
    case 1:
      return 6;
    case 2:
      return 3;
    default:
      return 4;
  }
}

/// Not the inverse: what index 0 stores reads back as 3.
uint32_t levelIndex(uint32_t level) {
  switch (level) {
    case 7:
      return 3;
    case 6:
      return 1;
    case 3:
      return 2;
    default:
      return kUnknownLevel;
  }
}

int32_t announceLogSettings(const LogOrigin &origin, uint32_t logParam) {
  if (logParam != 0) {
    const int32_t status =
        ASEND(LOG_MGR_SET_LOGDISABLE, &logParam, sizeof logParam, MANAGER_MODULE_LOG);
    if (status != kOk) PM_LOG_FOR(origin, kError, status, "ASEND set logdisable error!\n");
    return status;
  }
  const int32_t status = ASEND(LOG_MGR_CHANGE_LOGSIZE, nullptr, 0, MANAGER_MODULE_LOG);
  if (status != kOk) PM_LOG_FOR(origin, kError, status, "ASEND change logsize error!\n");
  return status;
}

}  // namespace

int32_t pm_ubus_set_devlogstats(const DevLogStats *record) {
  PM_ENTER();
  if (record == nullptr) {
    PM_FAIL(0, "devlogstats is NULL!\n");
    return kFailure;
  }
  RecordBuffer<LogConfigRecord> config;
  if (record->logEnable < 2) config.set(config.logEnable, record->logEnable);
  config.set(config.logLevel, platformLevel(record->logLevel));
  config.set(config.logParam, record->logParam);
  if (const int32_t status = pm_log_set_config(config.bytes); status != kOk) {
    if (status == PLATFORM_NOTHING_CHANGED) PM_FAIL(status, "LogParameter is not change!\n");
    PM_FAIL(status, "set pm_log_set_config error,iRet = %d!\n", status);
    return status;
  }
  return announceLogSettings(PM_ORIGIN, record->logParam);
}

int32_t pm_ubus_logstats_get(DevLogStats *record) {
  PM_ENTER();
  if (record == nullptr) {
    PM_FAIL(0, "devlogstats is NULL!\n");
    return kFailure;
  }
  RecordBuffer<LogConfigRecord> config;
  if (const int32_t status = pm_log_get_config(config.bytes); status != kOk) {
    PM_FAIL(status, "pm_log_get_config failed!\n");
    return kFailure;
  }
  record->logEnable = config.get(config.logEnable);
  record->logLevel = levelIndex(config.get(config.logLevel));
  record->logParam = config.get(config.logParam);
  return kOk;
}
