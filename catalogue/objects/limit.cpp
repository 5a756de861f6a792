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
            method("set", PM_FUNCTION(pm_ubus_nexumd_limit_set), RowsIn{"records", kMostDevices},
                   Count{})
                .saying("Limits devices. Rates \"0\" and \"0\" end a limit, LmtMode 1 binds it to "
                        "a period, URL keywords have \",\" between them.")
                .example(
                    R"({"records": [{"deviceMac": "A1B2C3D4E5F6", "TxRate": "100", "RxRate": "200",
                              "LimitUrl": "a.example,b.example", "LmtMode": 1, "LimitWeek": 127,
                              "LimitStartTime": 3600, "LimitEndTime": 7200}]})"),
            customMethod("get", "pm_ubus_nexumd_limit_get",
                         {rows<UbusDeviceLimit>(Direction::kOut, "records")}, getLimits)
                .saying("Lists the rate limits held in memory, each with its URL keywords."),
            method(PM_FUNCTION(device_limit_cfg_data), RecordIn{})
                .saying("Limits one device.")
                .example(R"({"deviceMac": "A1B2C3D4E5F7", "TxRate": "10", "RxRate": "20"})"),
            method(PM_FUNCTION(is_mac_exist), MacIn{"mac"}, TextOut{"identity"})
                .returning("exists")
                .example(R"({"mac": "a4:83:e7:2d:5e:05"})"),
            method(PM_FUNCTION(si_ubus_devLimit_register_timepolicy), In{"lmtMode"}, In{"instance"})
                .example(R"({"lmtMode": 1, "instance": 1792})"),
            method(PM_FUNCTION(si_ubus_lmturl_command), RecordIn{}, TextIn{"operation"})
                .saying("Adds (-A), inserts (-I) or deletes (-D) the rules of URL keywords.")
                .example(
                    R"({"mac": "a1:b2:c3:d4:e5:f6", "LimitURL": "ads.example", "operation": "-A"})"),
        },
}};

}  // namespace
}  // namespace catalogue
