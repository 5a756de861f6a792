#include "pmapi/limit.h"

#include "catalogue/catalogue.hpp"

PM_RECORD(UbusDeviceLimit, PM_FIELD(deviceMac), PM_FIELD(TxRate), PM_FIELD(RxRate),
          PM_FIELD(LimitUrl).optional(), PM_FIELD(LmtMode).optional(),
          PM_FIELD(LimitWeek).optional(), PM_FIELD(LimitStartTime).optional(),
          PM_FIELD(LimitEndTime).optional());
PM_RECORD(LmtUrlCfg, PM_FIELD(mac), PM_FIELD(LimitURL));

namespace catalogue {

namespace {

constexpr uint32_t kMostDevices = 256;

Parameter resultLimits(const char *name) {
  Parameter rows = resultRecord<UbusDeviceLimit>(name);
  rows.isRows = true;
  return rows;
}

/// The library asks for room for every node that it ever made.
int64_t getLimits(Call &call) {
  std::vector<UbusDeviceLimit> limits(g_ubus_devlmt_inst + 1);
  int32_t count = 0;
  const int32_t status = callExport(pm_ubus_nexumd_limit_get, limits.data(), &count);
  call.putRows("records", kShape<UbusDeviceLimit>, limits.data(), static_cast<uint32_t>(count));
  return status;
}

const Entry kEntry{{
    .name = "limit",
    .source = "object_nexumd_limit_pmapi.c",
    .summary = "Rate, time and URL limits per device; they live as long as the process",
    .methods =
        {
            method("set", PM_FUNCTION(pm_ubus_nexumd_limit_set),
                   "Limits devices. Rates \"0\" and \"0\" end a limit, LmtMode 1 binds it to a "
                   "period, URL keywords have \",\" between them.",
                   RowsIn{"records", kMostDevices}, Count{}),
            customMethod("get", "pm_ubus_nexumd_limit_get", "Lists the limits held in memory.",
                         {resultLimits("records")}, getLimits),
            method(PM_FUNCTION(device_limit_cfg_data), "Limits one device.", RecordIn{}),
            method(PM_FUNCTION(is_mac_exist), "Whether the platform limits a device.", MacIn{"mac"},
                   TextOut{"identity"})
                .returning("exists"),
            method(PM_FUNCTION(si_ubus_devLimit_register_timepolicy), "Registers a time policy.",
                   In{"lmtMode"}, In{"instance"}),
            method(PM_FUNCTION(si_ubus_lmturl_command),
                   "Adds (-A), inserts (-I) or deletes (-D) the rules of URL keywords.", RecordIn{},
                   TextIn{"operation"}),
        },
}};

}  // namespace
}  // namespace catalogue
