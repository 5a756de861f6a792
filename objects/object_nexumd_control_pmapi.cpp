#include <cstdio>

#include "frame/file.hpp"
#include "frame/instance.hpp"
#include "frame/log.hpp"
#include "frame/parse.hpp"
#include "frame/proxy.hpp"
#include "frame/record_buffer.hpp"
#include "frame/status.hpp"
#include "objects/shared/wan_rewriting.hpp"
#include "platform/device.h"
#include "platform/device.hpp"
#include "platform/firewall.hpp"
#include "platform/wlan.h"
#include "platform/wlan.hpp"
#include "pmapi/control.h"

using namespace pm;

static constexpr char kSourceTag[] = "object_nexumd_control_pmapi.c";

namespace {

constexpr InstancePath kFirewallBase = InstancePath::constant("IGD.FWBASE");

enum ControlType { kRestartGateway = 1, kRestart24G = 2, kRestart5G = 3 };

constexpr uint32_t kRestoreKind = 5;

int32_t restartRadio(const Trail &log, const InstancePath &instance) {
  RecordBuffer<WlanConfigRecord> config;
  config.set(config.restart, 1);
  const int32_t status = pm_wlan_set_config(instance.text, &config);
  if (appliedOrUnchanged(status)) return kOk;
  PM_LOG(log, kError, status, "wifi channel restart failed,iRet = %d \n", status);
  return kFailure;
}

}  // namespace

int32_t pm_ubus_control_set(int32_t type) {
  const Trail log(kSourceTag);
  switch (type) {
    case kRestartGateway:
      return pm_dev_restart(PLATFORM_RESTART_BY_MANAGEMENT);
    case kRestart24G:
      return restartRadio(log, kFirst24GSsid);
    case kRestart5G:
      return restartRadio(log, kFirst5GSsid);
    default:
      PM_LOG(log, kError, 0, "reboot controlType is not 1 2 or 3\n");
      return kFailure;
  }
}

int32_t pm_ubus_set_locknet(uint32_t value) {
  const Trail log = entered(kSourceTag);
  return sendEvent(log, CTSGW_EVENT_SET_LOCK, &value, sizeof value,
                   "ctSgw_ssend_to_proxy CTSGW_EVENT_SET_LOCK error!\n");
}

int32_t pm_ubus_set_kernelcount(uint32_t value) {
  const Trail log = entered(kSourceTag);
  return sendEvent(log, CTSGW_EVENT_SET_KERNELCOUNT, &value, sizeof value,
                   "ctSgw_ssend_to_proxy CTSGW_EVENT_SET_KERNELCOUNT error!\n");
}

int32_t pm_ubus_set_hwnetClean(void) {
  const Trail log = entered(kSourceTag);
  return sendEvent(log, CTSGW_EVENT_CLEAN_HWNAT, nullptr, 0,
                   "ctSgw_ssend_to_proxy CTSGW_EVENT_CLEAN_HWNAT error!\n");
}

int32_t pm_ubus_set_pmfctrl(const uint32_t *value) {
  const Trail log = entered(kSourceTag);
  if (log.lacks(value)) return kNullRecord;
  PM_LOG(log, kInfo, 0, "Set pmfctrl:%d\n", *value);
  if (const int32_t status = pm_wlan_set_pmf(kFirst24GSsid.text, *value); status != kOk) {
    PM_LOG(log, kError, status, "call pm_wlan_set_pmf 2G faild,iRet=%d\n", status);
    return kFailure;
  }
  if (const int32_t status = pm_wlan_set_pmf(kFirst5GSsid.text, *value); status != kOk) {
    PM_LOG(log, kError, status, "call pm_wlan_set_pmf 5G faild,iRet=%d\n", status);
    return kFailure;
  }
  return kOk;
}

int32_t pm_ubus_get_pmfctrl(uint32_t *value) {
  const Trail log = entered(kSourceTag);
  if (log.lacks(value)) return kNullRecord;
  PM_LOG(log, kInfo, 0, "Get pmfctrl:%d\n", *value);
  ViewBuffer<WlanConfigView> ssid;
  if (const int32_t status = ssid.read(kFirst24GSsid); status != kOk) {
    PM_LOG(log, kError, status, "In %s, line%d vcorDbGetView failed!\n", log.function, __LINE__);
    return status;
  }
  const uint32_t pmf24G = ssid.get(ssid.pmf);
  ssid.reset();
  if (const int32_t status = ssid.read(kFirst5GSsid); status != kOk) {
    PM_LOG(log, kError, status, "In %s, line%d vcorDbGetView failed!\n", log.function, __LINE__);
    return status;
  }
  if (ssid.get(ssid.pmf) != pmf24G) {
    PM_LOG(log, kError, 0, "WLAN1 and WLAN5 not same !\n");
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
  const Trail log(kSourceTag);
  FILE *file = openForReading(path);
  if (file == nullptr) {
    PM_LOG(log, kError, 0, "Open %s fail\n", path);
    return kFailure;
  }
  char line[kProcTextSize] = {};
  if (fgets(line, sizeof line, file) == nullptr) {
    PM_LOG(log, kError, 0, "fgets %s fail\n", path);
  } else {
    memcpy(text, line, sizeof line);
  }
  fclose(file);
  return kOk;
}

/// Reads the number in a file; false, and a line, when there is no such file.
bool readNumber(const Trail &log, const char *path, int32_t &number) {
  char text[kProcTextSize] = {};
  if (GetStrFromFile(path, text) != kOk) {
    PM_LOG(log, kError, kFailure, "GetStrFromProcFile error!\n");
    return false;
  }
  number = numberIn(text);
  return true;
}

}  // namespace

int32_t pm_ubus_get_kernelcount(int32_t *count) {
  const Trail log = entered(kSourceTag);
  if (count == nullptr) return kFailure;
  int32_t enabled = 0;
  if (!readNumber(log, "/proc/ffe/hff_enable", enabled)) return kFailure;
  if (enabled == 0) {
    *count = -1;
    return kOk;
  }
  if (enabled != 1) {
    PM_LOG(log, kError, 0, "hff_enable parameter error!\n");
    return kFailure;
  }
  return readNumber(log, "/proc/ffe/hff_skip_num", *count) ? kOk : kFailure;
}

int32_t pm_ubus_lockstatus_get(uint32_t *status) {
  ViewBuffer<FirewallBaseView> firewall;
  const int32_t result = firewall.read(kFirewallBase);
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

int32_t pm_ubus_ipv6enable_get(uint32_t *enable) {
  const Trail log(kSourceTag);
  NetworkingBuffer networking;
  if (const int32_t status = networking.read(kGatewayPath); status != kOk) {
    PM_LOG(log, kError, status, "getdbview networkingdevinfo error, iRet is %d\n", status);
    return status;
  }
  *enable = networking.get(networking.ipv6Enable);
  return kOk;
}

int32_t pm_ubus_ipv6enable_set(uint32_t enable) {
  const Trail log = entered(kSourceTag);
  NetworkingBuffer networking;
  if (const int32_t status = networking.read(kGatewayPath); status != kOk) {
    PM_LOG(log, kError, status, "getdbview networkingdevinfo error, iRet is %d\n", status);
    return status;
  }
  if (enable == 1 && networking.get(networking.workingMode) == kRouterMode) {
    if (const int32_t status = rewriteConnection(log, networking); status != kOk) {
      return status;
    }
  }
  networking.set(networking.ipv6Enable, enable);
  if (const int32_t status = networking.write(kGatewayPath); status != kOk) {
    PM_LOG(log, kError, status, "setdbview networkingdevinfo error, iRet is %d\n", status);
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

int32_t announceLogSettings(const Trail &log, uint32_t logParam) {
  if (logParam != 0) {
    const int32_t status =
        ASEND(LOG_MGR_SET_LOGDISABLE, &logParam, sizeof logParam, MANAGER_MODULE_LOG);
    if (status != kOk) PM_LOG(log, kError, status, "ASEND set logdisable error!\n");
    return status;
  }
  const int32_t status = ASEND(LOG_MGR_CHANGE_LOGSIZE, nullptr, 0, MANAGER_MODULE_LOG);
  if (status != kOk) PM_LOG(log, kError, status, "ASEND change logsize error!\n");
  return status;
}

}  // namespace

int32_t pm_ubus_set_devlogstats(const DevLogStats *record) {
  const Trail log = entered(kSourceTag);
  if (record == nullptr) {
    PM_LOG(log, kError, 0, "devlogstats is NULL!\n");
    return kFailure;
  }
  RecordBuffer<LogConfigRecord> config;
  if (record->logEnable < 2) config.set(config.logEnable, record->logEnable);
  config.set(config.logLevel, platformLevel(record->logLevel));
  config.set(config.logParam, record->logParam);
  if (const int32_t status = pm_log_set_config(&config); status != kOk) {
    if (status == PLATFORM_NOTHING_CHANGED) {
      PM_LOG(log, kError, status, "LogParameter is not change!\n");
    }
    PM_LOG(log, kError, status, "set pm_log_set_config error,iRet = %d!\n", status);
    return status;
  }
  return announceLogSettings(log, record->logParam);
}

int32_t pm_ubus_logstats_get(DevLogStats *record) {
  const Trail log = entered(kSourceTag);
  if (record == nullptr) {
    PM_LOG(log, kError, 0, "devlogstats is NULL!\n");
    return kFailure;
  }
  RecordBuffer<LogConfigRecord> config;
  if (const int32_t status = pm_log_get_config(&config); status != kOk) {
    PM_LOG(log, kError, status, "pm_log_get_config failed!\n");
    return kFailure;
  }
  record->logEnable = config.get(config.logEnable);
  record->logLevel = levelIndex(config.get(config.logLevel));
  record->logParam = config.get(config.logParam);
  return kOk;
}
