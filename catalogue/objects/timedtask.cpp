#include "pmapi/timedtask.h"

#include "catalogue/catalogue.hpp"

PM_RECORD(UbusWifiTimer, PM_FIELD(taskId), PM_FIELD(enable), PM_FIELD(weekMask), PM_FIELD(Action),
          PM_FIELD(timeOffset), PM_FIELD(timeOffset2).optional(), PM_FIELD(index).optional());
PM_RECORD(WeekdayList, PM_COUNTED(Weekday, nCnt));

namespace catalogue {

namespace {

/// As many tasks as both services together can hold.
constexpr uint32_t kMostTasks = 135;

constexpr char kSchedule[] = R"({"taskId": 1, "enable": 1, "weekMask": 62, "Action": 2,
    "timeOffset": 82800, "timeOffset2": 21600, "index": 1})";

const Entry kEntry{{
    .name = "timedtask",
    .source = "object_nexumd_timedtask_pmapi.c",
    .summary = "Weekly timer tasks: wake-up control (1) and Wi-Fi schedules (2)",
    .methods =
        {
            method("add", PM_FUNCTION(pm_ubus_nexumd_wifi_timer_add), RecordIn{})
                .saying("Adds a task, in place of those with its id.")
                .example(kSchedule)
                .otherExample(
                    R"({"taskId": 2, "enable": 1, "weekMask": 62, "Action": 1, "timeOffset": 60})"),
            method("del", PM_FUNCTION(pm_ubus_nexumd_wifi_timer_del), In{"taskId"})
                .example(R"({"taskId": 1})")
                .after("timedtask add", kSchedule),
            method("list", PM_FUNCTION(pm_ubus_nexumd_wifi_timer_list),
                   RowsOut{"records", kMostTasks}, Count{})
                .after("timedtask add", kSchedule),
            method(PM_FUNCTION(si_deal_num_conv_weekday), In{"weekMask"}, RecordOut{})
                .example(R"({"weekMask": 62})"),
        },
}};

}  // namespace
}  // namespace catalogue
