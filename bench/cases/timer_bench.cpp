// Timer tasks, with the services holding nothing or as much as they can.
#include <cstring>

#include "bench/bench.hpp"
#include "platform/timers.hpp"
#include "platform/timers.h"
#include "pmapi/timedtask.h"

using namespace platform;

using bench::answerTo;

namespace {

constexpr uint32_t kMostEntries = TimerControlRecord::Entries::kCount;
constexpr uint32_t kMostTasks = kMostEntries + kMostEntries / 2;
constexpr uint32_t kWorkingDays = 0x3E;

const UbusWifiTimer wakeUp{1, 1, kWorkingDays, 1, 28800, 0, 0};
const UbusWifiTimer schedule{1, 1, kWorkingDays, 2, 28800, 79200, 1};
UbusWifiTimer tasks[kMostTasks];
int32_t count;
WeekdayList days;

void putWord(uint8_t *entry, const platform::Field &field, uint32_t value) {
  memcpy(entry + field.offset, &value, sizeof value);
}

/// So many entries in each of the two services; those of a schedule come in pairs.
void heldEntries(uint32_t entries) {
  uint8_t bytes[kMostEntries * TimerEntry::kSize] = {};
  for (uint32_t i = 0; i < entries; ++i) {
    uint8_t *entry = bytes + i * TimerEntry::kSize;
    strcpy(reinterpret_cast<char *>(entry), "07:30");
    for (uint32_t day = 1; day <= 5; ++day) {
      memcpy(entry + TimerEntry::weekdays.offset + (day - 1) * sizeof day, &day, sizeof day);
    }
    putWord(entry, TimerEntry::weekdayCount, 5);
    entry[TimerEntry::enable.offset] = 1;
    putWord(entry, TimerEntry::taskId, i / 2 + 1);
  }
  const uint32_t size = entries * TimerEntry::kSize;
  answerTo<pm_app_wake_up_control_get>.set(TimerControlRecord::entryCount, entries)
      .bytes(TimerControlRecord::entries.offset, bytes, size);
  answerTo<pm_wlan_ex_control_get>.set(TimerControlRecord::entryCount, entries)
      .bytes(TimerControlRecord::entries.offset, bytes, size);
}

const bench::Cases cases{
    {.name = "timer: add a wake-up",
     .handler = [](uint32_t) { pm_ubus_nexumd_wifi_timer_add(&wakeUp); }},
    {.name = "timer: add a schedule",
     .handler = [](uint32_t) { pm_ubus_nexumd_wifi_timer_add(&schedule); }},
    {.name = "timer: delete a task, entries per service",
     .platform = heldEntries,
     .handler = [](uint32_t) { pm_ubus_nexumd_wifi_timer_del(1); },
     .items = {2, 10, kMostEntries}},
    {.name = "timer: list, entries per service",
     .platform = heldEntries,
     .handler = [](uint32_t) { pm_ubus_nexumd_wifi_timer_list(tasks, &count); },
     .items = {2, 10, kMostEntries}},
};

const bench::Singles conversion{
    {.name = "si_deal_num_conv_weekday",
     .before = [](uint32_t) { memset(&days, 0, sizeof days); },
     .handler = [](uint32_t) { si_deal_num_conv_weekday(kWorkingDays, &days); }}};

}  // namespace
