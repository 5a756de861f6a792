#include "pmapi/timedtask.h"

#include <vector>

#include "boundary/status.hpp"
#include "gateway/habits.hpp"
#include "gateway/timers.hpp"
#include "tests/support/gateway_test.hpp"

namespace gateway {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

constexpr UbusWifiTimer kWakeUp = {7, 1, 0x3E, 1, 6 * 3600 + 30 * 60, 0, 0};
constexpr UbusWifiTimer kSchedule = {8, 257, 0x41, 2, 22 * 3600, 86400 + 7 * 3600, 5};

class TimedTaskTest : public GatewayTest {
 protected:
  std::vector<UbusWifiTimer> list() {
    std::vector<UbusWifiTimer> records(135);
    int32_t count = -1;
    EXPECT_EQ(pm_ubus_nexumd_wifi_timer_list(records.data(), &count), 0);
    records.resize(static_cast<size_t>(count));
    return records;
  }

  static void put(std::vector<TimerTask> &tasks, int32_t taskId, const char *time,
                  std::vector<uint32_t> weekdays = {1}) {
    // The wake-up service knows no index.
    const int32_t index = &tasks == &timers().schedules ? 3 : 0;
    tasks.push_back({time, std::move(weekdays), 0, 1, taskId, index});
  }
};

TEST_F(TimedTaskTest, TasksReadBackAsTheyWereAdded) {
  EXPECT_EQ(pm_ubus_nexumd_wifi_timer_add(&kWakeUp), 0);
  EXPECT_EQ(pm_ubus_nexumd_wifi_timer_add(&kSchedule), 0);
  ASSERT_THAT(timers().wakeUps, SizeIs(1));
  EXPECT_EQ(timers().wakeUps[0].time, "06:30");
  EXPECT_THAT(timers().wakeUps[0].weekdays, ElementsAre(1, 2, 3, 4, 5));
  ASSERT_THAT(timers().schedules, SizeIs(2));
  EXPECT_EQ(timers().schedules[0].time, "22:00");
  EXPECT_EQ(timers().schedules[1].time, "07:00");
  EXPECT_EQ(timers().schedules[0].edge, 0u);
  EXPECT_EQ(timers().schedules[1].edge, 1u);
  EXPECT_EQ(timers().schedules[1].enable, 1u) << "the platform keeps one byte of it";
  EXPECT_THAT(timers().schedules[1].weekdays, ElementsAre(6, 7));

  const auto tasks = list();
  ASSERT_THAT(tasks, SizeIs(2));
  EXPECT_EQ(tasks[0].Action, 1);
  EXPECT_EQ(tasks[0].weekMask, 0x3Eu);
  EXPECT_EQ(tasks[0].timeOffset, 6u * 3600 + 30 * 60);
  EXPECT_EQ(tasks[1].Action, 2);
  EXPECT_EQ(tasks[1].weekMask, 0x41u);
  EXPECT_EQ(tasks[1].timeOffset2, 7u * 3600);
  EXPECT_EQ(tasks[1].index, 5);
  EXPECT_EQ(tasks[1].taskId, 8);
  for (const char *line :
       {"now in pm_ubus_nexumd_wifi_timer_add\n", "TaskId:7\n", "set Enable:1\n",
        "timeOffset:23400 = Time:06:30 \n", "TaskId:8\n", "Enable:257\n",
        "timeOffset:79200 = Time:22:00 \n", "index:5\n", "timeOffset2:111600 = Time:07:00 \n"}) {
    EXPECT_THAT(logs(), HasLogLine({5, "pm_ubus_nexumd_wifi_timer_add", line}));
  }
  EXPECT_THAT(logs(), HasLog(5, "weekday_out->Weekday[4]=5\n"));
  EXPECT_THAT(logs(), HasLog(5, "weekday_out->nCnt=2\n"));
}

TEST_F(TimedTaskTest, TimesAreKeptInWholeMinutesOfOneDay) {
  const struct {
    uint32_t seconds;
    const char *time;
  } cases[] = {{0, "00:00"},     {59, "00:00"},    {86399, "23:59"},
               {86400, "00:00"}, {90000, "01:00"}, {86400 + 86399, "23:59"}};
  for (const auto &one : cases) {
    UbusWifiTimer task = kWakeUp;
    task.timeOffset = one.seconds;
    EXPECT_EQ(pm_ubus_nexumd_wifi_timer_add(&task), 0);
    EXPECT_EQ(timers().wakeUps.back().time, one.time) << one.seconds;
  }
  UbusWifiTimer task = kWakeUp;
  task.timeOffset = 2 * 86400;
  EXPECT_EQ(pm_ubus_nexumd_wifi_timer_add(&task), kInvalidField) << "24:00 is no time of day";
  EXPECT_THAT(logs(), HasLog(4, "iRet = -2004,Reason:\"24:00\" is no time of day\n"));
  EXPECT_THAT(logs(), HasLog(4, "pm_ubus_wifi_timer_add fail, iRet =-2004\n "));
}

TEST_F(TimedTaskTest, WeekMaskBecomesDaysWithSundayLast) {
  const struct {
    uint32_t mask;
    std::vector<uint32_t> days;
  } cases[] = {{0x7F, {1, 2, 3, 4, 5, 6, 7}}, {1, {7}}, {0x80, {}}, {0x12, {1, 4}}};
  for (const auto &one : cases) {
    WeekdayList out = {};
    si_deal_num_conv_weekday(one.mask, &out);
    EXPECT_EQ(std::vector<uint32_t>(out.Weekday, out.Weekday + out.nCnt), one.days);
  }
  WeekdayList full = {};
  full.nCnt = 6;
  si_deal_num_conv_weekday(0x7F, &full);
  EXPECT_EQ(full.nCnt, 7u) << "the count starts anew";
  EXPECT_EQ(full.Weekday[0], 1u);
}

TEST_F(TimedTaskTest, DaysAreAddedUpAsFarAsThereAreEightOfTheWeek) {
  const struct {
    std::vector<uint32_t> days;
    std::optional<uint32_t> counted;
    uint32_t mask;
  } cases[] = {
      {{1, 1, 7, 7}, {}, 4 + 2},
      {{0, 8, 3, UINT32_MAX}, {}, 8},
      {{1, 2, 3, 4, 5, 6, 7, 7}, {}, 0x7F + 1},
      // Behind the days stand their number, the switches, and a taskId that would do as a day.
      {{2, 2, 2, 2, 2, 2, 2, 2}, 20, 32},
      {{2, 2}, UINT32_MAX, 0},
  };
  for (const auto &one : cases) {
    timers().wakeUps = {{"08:00", one.days, 0, 1, 5, 0, one.counted}};
    EXPECT_EQ(list().at(0).weekMask, one.mask);
  }
}

TEST_F(TimedTaskTest, SameIdIsReplacedWhateverItsAction) {
  put(timers().wakeUps, 7, "01:00");
  put(timers().wakeUps, 7, "02:00");
  put(timers().schedules, 7, "03:00");
  put(timers().schedules, 7, "04:00");
  put(timers().wakeUps, 9, "05:00");
  EXPECT_EQ(pm_ubus_nexumd_wifi_timer_add(&kWakeUp), 0);
  ASSERT_THAT(timers().wakeUps, SizeIs(2));
  EXPECT_EQ(timers().wakeUps[0].taskId, 9);
  EXPECT_THAT(timers().schedules, IsEmpty());
  EXPECT_THAT(logs(), HasLog(5, "First delete  taskId:7\n"));

  UbusWifiTimer unknown = kWakeUp;
  unknown.Action = 3;
  EXPECT_EQ(pm_ubus_nexumd_wifi_timer_add(&unknown), -1);
  EXPECT_THAT(timers().wakeUps, SizeIs(1)) << "the old task is gone all the same";
  EXPECT_THAT(logs(), HasLog(4, "pm_ubus_wifi_timer_add can't match Action 1 or 2!\n"));
  EXPECT_EQ(pm_ubus_nexumd_wifi_timer_add(nullptr), -10);
  EXPECT_THAT(logs(), HasLogLine({4, "pm_ubus_nexumd_wifi_timer_add", "buff is NULL\n"}));
}

TEST_F(TimedTaskTest, FullServicesNeitherOverrunNorLoseTasks) {
  for (int32_t id = 100; id < 190; ++id) {
    put(timers().wakeUps, id, "01:00");
    put(timers().schedules, id, "02:00");
  }
  EXPECT_THAT(list(), SizeIs(135));
  EXPECT_EQ(pm_ubus_nexumd_wifi_timer_add(&kWakeUp), kTableFull);
  EXPECT_THAT(timers().wakeUps, SizeIs(90));
  UbusWifiTimer replaced = kWakeUp;
  replaced.taskId = 131;
  EXPECT_EQ(pm_ubus_nexumd_wifi_timer_add(&replaced), 0) << "the last one that a replacement sees";
}

TEST_F(TimedTaskTest, ServicesMayCountWhatTheyDoNotHold) {
  put(timers().wakeUps, 7, "01:00");
  for (const auto &[counted, listed] : {std::pair(-1, 0u), {91, 90u}, {94, 90u}, {1000, 90u}}) {
    fail(Fault{.call = "pm_app_wake_up_control_get", .times = 1, .count = counted});
    EXPECT_THAT(list(), SizeIs(listed)) << counted;
  }
  fail(Fault{.call = "pm_app_wake_up_control_get", .times = 1, .count = -1});
  EXPECT_EQ(pm_ubus_nexumd_wifi_timer_del(7), 0);
  EXPECT_THAT(timers().wakeUps, SizeIs(1));
  for (const char *time : {"01:00", "02:00", "03:00"}) put(timers().schedules, 8, time);
  EXPECT_THAT(list(), SizeIs(2)) << "a start without an end is no task";
}

TEST_F(TimedTaskTest, IndexBelongsToSchedulesOnly) {
  timers().wakeUps = {{"01:00", {1}, 0, 1, 7, 3}};
  timers().schedules = {{"02:00", {1}, 1, 0, 8, 3}};
  EXPECT_EQ(list().at(0).index, 3);
  EXPECT_EQ(pm_ubus_nexumd_wifi_timer_del(7), -1) << "no entry without the index";
  timers().wakeUps.clear();
  EXPECT_EQ(pm_ubus_nexumd_wifi_timer_del(8), 0);
  EXPECT_THAT(timers().schedules, IsEmpty());
}

TEST_F(TimedTaskTest, DeletionCarriesTheFieldsAndNothingElse) {
  const Habit fillsGaps(&Habits::fillsGaps);
  put(timers().wakeUps, 7, "01:00", {1, 2});
  put(timers().schedules, 7, "02:00");
  EXPECT_EQ(pm_ubus_nexumd_wifi_timer_del(7), 0);
  EXPECT_THAT(timers().wakeUps, IsEmpty());
  EXPECT_THAT(timers().schedules, IsEmpty());
}

TEST_F(TimedTaskTest, TaskIsAddedBesideItsNamesakeWhenTasksCannotBeListed) {
  for (const char *call : {"pm_app_wake_up_control_get", "pm_wlan_ex_control_get"}) {
    fail(call, "", -5, 1, 1);
    EXPECT_EQ(pm_ubus_nexumd_wifi_timer_add(&kWakeUp), 0);
    EXPECT_THAT(logs(), HasLogLine({4, "pm_ubus_nexumd_wifi_timer_list",
                                    std::string(call) + " error\n", -5}));
  }
  EXPECT_THAT(timers().wakeUps, SizeIs(2));
  EXPECT_THAT(logs(), HasLogLine({5, "pm_ubus_nexumd_wifi_timer_list",
                                  "now in pm_ubus_nexumd_wifi_timer_list\n"}));
}

TEST_F(TimedTaskTest, OddTextsOfThePlatformAreRead) {
  put(timers().wakeUps, 1, "0730");
  put(timers().wakeUps, 2, "");
  put(timers().wakeUps, 3, "7:5");
  const auto tasks = list();
  EXPECT_EQ(tasks[0].timeOffset, 730u * 60);
  EXPECT_EQ(tasks[1].timeOffset, 0u);
  EXPECT_EQ(tasks[2].timeOffset, (7u * 60 + 5) * 60);
}

TEST_F(TimedTaskTest, FailuresKeepTheirCodes) {
  put(timers().wakeUps, 7, "01:00");
  put(timers().schedules, 7, "02:00");
  put(timers().schedules, 7, "03:00");
  std::vector<UbusWifiTimer> records(135);
  int32_t count = 55;
  for (const char *call : {"pm_app_wake_up_control_get", "pm_wlan_ex_control_get"}) {
    fail(call, "", -5, 1, 2);
    EXPECT_EQ(pm_ubus_nexumd_wifi_timer_list(records.data(), &count), -6);
    EXPECT_EQ(count, 55);
    EXPECT_EQ(pm_ubus_nexumd_wifi_timer_del(99), -6);
    EXPECT_THAT(logs(), HasLog(4, std::string(call) + " error\n"));
  }
  fail("pm_wlan_ex_control_set", "", -5, 2, 1);
  EXPECT_EQ(pm_ubus_nexumd_wifi_timer_del(7), -1);
  EXPECT_THAT(logs(), HasLog(4, "delete taskid error!\n"));
  EXPECT_THAT(timers().wakeUps, IsEmpty());
  EXPECT_THAT(timers().schedules, SizeIs(1));
  EXPECT_EQ(pm_ubus_nexumd_wifi_timer_del(12345), 0) << "nothing to delete";

  timers().schedules.clear();
  fail("pm_wlan_ex_control_set", "", -8, 2, 1);
  EXPECT_EQ(pm_ubus_nexumd_wifi_timer_add(&kSchedule), -8);
  EXPECT_THAT(timers().schedules, SizeIs(1)) << "the start stays";
  forgetCalls();
  EXPECT_EQ(pm_ubus_nexumd_wifi_timer_list(nullptr, &count), -1);
  EXPECT_EQ(pm_ubus_nexumd_wifi_timer_list(records.data(), nullptr), -1);
  EXPECT_EQ(logs()[0].text, "now in pm_ubus_nexumd_wifi_timer_list\n");
  EXPECT_THAT(logs(), HasLog(4, "pm_ubus_nexumd_wifi_timer_list para is null"));
  EXPECT_THAT(trace(), IsEmpty());
}

TEST_F(TimedTaskTest, SweepOfFaults) {
  beforeEachRun([] {
    put(timers().wakeUps, 8, "01:00");
    put(timers().schedules, 8, "02:00");
    put(timers().schedules, 8, "03:00");
  });
  sweepFaults([] { return pm_ubus_nexumd_wifi_timer_add(&kSchedule); });
  sweepFaults([] { return pm_ubus_nexumd_wifi_timer_del(8); },
              [](const testing::SweepRun &run) {
                EXPECT_TRUE(run.status == -6 || run.status == -1) << run.status;
              });
  std::vector<UbusWifiTimer> records(135);
  int32_t count = 0;
  sweepFaults([&] { return pm_ubus_nexumd_wifi_timer_list(records.data(), &count); },
              [](const testing::SweepRun &run) { EXPECT_EQ(run.status, -6); });
}

}  // namespace
}  // namespace gateway
