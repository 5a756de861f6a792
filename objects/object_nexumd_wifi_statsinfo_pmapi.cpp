#include "frame/codes.hpp"
#include "frame/getter.hpp"
#include "frame/log.hpp"
#include "frame/record_buffer.hpp"
#include "frame/status.hpp"
#include "platform/wlan.hpp"
#include "pmapi/wifi_statsinfo.h"

using namespace pm;

static constexpr char kSourceTag[] = "object_nexumd_wifi_statsinfo_pmapi.c";

namespace {

int32_t checked(const Trail &log, int32_t status) {
  return log.readResult(status) == kOk ? kOk : kFailure;
}

/// The driver counts bytes in 64 bits, packets and what went wrong in 32.
template <class CounterOrWord>
int32_t getCounter(const Trail &log, const char *instance, CounterOrWord place, uint64_t *out) {
  if (out == nullptr) return kFailure;
  RecordBuffer<WlanDriverRecord> driver;
  if (checked(log, pm_wlan_get_config_driver(instance, &driver)) != kOk) return kFailure;
  *out = driver.get(place);
  return kOk;
}

}  // namespace

int32_t ubus_getRadio(const char *instance, char *out) {
  if (out == nullptr) return kFailure;
  RecordBuffer<WlanConfigRecord> config;
  if (checked(Trail(kSourceTag), pm_wlan_get_config(instance, &config)) != kOk) return kFailure;
  const char *band = nameOf(kBands, config.get(config.band));
  if (band != nullptr) copyExact(out, band, kGetterTextSize - 1);
  return kOk;
}

int32_t ubus_getSsid(const char *instance, char *out) {
  if (out == nullptr) return kFailure;
  RecordBuffer<WlanConfigRecord> config;
  if (checked(Trail(kSourceTag), pm_wlan_get_config(instance, &config)) != kOk) return kFailure;
  copyExact(out, config.text(config.ssid), kGetterTextSize - 1);
  return kOk;
}

int32_t ubus_getTotalBytesSent(const char *instance, uint64_t *out) {
  return getCounter(Trail(kSourceTag), instance, CounterPlace(WlanDriverRecord::totalBytesSent),
                    out);
}

int32_t ubus_getTotalBytesReceived(const char *instance, uint64_t *out) {
  return getCounter(Trail(kSourceTag), instance, CounterPlace(WlanDriverRecord::totalBytesReceived),
                    out);
}

int32_t ubus_getTotalPacketsSent(const char *instance, uint64_t *out) {
  return getCounter(Trail(kSourceTag), instance, WordPlace(WlanDriverRecord::totalPacketsSent),
                    out);
}

int32_t ubus_getTotalPacketsReceived(const char *instance, uint64_t *out) {
  return getCounter(Trail(kSourceTag), instance, WordPlace(WlanDriverRecord::totalPacketsReceived),
                    out);
}

int32_t ubus_getErrorsSent(const char *instance, uint64_t *out) {
  return getCounter(Trail(kSourceTag), instance, WordPlace(WlanDriverRecord::errorsSent), out);
}

int32_t ubus_getErrorsReceived(const char *instance, uint64_t *out) {
  return getCounter(Trail(kSourceTag), instance, WordPlace(WlanDriverRecord::errorsReceived), out);
}

int32_t ubus_getDiscardPacketsSent(const char *instance, uint64_t *out) {
  return getCounter(Trail(kSourceTag), instance, WordPlace(WlanDriverRecord::discardPacketsSent),
                    out);
}

int32_t ubus_getDiscardPacketsReceived(const char *instance, uint64_t *out) {
  return getCounter(Trail(kSourceTag), instance,
                    WordPlace(WlanDriverRecord::discardPacketsReceived), out);
}

int32_t pm_ubus_get_wifi_statsinfo(const char *instance, WifiStatsRecord *record) {
  const Trail log = entered(kSourceTag);
  if (log.lacks(record)) return kFailure;
  fill(record->radio, ubus_getRadio, instance);
  fill(record->ssid, ubus_getSsid, instance);
  fill(record->totalBytesSent, ubus_getTotalBytesSent, instance);
  fill(record->totalBytesReceived, ubus_getTotalBytesReceived, instance);
  fill(record->totalPacketsSent, ubus_getTotalPacketsSent, instance);
  fill(record->totalPacketsReceived, ubus_getTotalPacketsReceived, instance);
  fill(record->errorsSent, ubus_getErrorsSent, instance);
  fill(record->errorsReceived, ubus_getErrorsReceived, instance);
  fill(record->discardPacketsSent, ubus_getDiscardPacketsSent, instance);
  fill(record->discardPacketsReceived, ubus_getDiscardPacketsReceived, instance);
  return kOk;
}
