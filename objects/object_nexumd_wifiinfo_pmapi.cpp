#include "frame/codes.hpp"
#include "frame/getter.hpp"
#include "frame/log.hpp"
#include "frame/record_buffer.hpp"
#include "frame/status.hpp"
#include "objects/shared/wlan_instances.hpp"
#include "platform/wlan.hpp"
#include "pmapi/wifiinfo.h"

using namespace pm;

static constexpr char kSourceTag[] = "object_nexumd_wifiinfo_pmapi.c";

namespace {

constexpr uint32_t kKeyNameLimit = 30;

using WlanConfig = RecordBuffer<WlanConfigRecord>;

using WordReader = int32_t (*)(const Trail &log, int32_t radioIndex, WordPlace word,
                               uint32_t *value);

/// SSIDs are numbered from 1, the daemon's indices from 0.
InstancePath ssidAt(int32_t radioIndex) {
  return wlan::ssidInstance(static_cast<int32_t>(static_cast<uint32_t>(radioIndex) + 1));
}

int32_t readConfig(const Trail &log, const InstancePath &ssid, WlanConfig &config) {
  return log.readResult(pm_wlan_get_config(ssid.text, &config));
}

int32_t readConfigWord(const Trail &log, int32_t radioIndex, WordPlace word, uint32_t *value) {
  WlanConfig config;
  const int32_t status = readConfig(log, ssidAt(radioIndex), config);
  *value = config.get(word);
  return status;
}

int32_t readDriverWord(const Trail &log, int32_t radioIndex, WordPlace word, uint32_t *value) {
  // The driver's call takes a longer instance name than the others.
  char instance[64] = {};
  copyText(instance, ssidAt(radioIndex).text);
  RecordBuffer<WlanDriverRecord> driver;
  const int32_t status = log.readResult(pm_wlan_get_config_driver(instance, &driver));
  *value = driver.get(word);
  return status;
}

int32_t getNumber(const Trail &log, int32_t radioIndex, WordReader read, WordPlace word,
                  uint32_t *out) {
  if (out == nullptr) return kFailure;
  uint32_t value;
  if (read(log, radioIndex, word, &value) != kOk) return kFailure;
  *out = value;
  return kOk;
}

int32_t getDecimal(const Trail &log, int32_t radioIndex, WordReader read, WordPlace word,
                   char *out) {
  if (out == nullptr) return kFailure;
  uint32_t value;
  if (read(log, radioIndex, word, &value) != kOk) return kFailure;
  char text[kDecimalSize];
  printDecimal(text, value);
  copyExact(out, text, kDecimalSize);
  return kOk;
}

int32_t getFlag(const Trail &log, int32_t radioIndex, WordPlace word, uint32_t *out) {
  const int32_t status = getNumber(log, radioIndex, readConfigWord, word, out);
  if (status == kOk) *out = *out == 1 ? 1 : 0;
  return status;
}

int32_t getNamed(const Trail &log, int32_t radioIndex, WordPlace word, CodeTable names, char *out) {
  if (out == nullptr) return kFailure;
  uint32_t code;
  if (readConfigWord(log, radioIndex, word, &code) != kOk) return kFailure;
  if (const char *name = nameOf(names, code); name != nullptr) {
    copyExact(out, name, kGetterTextSize - 1);
  }
  return kOk;
}

int32_t getWepKey(const Trail &log, const InstancePath &ssid, uint32_t keyIndex, char *out) {
  const InstancePath instance = wlan::keyInstance(ssid.text, ".WEP", keyIndex, kKeyNameLimit);
  RecordBuffer<WlanWepRecord> wep;
  const int32_t status = pm_wlan_get_wep(instance.text, &wep);
  if (!appliedOrUnchanged(status)) {
    PM_LOG(log, kError, status, "pm_wlan_get_wep=%s fail=%d\n", instance.text, status);
    return PM_STATUS_WEP_KEY_UNREADABLE;
  }
  copyExact(out, wep.text(wep.key), kGetterTextSize - 1);
  return kOk;
}

int32_t getPassphrase(const Trail &log, const InstancePath &ssid, char *out) {
  const InstancePath instance = wlan::keyInstance(ssid.text, ".PSK", 1, kKeyNameLimit);
  RecordBuffer<WlanPskRecord> psk;
  const int32_t status = pm_wlan_get_psk(instance.text, &psk);
  if (!appliedOrUnchanged(status)) {
    PM_LOG(log, kError, status, "pm_wlan_set_psk=%s fail=%d\n", instance.text, status);
    return PM_STATUS_PASSPHRASE_UNREADABLE;
  }
  copyExact(out, psk.text(psk.passphrase), kGetterTextSize - 1);
  return kOk;
}

}  // namespace

int32_t ubus_get_radios_Enable(int32_t radioIndex, uint32_t *out) {
  return getFlag(Trail(kSourceTag), radioIndex, WlanConfigRecord::radioEnable, out);
}

int32_t ubus_get_radios_SSIDEnable(int32_t radioIndex, uint32_t *out) {
  return getFlag(Trail(kSourceTag), radioIndex, WlanConfigRecord::ssidEnable, out);
}

int32_t ubus_get_radios_transmitPower(int32_t radioIndex, char *out) {
  if (out == nullptr) return kFailure;
  if (radioIndex != 0 && radioIndex != 4) return kOk;
  const InstancePath instance = wlan::txPowerInstance(radioIndex == 0 ? kBand24G : kBand5G);
  RecordBuffer<WlanTxPowerRecord> power;
  if (Trail(kSourceTag).readResult(pm_wlan_get_txpower(instance.text, &power)) != kOk)
    return kFailure;
  copyExact(out, power.text(power.txPower), kGetterTextSize - 1);
  return kOk;
}

int32_t ubus_get_radios_ssidStandard(int32_t radioIndex, char *out) {
  return getNamed(Trail(kSourceTag), radioIndex, WlanConfigRecord::standardCode, kStandards, out);
}

int32_t ubus_get_radios_noiseLevel(int32_t radioIndex, char *out) {
  return getDecimal(Trail(kSourceTag), radioIndex, readDriverWord, WlanDriverRecord::noiseLevel,
                    out);
}

int32_t ubus_get_radios_interferencePercent(int32_t radioIndex, uint32_t *out) {
  return getNumber(Trail(kSourceTag), radioIndex, readDriverWord,
                   WlanDriverRecord::interferencePercent, out);
}

int32_t ubus_get_radios_Channel(int32_t radioIndex, char *out) {
  return getDecimal(Trail(kSourceTag), radioIndex, readConfigWord, WlanConfigRecord::channel, out);
}

int32_t ubus_get_config_Radio(int32_t radioIndex, char *out) {
  return getNamed(Trail(kSourceTag), radioIndex, WlanConfigRecord::band, kBands, out);
}

int32_t ubus_get_config_Index(int32_t radioIndex, uint32_t *out) {
  if (out == nullptr) return kFailure;
  const InstancePath ssid = ssidAt(radioIndex);
  // The last character alone: SSID 10 is reported as 0.
  *out = static_cast<uint32_t>(ssid.text[strlen(ssid.text) - 1] - '0');
  return kOk;
}

int32_t ubus_get_config_Ssid(int32_t radioIndex, char *out) {
  if (out == nullptr) return kFailure;
  WlanConfig config;
  if (readConfig(Trail(kSourceTag), ssidAt(radioIndex), config) != kOk) return kFailure;
  copyExact(out, config.text(config.ssid), kGetterTextSize - 1);
  return kOk;
}

int32_t ubus_get_config_SecurityMode(int32_t radioIndex, char *out) {
  return getNamed(Trail(kSourceTag), radioIndex, WlanConfigRecord::securityMode, kSecurityModes,
                  out);
}

int32_t ubus_get_config_Pwd(int32_t radioIndex, char *out) {
  const Trail log(kSourceTag);
  if (out == nullptr) return kFailure;
  const InstancePath ssid = ssidAt(radioIndex);
  WlanConfig config;
  if (readConfig(log, ssid, config) != kOk) return kFailure;
  switch (config.get(config.securityMode)) {
    case kSecurityWep:
      return getWepKey(log, ssid, config.get(config.wepKeyIndex), out);
    case kSecurityNone:
    case kSecurityWpa:
    case kSecurityWpa2:
    case kSecurityWpaWpa2:
      return getPassphrase(log, ssid, out);
    default:
      // WPA3 and unknown modes report no key.
      return kOk;
  }
}

int32_t ubus_get_config_MaxAssociateNum(int32_t radioIndex, uint32_t *out) {
  return getNumber(Trail(kSourceTag), radioIndex, readConfigWord, WlanConfigRecord::maxAssociateNum,
                   out);
}

int32_t ubus_get_config_SsidAdvertisementEnable(int32_t radioIndex, uint32_t *out) {
  return getFlag(Trail(kSourceTag), radioIndex, WlanConfigRecord::ssidAdvertisementEnabled, out);
}

int32_t ubus_get_info_bandwidth(int32_t radioIndex, uint32_t *out) {
  if (out == nullptr) return kFailure;
  uint32_t code;
  const int32_t status =
      readConfigWord(Trail(kSourceTag), radioIndex, WlanConfigRecord::bandwidthCode, &code);
  if (status != kOk) return status;
  const Code *bandwidth = codeOf(kBandwidths, code);
  *out = bandwidth != nullptr ? bandwidth->daemonNumber : code;
  return kOk;
}

int32_t ubus_get_info_encrypt(int32_t radioIndex, uint32_t *out) {
  if (out == nullptr) return kFailure;
  WlanConfig config;
  if (const int32_t status = readConfig(Trail(kSourceTag), ssidAt(radioIndex), config);
      status != kOk) {
    return status;
  }
  const uint32_t mode = config.get(config.securityMode);
  if (mode == kSecurityNone || mode == kSecurityWep) {
    *out = 0;
    return kOk;
  }
  const uint32_t cipher =
      mode == kSecurityWpa2 ? config.get(config.wpa2Encryption) : config.get(config.wpaEncryption);
  if (const Code *code = codeOf(kCiphers, cipher); code != nullptr) *out = code->daemonNumber;
  return kOk;
}

uint32_t pm_ubus_get_wifi_info(int32_t radioIndex, WifiInfoRecord *record) {
  const Trail log = entered(kSourceTag);
  if (log.lacks(record)) return static_cast<uint32_t>(kFailure);
  fill(record->radio, ubus_get_config_Radio, radioIndex);
  fill(record->enable, ubus_get_radios_Enable, radioIndex);
  fill(record->transmitPower, ubus_get_radios_transmitPower, radioIndex);
  fill(record->standard, ubus_get_radios_ssidStandard, radioIndex);
  fill(record->noiseLevel, ubus_get_radios_noiseLevel, radioIndex);
  record->interferencePercent = 0;
  fill(record->channel, ubus_get_radios_Channel, radioIndex);
  fill(record->index, ubus_get_config_Index, radioIndex);
  fill(record->ssid, ubus_get_config_Ssid, radioIndex);
  fill(record->securityMode, ubus_get_config_SecurityMode, radioIndex);
  fill(record->pwd, ubus_get_config_Pwd, radioIndex);
  fill(record->maxAssociateNum, ubus_get_config_MaxAssociateNum, radioIndex);
  fill(record->ssidAdvertisementEnabled, ubus_get_config_SsidAdvertisementEnable, radioIndex);
  fill(record->ssidEnable, ubus_get_radios_SSIDEnable, radioIndex);
  fill(record->bandwidth, ubus_get_info_bandwidth, radioIndex);
  fill(record->encrypt, ubus_get_info_encrypt, radioIndex);
  return 0;
}
