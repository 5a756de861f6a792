#include "frame/log.hpp"
#include "frame/parse.hpp"
#include "frame/record_buffer.hpp"
#include "frame/status.hpp"
#include "platform/sampling.hpp"
#include "pmapi/uplinkrate_config.h"

using namespace pm;

static constexpr char kSourceTag[] = "object_nexumd_uplinkrate_config_pmapi.c";

int32_t pm_ubus_uplinkrate_config_set(const UplinkRateConfigRecord *record) {
  const Trail log(kSourceTag);
  PM_LOG(log, kInfo, 0, "now in function %s\n", log.function);
  if (log.lacks(record)) return kNullRecord;
  const BoundedRequest<UplinkRateConfigRecord> bounded(*record);
  const UplinkRateConfigRecord &request = bounded.request;
  PM_LOG(log, kInfo, 0,
         "ubusuplinkrate_config->interface:%s, ubusuplinkrate_config->reportInterval:%s, "
         "ubusuplinkrate_config->sampleInterval:%s\n",
         request.interface, request.reportInterval, request.sampleInterval);
  ViewBuffer<UplinkRateConfigView> config;
  config.set(config.interfaceName, request.interface);
  config.set(config.reportInterval, request.reportInterval);
  config.set(config.sampleInterval, request.sampleInterval);
  if (const int32_t status = config.writeAt(request.interface); status != kOk) {
    PM_LOG(log, kError, status, "[%s] dbsetview fail(%d)\r\n", log.function, status);
    return kFailure;
  }
  return kOk;
}
