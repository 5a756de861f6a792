#include "frame/log.hpp"
#include "frame/record_buffer.hpp"
#include "frame/status.hpp"
#include "platform/views/uplink_rate_config.hpp"
#include "pmapi/uplinkrate_config.h"

using namespace pm;

static constexpr char kSourceTag[] = "object_nexumd_uplinkrate_config_pmapi.c";

int32_t pm_ubus_uplinkrate_config_set(const UplinkRateConfigRecord *record) {
  PM_LOG(kInfo, "now in function %s\n", __func__);
  if (record == nullptr) {
    PM_FAIL(0, "pm_ubus_uplinkrate_config_set para is null");
    return kNullRecord;
  }
  PM_LOG(kInfo,
         "ubusuplinkrate_config->interface:%s, ubusuplinkrate_config->reportInterval:%s, "
         "ubusuplinkrate_config->sampleInterval:%s\n",
         record->interface, record->reportInterval, record->sampleInterval);
  ViewBuffer<platform::UplinkRateConfigView> config;
  config.set(config.interfaceName, record->interface);
  config.set(config.reportInterval, record->reportInterval);
  config.set(config.sampleInterval, record->sampleInterval);
  if (const int32_t status = config.writeAt(record->interface); status != kOk) {
    PM_FAIL(status, "[%s] dbsetview fail(%d)\r\n", __func__, status);
    return kFailure;
  }
  return kOk;
}
