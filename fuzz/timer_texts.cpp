// Timer entries of any content behind the listing, the replacement and the deletion of tasks.
#include <cstdlib>
#include <string>
#include <vector>

#include "gateway/gateway.hpp"
#include "gateway/timers.hpp"
#include "pmapi/timedtask.h"

using gateway::TimerTask;

namespace {

constexpr size_t kEntrySize = 12;

void require(bool holds) {
  if (!holds) std::abort();
}

/// One task from a few bytes: days, edge, id, and a text that need not be a time.
TimerTask taskFrom(const uint8_t *data) {
  TimerTask task;
  const size_t days = data[0] % 9;
  for (size_t i = 0; i < days; ++i) task.weekdays.push_back(data[1] + i * data[2]);
  task.edge = data[2] & 1U;
  task.enable = data[3];
  task.taskId = data[4] % 8;
  task.time.assign(reinterpret_cast<const char *>(data + 5), kEntrySize - 5);
  task.time = task.time.substr(0, task.time.find('\0'));
  return task;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  if (size < kEntrySize) return 0;
  gateway::Gateway::current().reset();
  std::vector<TimerTask> &wakeUps = gateway::timers().wakeUps;
  std::vector<TimerTask> &schedules = gateway::timers().schedules;
  for (size_t at = kEntrySize; at + kEntrySize <= size; at += kEntrySize) {
    std::vector<TimerTask> &service = (data[at + 3] & 2U) != 0 ? wakeUps : schedules;
    if (service.size() < gateway::Timers::kEntries) service.push_back(taskFrom(data + at));
  }
  std::vector<UbusWifiTimer> tasks(135);
  int32_t count = -1;
  require(pm_ubus_nexumd_wifi_timer_list(tasks.data(), &count) == 0);
  require(count == static_cast<int32_t>(wakeUps.size() + schedules.size() / 2));

  UbusWifiTimer task = {};
  task.taskId = data[0] % 8;
  task.weekMask = data[1];
  task.Action = data[2] % 4;
  task.timeOffset = static_cast<uint32_t>(data[3] << 16 | data[4] << 8 | data[5]);
  task.timeOffset2 = task.timeOffset * data[6];
  pm_ubus_nexumd_wifi_timer_add(&task);
  require(wakeUps.size() <= gateway::Timers::kEntries);
  require(schedules.size() <= gateway::Timers::kEntries);
  pm_ubus_nexumd_wifi_timer_del(task.taskId);
  for (const TimerTask &left : schedules) require(left.taskId != task.taskId);
  return 0;
}
