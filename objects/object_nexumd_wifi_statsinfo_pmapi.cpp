#include "frame/log.hpp"
#include "frame/record_buffer.hpp"
#include "frame/status.hpp"
#include "objects/wlan_tables.hpp"
#include "platform/wlan.hpp"
#include "pmapi/wifi_statsinfo.h"

using namespace pm;

static constexpr char kSourceTag[] = "object_nexumd_wifi_statsinfo_pmapi.c";

namespace {

using CounterGetter = int32_t (*)(const char *instance, uint64_t *out);

int32_t checked(const Trail &log, int32_t status) {
  return log.readResult(status) == kOk ? kOk : kFailure;
}

/// The driver counts bytes in 64 bits, packets and what went wrong in 32.
template <class InDriver>
int32_t getCounter(const Trail &log, const char *instance, uint32_t offset, uint64_t *out) {
  if (out == nullptr) return kFailure;
  RecordBuffer<WlanDriverRecord> driver;
  if (checked(log, pm_wlan_get_config_driver(instance, &driver)) != kOk) return kFailure;
  *out = loadAs<InDriver>(driver.bytes, offset);
  return kOk;
}

void fill(uint64_t &field, CounterGetter get, const char *instance) {
  uint64_t counter = 0;
  get(instance, &counter);
  field = counter;
}

}  // namespace

int32_t ubus_getRadio(const char *instance, char *out) {
  if (out == nullptr) return kFailure;
  RecordBuffer<WlanConfigRecord> config;
  if (checked(Trail(kSourceTag), pm_wlan_get_config(instance, &config)) != kOk) return kFailure;
  const char *band = wlan::bandText(config.get(config.band));
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
  return getCounter<uint64_t>(Trail(kSourceTag), instance, WlanDriverRecord::totalBytesSent.offset,
                              out);
}

int32_t ubus_getTotalBytesReceived(const char *instance, uint64_t *out) {
  return getCounter<uint64_t>(Trail(kSourceTag), instance,
                              WlanDriverRecord::totalBytesReceived.offset, out);
}

int32_t ubus_getTotalPacketsSent(const char *instance, uint64_t *out) {
  return getCounter<uint32_t>(Trail(kSourceTag), instance,
                              WlanDriverRecord::totalPacketsSent.offset, out);
}

int32_t ubus_getTotalPacketsReceived(const char *instance, uint64_t *out) {
  return getCounter<uint32_t>(Trail(kSourceTag), instance,
                              WlanDriverRecord::totalPacketsReceived.offset, out);
}

int32_t ubus_getErrorsSent(const char *instance, uint64_t *out) {
  return getCounter<uint32_t>(Trail(kSourceTag), instance, WlanDriverRecord::errorsSent.offset,
                              out);
}

int32_t ubus_getErrorsReceived(const char *instance, uint64_t *out) {
  return getCounter<uint32_t>(Trail(kSourceTag), instance, WlanDriverRecord::errorsReceived.offset,
                              out);
}

int32_t ubus_getDiscardPacketsSent(const char *instance, uint64_t *out) {
  return getCounter<uint32_t>(Trail(kSourceTag), instance,
                              WlanDriverRecord::discardPacketsSent.offset, out);
}

int32_t ubus_getDiscardPacketsReceived(const char *instance, uint64_t *out) {
  return getCounter<uint32_t>(Trail(kSourceTag), instance,
                              WlanDriverRecord::discardPacketsReceived.offset, out);
}

int32_t pm_ubus_get_wifi_statsinfo(const char *instance, WifiStatsRecord *record) {
  const Trail log = entered(kSourceTag);
  if (log.lacks(record)) return kFailure;
  fillText(record->radio, ubus_getRadio, instance);
  fillText(record->ssid, ubus_getSsid, instance);
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
