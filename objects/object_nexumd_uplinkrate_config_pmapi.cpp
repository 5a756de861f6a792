#include "frame/log.hpp"
#include "frame/parse.hpp"
#include "frame/record_buffer.hpp"
#include "frame/status.hpp"
#include "platform/sampling.hpp"
#include "pmapi/uplinkrate_config.h"

using namespace pm;

static constexpr char kSourceTag[] = "object_nexumd_uplinkrate_config_pmapi.c";

int32_t pm_ubus_uplinkrate_config_set(const UplinkRateConfigRecord *record) {
  PM_LOG(kInfo, "now in function %s\n", __func__);
  if (record == nullptr) {
    PM_FAIL(0, "pm_ubus_uplinkrate_config_set para is null");
    return kNullRecord;
  }
  const BoundedRequest<UplinkRateConfigRecord> bounded(*record);
  const UplinkRateConfigRecord &request = bounded.request;
  PM_LOG(kInfo,
         "ubusuplinkrate_config->interface:%s, ubusuplinkrate_config->reportInterval:%s, "
         "ubusuplinkrate_config->sampleInterval:%s\n",
         request.interface, request.reportInterval, request.sampleInterval);
  ViewBuffer<UplinkRateConfigView> config;
  config.set(config.interfaceName, request.interface);
  config.set(config.reportInterval, request.reportInterval);
  config.set(config.sampleInterval, request.sampleInterval);
  if (const int32_t status = config.writeAt(request.interface); status != kOk) {
    PM_FAIL(status, "[%s] dbsetview fail(%d)\r\n", __func__, status);
    return kFailure;
  }
  return kOk;
}
