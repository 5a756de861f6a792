#include <cstdio>

#include "frame/codes.hpp"
#include "frame/log.hpp"
#include "frame/parse.hpp"
#include "frame/record_buffer.hpp"
#include "frame/status.hpp"
#include "objects/shared/wlan_instances.hpp"
#include "platform/wlan.hpp"
#include "pmapi/wifiparameter.h"

using namespace pm;

static constexpr char kSourceTag[] = "object_nexumd_wifiparameter_pmapi.c";

namespace {

using WlanConfig = RecordBuffer<WlanConfigRecord>;

void logRequest(const Trail &log, const WifiParameterRecord &request) {
  PM_LOG(log, kInfo, 0, "ubuswifiparameter->radio:%s, ubuswifiparameter->encrypt:%d\n",
         request.radio, request.encrypt);
  PM_LOG(log, kInfo, 0, "ubuswifiparameter->index:%d, ubuswifiparameter->enable:%d\n",
         request.index, request.enable);
  PM_LOG(log, kInfo, 0,
         "ubuswifiparameter->ssid:%s, ubuswifiparameter->securityMode:%s, "
         "ubuswifiparameter->pwd:%s\n",
         request.ssid, request.securityMode, request.pwd);
  PM_LOG(log, kInfo, 0,
         "ubuswifiparameter->maxAssociateNum:%d, "
         "ubuswifiparameter->ssidAdvertisementEnabled:%d\n",
         request.maxAssociateNum, request.ssidAdvertisementEnabled);
}

uint32_t bandOf(const Trail &log, const char *radio) {
  const Code *band = codeNamed(kBands, radio);
  if (band == nullptr) PM_LOG(log, kError, 0, "ubuswifiparameter->radio error %s \r\n", radio);
  return band != nullptr ? band->value : kBand24G;
}

void printSecurity(const Code &mode) {
  const bool wpaAlone = mode.value == kSecurityWpa || mode.value == kSecurityWpa2;
  if (wpaAlone) {
    printf("ENTER securityMode %s \r\n", mode.name);
  } else {
    printf("ENTER securityMode  %s\r\n", mode.name);
  }
}

void setSecurity(WlanConfig &config, const Code &mode, uint32_t cipher) {
  config.set(config.securityMode, mode.value);
  switch (mode.value) {
    case kSecurityWep:
      config.set(config.wepKeyLength,
                 codeOf(kSecurityModes, mode.value) == &mode ? kWep64Bit : kWep128Bit);
      break;
    case kSecurityWpa:
      config.set(config.wpaEncryption, cipher);
      break;
    case kSecurityWpa2:
      config.set(config.wpa2Encryption, cipher);
      break;
    case kSecurityWpaWpa2:
      config.set(config.wpaEncryption, cipher);
      config.set(config.wpa2Encryption, cipher);
      break;
    case kSecurityWpa3:
    case kSecurityWpa2Wpa3:
      config.set(config.saeEnable, 1);
      config.set(config.saeProtection, 1);
      break;
    default:
      break;
  }
}

void applyRequest(const Trail &log, const WifiParameterRecord &request, WlanConfig &config) {
  const Code *cipher = codeNumbered(kCiphers, static_cast<uint32_t>(request.encrypt));
  config.set(config.band, bandOf(log, request.radio));
  config.set(config.ssidEnable, static_cast<uint32_t>(request.enable));
  config.set(config.ssid, request.ssid);
  config.set(config.maxAssociateNum, static_cast<uint32_t>(request.maxAssociateNum));
  config.set(config.ssidAdvertisementEnabled,
             static_cast<uint32_t>(request.ssidAdvertisementEnabled));
  if (const Code *mode = codeNamed(kSecurityModes, request.securityMode); mode != nullptr) {
    printSecurity(*mode);
    setSecurity(config, *mode, cipher != nullptr ? cipher->value : 0);
  }
}

void logKey(const Trail &log, WlanConfig &config, const char *key) {
  PM_LOG(log, kVerbose, 0, "tESSID:%s,tKeyPassphrase:%s", config.text(config.ssid), key);
}

int32_t writeWepKey(const Trail &log, const InstancePath &ssid, WlanConfig &config,
                    const char *key) {
  const InstancePath instance =
      wlan::keyInstance(ssid.text, ".WEP", config.get(config.wepKeyIndex));
  RecordBuffer<WlanWepRecord> wep;
  if (const int32_t status = pm_wlan_get_wep(instance.text, &wep); status != kOk) {
    PM_LOG(log, kError, status, "pm_wlan_get_wep=%s fail=%d\n", instance.text, status);
    return status;
  }
  wep.set(wep.key, key);
  if (const int32_t status = pm_wlan_set_wep(instance.text, &wep); !appliedOrUnchanged(status)) {
    printf("pm_wlan_set_wep=%s fail=%d\n", instance.text, status);
    return PM_STATUS_KEY_REFUSED;
  }
  logKey(log, config, wep.text(wep.key));
  return kOk;
}

int32_t writePassphrase(const Trail &log, const InstancePath &ssid, WlanConfig &config,
                        const char *passphrase) {
  const InstancePath instance = wlan::keyInstance(ssid.text, ".PSK", 1);
  RecordBuffer<WlanPskRecord> psk;
  if (const int32_t status = pm_wlan_get_psk(instance.text, &psk); status != kOk) {
    PM_LOG(log, kError, status, "pm_wlan_get_psk=%s fail=%d\n", instance.text, status);
    return status;
  }
  psk.set(psk.passphrase, passphrase);
  if (const int32_t status = pm_wlan_set_psk(instance.text, &psk); !appliedOrUnchanged(status)) {
    printf("pm_wlan_set_psk=%s fail=%d\n", instance.text, status);
    return PM_STATUS_KEY_REFUSED;
  }
  logKey(log, config, psk.text(psk.passphrase));
  return kOk;
}

/// An open network's key is written like any other, an empty one included.
int32_t writeKey(const Trail &log, const InstancePath &ssid, WlanConfig &config, const char *key) {
  switch (config.get(config.securityMode)) {
    case kSecurityWep:
      return writeWepKey(log, ssid, config, key);
    case kSecurityNone:
    case kSecurityWpa:
    case kSecurityWpa2:
    case kSecurityWpaWpa2:
    case kSecurityWpa3:
    case kSecurityWpa2Wpa3:
      return writePassphrase(log, ssid, config, key);
    default:
      return kOk;
  }
}

int32_t setParameters(const Trail &log, const WifiParameterRecord &request) {
  const InstancePath ssid = wlan::ssidInstance(request.index);
  PM_LOG(log, kVerbose, 0, "get szInstIdentity %s \r\n", ssid.text);

  WlanConfig config;
  if (const int32_t status = pm_wlan_get_config(ssid.text, &config); status != kOk) {
    PM_LOG(log, kError, status, "pm_wlan_get_config fail=%d\n", status);
    return status;
  }
  applyRequest(log, request, config);
  if (const int32_t status = pm_wlan_set_config(ssid.text, &config); !appliedOrUnchanged(status)) {
    PM_LOG(log, kError, status, "pm_wlan_set_config=%s fail=%d\n", ssid.text, status);
    return status;
  }
  return writeKey(log, ssid, config, request.pwd);
}

}  // namespace

uint32_t pm_ubus_wifiParameter_set(const WifiParameterRecord *record) {
  const Trail log(kSourceTag);
  PM_LOG(log, kInfo, 0, "now in function %s\n", log.function);
  if (log.lacks(record)) return static_cast<uint32_t>(kNullRecord);
  const BoundedRequest<WifiParameterRecord> bounded(*record);
  logRequest(log, bounded.request);
  return static_cast<uint32_t>(setParameters(log, bounded.request));
}

int32_t pm_ubus_wifiParameter_set_Multi(const WifiParameterRecord *records, int32_t count) {
  const Trail log(kSourceTag);
  PM_LOG(log, kInfo, 0, "enter pm_ubus_wifiParameter_set_Multi function! wifi_i = %d\n ", count);
  if (records == nullptr) return 0;
  for (int32_t i = 0; i < count; ++i) {
    PM_LOG(log, kInfo, 0, "i =%d..\n ", i);
    const auto status = static_cast<int32_t>(pm_ubus_wifiParameter_set(&records[i]));
    if (status != kOk) PM_LOG(log, kError, status, "[%s] set wifi parameter error\n", log.function);
  }
  return 0;
}
