#include "frame/log.hpp"
#include "frame/record_buffer.hpp"
#include "frame/status.hpp"
#include "platform/wan.h"
#include "platform/wan.hpp"
#include "pmapi/workingmode.h"

using namespace pm;

static constexpr char kSourceTag[] = "object_nexumd_workingmode_pmapi.c";

namespace {

constexpr uint32_t kApplyNow = 1;

constexpr FixedWord kConnectionDefaults[] = {
    fixed(WorkingModeRecord::setting80, 1),    fixed(WorkingModeRecord::setting912, 1),
    fixed(WorkingModeRecord::setting1072, -1), fixed(WorkingModeRecord::setting1264, 0),
    fixed(WorkingModeRecord::mtu, 1492),       fixed(WorkingModeRecord::setting2100, 1),
    fixed(WorkingModeRecord::setting4068, 0),  fixed(WorkingModeRecord::ipv6Enable, 1),
    fixed(WorkingModeRecord::setting4132, 0),  fixed(WorkingModeRecord::setting4164, 0),
    fixed(WorkingModeRecord::setting4564, 1)};

}  // namespace

int32_t pm_ubus_workingmode_set(const UbusWorkingMode *record) {
  const Trail log(kSourceTag);
  PM_LOG(log, kInfo, 0, "now in function %s\n", log.function);
  if (log.lacks(record)) return kNullRecord;
  PM_LOG(log, kInfo, 0, "ubusworkingmode->workingMode:%d, ubusworkingmode->internetType:%d\n",
         record->workingMode, record->internetType);
  RecordBuffer<WorkingModeRecord> mode;
  mode.put(mode.workingMode, record->workingMode);
  mode.put(mode.internetType, record->internetType);
  mode.set(kConnectionDefaults);
  mode.set(mode.serviceList, WAN_SERVICE_INTERNET);
  mode.set(mode.addressingType, "DHCP");
  mode.set(mode.text4516, WAN_NO_LAN_BINDING);
  const int32_t status = pm_wanc_change_brg_route_mode(&mode, kApplyNow);
  if (status != kOk) {
    PM_LOG(log, kError, status, "call pm_wanc_change_brg_route_mode faild,ret=%d\n", status);
  }
  return status;
}
