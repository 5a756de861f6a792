#include <cstdio>

#include "frame/log.hpp"
#include "frame/record_buffer.hpp"
#include "frame/status.hpp"
#include "platform/device.h"
#include "platform/device.hpp"
#include "platform/host.h"
#include "pmapi/hardwareinfo.h"

using namespace pm;

static constexpr char kSourceTag[] = "object_nexumd_hardwareinfo_pmapi.c";

namespace {

constexpr char kProcessors[][8] = {"K10", "K20", "K20S", "K10S", "K30"};
constexpr int32_t kProcessorCount = sizeof kProcessors / sizeof kProcessors[0];

bool readProcessor(char (&cpuType)[8]) {
  int32_t type = 0;
  if (GetCpuType(&type) != kOk) {
    printf("GetCpuType ERROR!! cputype=%d\n", type);
    return false;
  }
  if (type < 1 || type > kProcessorCount) {
    printf("can not find current_cputype!! \n");
    return false;
  }
  copyText(cpuType, kProcessors[type - 1]);
  return true;
}

uint32_t readMemoryUsage() {
  MemInfo memory{};
  if (const int32_t status = GetMemInfo(&memory); status != kOk) {
    PM_LOG(Trail(kSourceTag, "nexumd_get_ramusage"), kError, status, "GetMemInfo fail");
    memory = {};
  }
  if (memory.total == 0) return 0;
  const uint32_t used = memory.total - memory.free;
  const uint32_t usage = 100 * (used - memory.buffers - memory.cached) / memory.total;
  return usage > 100 ? 100 * used / memory.total : usage;
}

}  // namespace

int32_t pm_ubus_get_hardware_info(HardwareInfoRecord *record) {
  const Trail log(kSourceTag);
  if (log.lacks(record)) return kFailure;
  if (!readProcessor(record->cpuType)) {
    printf("get cpuType failed! \n");
    return kFailure;
  }
  if (const int32_t status = GetFlashSizeTotal(&record->flashSize); status != kOk) {
    PM_LOG(log, kError, status, "get flashSize failed! \n");
    return kFailure;
  }
  if (const int32_t status = GetRamSizeTotal(&record->ramSize); status != kOk) {
    PM_LOG(log, kError, status, "get ramSize failed! \n");
    return kFailure;
  }
  RecordBuffer<CpuInfoRecord> processor;
  if (const int32_t status = pm_srm_get_update_cpu_info(kGatewayPath.text, &processor);
      status != kOk) {
    PM_LOG(log, kError, status, "pm_srm_get_update_cpu_info fail\n");
    return kFailure;
  }
  record->cpuUsage = processor.get(processor.cpuUsage);
  record->ramUsage = readMemoryUsage();
  return kOk;
}
