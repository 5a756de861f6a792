#include <climits>
#include <cstdio>

#include "frame/instance.hpp"
#include "frame/log.hpp"
#include "frame/parse.hpp"
#include "frame/record_buffer.hpp"
#include "frame/status.hpp"
#include "platform/timers.h"
#include "platform/timers.hpp"
#include "pmapi/timedtask.h"

using namespace pm;
using EntryBuffer = RecordBuffer<TimerEntry>;
using ControlBuffer = RecordBuffer<TimerControlRecord>;

static constexpr char kSourceTag[] = "object_nexumd_timedtask_pmapi.c";

namespace {

enum Action { kWakeUp = 1, kWlanSchedule = 2 };

constexpr uint32_t kDaySeconds = 86400;
constexpr uint32_t kSunday = 7;
constexpr uint32_t kWeekdays = 8;
constexpr uint32_t kTimeSize = 32;
constexpr int32_t kReplaceableTasks = 32;

using ServiceCall = int32_t (*)(TimerRequest *, TimerControlRecord *);

// The platform's calls are called here and nowhere passed on: an address of theirs would be looked
// up when the library is loaded, and a daemon without timer services could not load it.
int32_t getWakeUps(TimerRequest *request, TimerControlRecord *control) {
  return pm_app_wake_up_control_get(request, control);
}

int32_t setWakeUp(TimerRequest *request, TimerControlRecord *control) {
  return pm_app_wake_up_control_set(request, control);
}

int32_t getSchedules(TimerRequest *request, TimerControlRecord *control) {
  return pm_wlan_ex_control_get(request, control);
}

int32_t setSchedule(TimerRequest *request, TimerControlRecord *control) {
  return pm_wlan_ex_control_set(request, control);
}

struct TimerService {
  const char *getName;
  ServiceCall get;
  ServiceCall set;
  bool hasIndex;
};

constexpr TimerService kWakeUps{"pm_app_wake_up_control_get", getWakeUps, setWakeUp, false};
constexpr TimerService kSchedules{"pm_wlan_ex_control_get", getSchedules, setSchedule, true};

int32_t call(ServiceCall service, ControlBuffer &control) {
  RecordBuffer<TimerRequest> request;
  return service(&request, &control);
}

uint32_t entryCount(const ControlBuffer &control) {
  return clampCount(control.get(control.entryCount), TimerControlRecord::Entries::kCount);
}

/// Takes one entry out of a service's answer, its day count bounded.
void loadEntry(const ControlBuffer &control, uint32_t position, EntryBuffer &entry) {
  memcpy(entry.bytes, control.row(control.entries, position), entry.kSize);
  entry.put(entry.weekdayCount, clampCount(entry.get(entry.weekdayCount), kWeekdays));
}

int32_t sendEntry(const TimerService &service, const EntryBuffer &entry, uint32_t operation,
                  ControlBuffer &control) {
  control.set(control.entryCount, 1);
  control.put(control.entries, 0, entry.bytes);
  control.set(control.operation, operation);
  return call(service.set, control);
}

void printTime(uint32_t seconds, char (&text)[kTimeSize]) {
  if (seconds >= kDaySeconds) seconds -= kDaySeconds;
  const uint32_t hours = seconds / 3600;
  snprintf(text, sizeof text, "%02d:%02d", hours, seconds / 60 - hours * 60);
}

uint32_t secondsOf(const char *text) {
  auto minutes = static_cast<uint32_t>(numberIn(text));
  if (const char *colon = strchr(text, ':'); colon != nullptr) {
    minutes = minutes * 60 + static_cast<uint32_t>(numberIn(colon + 1));
  }
  return minutes * 60;
}

/// A repeated day counts twice and thereby turns into the next one.
uint32_t maskOf(const EntryBuffer &entry) {
  uint32_t days[kWeekdays];
  memcpy(days, entry.get(entry.weekdays), sizeof days);
  uint32_t mask = 0;
  for (uint32_t i = 0; i < entry.get(entry.weekdayCount); ++i) {
    const uint32_t day = days[i];
    if (day == kSunday) mask += 1;
    if (day >= 1 && day < kSunday) mask += 1U << day;
  }
  return mask;
}

/// What both kinds of task have in common.
void fillEntry(EntryBuffer &entry, const UbusWifiTimer &task, uint8_t edge, const char *time) {
  WeekdayList days = {};
  si_deal_num_conv_weekday(task.weekMask, &days);
  entry.put(entry.time, time);
  entry.put(entry.weekdays, reinterpret_cast<const uint8_t *>(days.Weekday));
  entry.put(entry.weekdayCount, days.nCnt);
  entry.put(entry.edge, edge);
  entry.put(entry.enable, static_cast<uint8_t>(task.enable));
  entry.put(entry.taskId, static_cast<uint32_t>(task.taskId));
}

void reportEntry(EntryBuffer &entry, Action action, UbusWifiTimer &task) {
  task.taskId = entry.getSigned(entry.taskId);
  task.enable = entry.get(entry.enable);
  task.weekMask = maskOf(entry);
  task.Action = action;
  task.timeOffset = secondsOf(entry.text(entry.time));
  task.index = entry.getSigned(entry.index);
}

}  // namespace

void si_deal_num_conv_weekday(uint32_t weekMask, WeekdayList *out) {
  const Trail log(kSourceTag);
  out->nCnt = 0;
  for (uint32_t day = 1; day <= kSunday; ++day) {
    const uint32_t bit = day == kSunday ? 0 : day;
    if ((weekMask >> bit & 1) == 0) continue;
    out->Weekday[out->nCnt] = day;
    PM_LOG(log, kInfo, 0, "weekday_out->Weekday[%d]=%d\n", out->nCnt, day);
    ++out->nCnt;
  }
  PM_LOG(log, kInfo, 0, "weekday_out->nCnt=%d\n", out->nCnt);
}

namespace {

int32_t readService(const Trail &log, const TimerService &service, ControlBuffer &control) {
  const int32_t status = call(service.get, control);
  if (status == kOk) return kOk;
  PM_LOG(log, kError, status, "%s error\n", service.getName);
  return PM_STATUS_TIMERS_UNREADABLE;
}

/// Lists at most `capacity` tasks.
int32_t listTasks(const Trail &log, UbusWifiTimer *records, int32_t capacity, int32_t *count) {
  int32_t written = 0;
  EntryBuffer entry;
  {
    ControlBuffer wakeUps;
    if (const int32_t status = readService(log, kWakeUps, wakeUps); status != kOk) return status;
    for (uint32_t i = 0; i < entryCount(wakeUps) && written < capacity; ++i) {
      loadEntry(wakeUps, i, entry);
      reportEntry(entry, kWakeUp, records[written++]);
    }
  }
  ControlBuffer schedules;
  if (const int32_t status = readService(log, kSchedules, schedules); status != kOk) return status;
  for (uint32_t i = 0; i + 1 < entryCount(schedules) && written < capacity; i += 2) {
    UbusWifiTimer &task = records[written++];
    loadEntry(schedules, i, entry);
    reportEntry(entry, kWlanSchedule, task);
    loadEntry(schedules, i + 1, entry);
    task.timeOffset2 = secondsOf(entry.text(entry.time));
  }
  *count = written;
  return kOk;
}

void deleteSameTask(const Trail &log, int32_t taskId) {
  const Trail listing = entered(kSourceTag, "pm_ubus_nexumd_wifi_timer_list");
  UbusWifiTimer tasks[kReplaceableTasks] = {};
  int32_t count = 0;
  if (listTasks(listing, tasks, kReplaceableTasks, &count) != kOk) return;
  for (int32_t i = 0; i < count; ++i) {
    if (tasks[i].taskId != taskId) continue;
    pm_ubus_nexumd_wifi_timer_del(taskId);
    PM_LOG(log, kInfo, 0, "First delete  taskId:%d\n", taskId);
  }
}

int32_t addEntry(const Trail &log, const TimerService &service, const EntryBuffer &entry) {
  ControlBuffer control;
  const int32_t status = sendEntry(service, entry, kAddTimer, control);
  if (status == kOk) return kOk;
  PM_LOG(log, kError, status, "iRet = %d,Reason:%s\n", status, control.text(control.failureReason));
  PM_LOG(log, kError, status, "pm_ubus_wifi_timer_add fail, iRet =%d\n ", status);
  return status;
}

int32_t addWakeUp(const Trail &log, const UbusWifiTimer &task) {
  char time[kTimeSize];
  printTime(task.timeOffset, time);
  EntryBuffer entry;
  fillEntry(entry, task, kStartEdge, time);
  PM_LOG(log, kInfo, 0, "TaskId:%d\n", task.taskId);
  PM_LOG(log, kInfo, 0, "set Enable:%d\n", task.enable);
  PM_LOG(log, kInfo, 0, "timeOffset:%d = Time:%s \n", task.timeOffset, time);
  return addEntry(log, kWakeUps, entry);
}

int32_t addSchedule(const Trail &log, const UbusWifiTimer &task) {
  char time[kTimeSize];
  printTime(task.timeOffset, time);
  EntryBuffer entry;
  fillEntry(entry, task, kStartEdge, time);
  entry.put(entry.index, static_cast<uint32_t>(task.index));
  PM_LOG(log, kInfo, 0, "TaskId:%d\n", task.taskId);
  PM_LOG(log, kInfo, 0, "Enable:%d\n", task.enable);
  PM_LOG(log, kInfo, 0, "timeOffset:%d = Time:%s \n", task.timeOffset, time);
  PM_LOG(log, kInfo, 0, "index:%d\n", task.index);
  if (const int32_t status = addEntry(log, kSchedules, entry); status != kOk) {
    return status;
  }
  printTime(task.timeOffset2, time);
  entry.put(entry.time, time);
  entry.put(entry.edge, kEndEdge);
  PM_LOG(log, kInfo, 0, "timeOffset2:%d = Time:%s \n", task.timeOffset2, time);
  return addEntry(log, kSchedules, entry);
}

/// What a deletion says of an entry; what else the service keeps in it stays away.
void copyFields(EntryBuffer &found, bool withIndex, EntryBuffer &entry) {
  entry.put(entry.time, found.text(found.time));
  entry.put(entry.weekdays, found.get(found.weekdays));
  entry.put(entry.weekdayCount, found.get(found.weekdayCount));
  entry.put(entry.edge, found.get(found.edge));
  entry.put(entry.enable, found.get(found.enable));
  entry.put(entry.taskId, found.get(found.taskId));
  if (withIndex) entry.put(entry.index, found.get(found.index));
}

/// Deletes every entry of the task from one service.
int32_t deleteEntries(const Trail &log, const TimerService &service, int32_t taskId) {
  ControlBuffer held;
  if (const int32_t status = readService(log, service, held); status != kOk) return status;
  for (uint32_t i = 0; i < entryCount(held); ++i) {
    EntryBuffer found;
    loadEntry(held, i, found);
    if (found.getSigned(found.taskId) != taskId) continue;
    EntryBuffer entry;
    copyFields(found, service.hasIndex, entry);
    ControlBuffer control;
    if (const int32_t status = sendEntry(service, entry, kDeleteTimer, control); status != kOk) {
      PM_LOG(log, kError, status, "delete taskid error!\n");
      return kFailure;
    }
  }
  return kOk;
}

}  // namespace

int32_t pm_ubus_nexumd_wifi_timer_add(const UbusWifiTimer *record) {
  const Trail log = entered(kSourceTag);
  if (record == nullptr) {
    PM_LOG(log, kError, 0, "buff is NULL\n");
    return PM_STATUS_NO_RECORD;
  }
  deleteSameTask(log, record->taskId);
  switch (record->Action) {
    case kWakeUp:
      return addWakeUp(log, *record);
    case kWlanSchedule:
      return addSchedule(log, *record);
    default:
      PM_LOG(log, kError, 0, "pm_ubus_wifi_timer_add can't match Action 1 or 2!\n");
      return kFailure;
  }
}

int32_t pm_ubus_nexumd_wifi_timer_del(int32_t taskId) {
  const Trail log = entered(kSourceTag);
  const int32_t status = deleteEntries(log, kWakeUps, taskId);
  return status != kOk ? status : deleteEntries(log, kSchedules, taskId);
}

int32_t pm_ubus_nexumd_wifi_timer_list(UbusWifiTimer *records, int32_t *count) {
  const Trail log = entered(kSourceTag);
  if (log.lacks(records) || log.lacks(count)) return kFailure;
  return listTasks(log, records, INT_MAX, count);
}
