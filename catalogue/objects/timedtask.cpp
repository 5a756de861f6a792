#include "pmapi/timedtask.h"

#include "catalogue/catalogue.hpp"

PM_RECORD(UbusWifiTimer, PM_FIELD(taskId), PM_FIELD(enable), PM_FIELD(weekMask), PM_FIELD(Action),
          PM_FIELD(timeOffset), PM_FIELD(timeOffset2).optional(), PM_FIELD(index).optional());
PM_RECORD(WeekdayList, PM_COUNTED(Weekday, nCnt));

namespace catalogue {

namespace {

/// As many tasks as both services together can hold.
constexpr uint32_t kMostTasks = 135;

const Entry kEntry{{
    .name = "timedtask",
    .source = "object_nexumd_timedtask_pmapi.c",
    .summary = "Weekly timer tasks: wake-up control (1) and Wi-Fi schedules (2)",
    .methods =
        {
            method("add", PM_FUNCTION(pm_ubus_nexumd_wifi_timer_add),
                   "Adds a task, in place of those with its id.", RecordIn{}),
            method("del", PM_FUNCTION(pm_ubus_nexumd_wifi_timer_del), "Deletes a task.",
                   In{"taskId"}),
            method("list", PM_FUNCTION(pm_ubus_nexumd_wifi_timer_list), "All tasks.",
                   RowsOut{"records", kMostTasks}, Count{}),
            method(PM_FUNCTION(si_deal_num_conv_weekday), "The days of a mask, Monday first.",
                   In{"weekMask"}, RecordOut{}),
        },
}};

}  // namespace
}  // namespace catalogue
