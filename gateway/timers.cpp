#include "gateway/timers.hpp"

#include <algorithm>
#include <cctype>
#include <cstring>

#include "boundary/boundary.hpp"
#include "gateway/calls.hpp"
#include "gateway/gateway.hpp"
#include "gateway/habits.hpp"
#include "gateway/proxy.hpp"
#include "platform/codes.hpp"
#include "platform/timers.hpp"

PM_RECORD(
    gateway::TimerTask, PM_FIELD(time).means("hh:mm"),
    PM_FIELD(weekdays).atMost(8).means("1 Monday to 7 Sunday"),
    PM_FIELD(edge).means("which end of a schedule").means(platform::codes(platform::kTimerEdges)),
    PM_FIELD(enable).means(platform::codes(platform::kSwitch)),
    PM_FIELD(taskId).means("the daemon's number of the task"),
    PM_FIELD(index).means("of the Wi-Fi; a wake-up has none"));

PM_RECORD(gateway::Timers,
          PM_FIELD(wakeUps).atMost(gateway::Timers::kEntries).means("of the wake-up service"),
          PM_FIELD(schedules)
              .atMost(gateway::Timers::kEntries)
              .means("of the Wi-Fi: two entries a task, its start and its end"));

namespace gateway {

namespace {

constexpr uint32_t kWeekdays = 8;
constexpr uint32_t kDays = 7;

bool isTimeOfDay(const std::string &time) {
  if (time.size() != 5 || time[2] != ':') return false;
  for (const size_t place : {0U, 1U, 3U, 4U}) {
    if (std::isdigit(static_cast<unsigned char>(time[place])) == 0) return false;
  }
  return time.substr(0, 2) < "24" && time.substr(3) < "60";
}

/// Why a task cannot be kept, or an empty text.
std::string objection(const TimerTask &task) {
  if (!isTimeOfDay(task.time)) return "\"" + task.time + "\" is no time of day";
  for (const uint32_t day : task.weekdays) {
    if (day < 1 || day > kDays) return "there is no weekday " + std::to_string(day);
  }
  if (task.weekdays.size() > kWeekdays) return "more days than a week has";
  if (task.edge > 1) return "an edge is 0 or 1";
  return {};
}

void checkTasks(Timers &loaded, const std::string &place) {
  const auto check = [&](const std::vector<TimerTask> &tasks, const std::string &service) {
    for (size_t i = 0; i < tasks.size(); ++i) {
      const std::string reason = objection(tasks[i]);
      if (!reason.empty()) throw InputError(placeOf(service, i), reason);
    }
  };
  check(loaded.wakeUps, placeOf(place, "wakeUps"));
  check(loaded.schedules, placeOf(place, "schedules"));
}

SectionOf<Timers> section{"timers", "Entries of the two timer services", {.loaded = checkTasks}};

Row entryAt(TimerControlRecord &control, size_t position) {
  return fieldsOf<TimerEntry>(control.bytes + TimerControlRecord::entries.offset +
                              position * TimerEntry::kSize);
}

TimerTask taskFrom(const Row &entry) {
  TimerTask task;
  task.time = entry.text(TimerEntry::time);
  task.weekdays.resize(std::min(entry.word(TimerEntry::weekdayCount), kWeekdays));
  const Bytes days = entry.bytes(TimerEntry::weekdays);
  const size_t size = task.weekdays.size() * sizeof(uint32_t);
  if (size > 0) std::memcpy(task.weekdays.data(), days.data(), size);
  task.edge = entry.byte(TimerEntry::edge);
  task.enable = entry.byte(TimerEntry::enable);
  task.taskId = static_cast<int32_t>(entry.word(TimerEntry::taskId));
  task.index = static_cast<int32_t>(entry.word(TimerEntry::index));
  return task;
}

void writeTask(const TimerTask &task, const Row &entry) {
  entry.setText(TimerEntry::time, task.time);
  Bytes days(kWeekdays * sizeof(uint32_t));
  const size_t listed = std::min<size_t>(task.weekdays.size(), kWeekdays);
  if (listed > 0) std::memcpy(days.data(), task.weekdays.data(), listed * sizeof(uint32_t));
  entry.setBytes(TimerEntry::weekdays, days);
  entry.setWord(TimerEntry::weekdayCount,
                task.countedDays.value_or(static_cast<uint32_t>(task.weekdays.size())));
  entry.setByte(TimerEntry::edge, static_cast<uint8_t>(task.edge));
  entry.setByte(TimerEntry::enable, static_cast<uint8_t>(task.enable));
  entry.setWord(TimerEntry::taskId, static_cast<uint32_t>(task.taskId));
  entry.setWord(TimerEntry::index, static_cast<uint32_t>(task.index));
}

/// The bytes of an entry that belong to no field: behind the time's end, and behind the switches.
std::vector<uint8_t *> gapsIn(const Row &entry) {
  std::vector<uint8_t *> gaps;
  for (size_t i = entry.text(TimerEntry::time).size() + 1; i < TimerEntry::time.width; ++i) {
    gaps.push_back(entry.data() + TimerEntry::time.offset + i);
  }
  for (size_t i = TimerEntry::enable.offset + 1; i < TimerEntry::taskId.offset; ++i) {
    gaps.push_back(entry.data() + i);
  }
  return gaps;
}

void checkCleared(const TimerRequest &request) {
  const bool isCleared = std::ranges::all_of(request.bytes, [](uint8_t byte) { return byte == 0; });
  if (!isCleared) throw Refusal(kBadRequest, "the request was not cleared");
}

int32_t list(const std::vector<TimerTask> &tasks, const TimerRequest &request,
             TimerControlRecord &control) {
  checkCleared(request);
  const Row record = fieldsOf<TimerControlRecord>(&control);
  record.setWord(TimerControlRecord::entryCount, static_cast<uint32_t>(tasks.size()));
  for (size_t i = 0; i < tasks.size(); ++i) {
    const Row entry = entryAt(control, i);
    writeTask(tasks[i], entry);
    if (!habits().fillsGaps) continue;
    for (uint8_t *gap : gapsIn(entry)) *gap = 0xEE;
  }
  return kOk;
}

int32_t refuse(const Row &record, int32_t status, const std::string &reason) {
  record.setText(TimerControlRecord::failureReason, reason);
  return status;
}

int32_t add(std::vector<TimerTask> &tasks, const TimerTask &task, const Row &record) {
  if (const std::string reason = objection(task); !reason.empty()) {
    return refuse(record, kInvalidField, reason);
  }
  if (tasks.size() >= Timers::kEntries) return refuse(record, kTableFull, "no free entry");
  tasks.push_back(task);
  return kOk;
}

int32_t change(std::vector<TimerTask> &tasks, const TimerRequest &request,
               TimerControlRecord &control) {
  checkCleared(request);
  const Row record = fieldsOf<TimerControlRecord>(&control);
  if (record.word(TimerControlRecord::entryCount) != 1 ||
      record.mark(TimerControlRecord::entryCount) != 1 ||
      record.mark(TimerControlRecord::operation) != 1) {
    throw Refusal(kBadRequest, "a set carries exactly one marked entry");
  }
  const Row entry = entryAt(control, 0);
  for (const uint8_t *gap : gapsIn(entry)) {
    if (*gap != 0) throw Refusal(kBadRequest, "an entry holds more than its fields");
  }
  const TimerTask task = taskFrom(entry);
  if (record.word(TimerControlRecord::operation) == kAddTimer) return add(tasks, task, record);
  // One entry for one request, however many are equal.
  const auto found = std::ranges::find(tasks, task);
  if (found == tasks.end()) return refuse(record, kUnknownInstance, "no such entry");
  tasks.erase(found);
  return kOk;
}

}  // namespace

Timers &timers() {
  return section.state();
}

}  // namespace gateway

using namespace gateway;

int32_t gateway::pm_app_wake_up_control_get(TimerRequest *request, TimerControlRecord *control) {
  return list(timers().wakeUps, *request, *control);
}

int32_t gateway::pm_app_wake_up_control_set(TimerRequest *request, TimerControlRecord *control) {
  return change(timers().wakeUps, *request, *control);
}

int32_t gateway::pm_wlan_ex_control_get(TimerRequest *request, TimerControlRecord *control) {
  return list(timers().schedules, *request, *control);
}

int32_t gateway::pm_wlan_ex_control_set(TimerRequest *request, TimerControlRecord *control) {
  return change(timers().schedules, *request, *control);
}
