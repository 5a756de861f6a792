#include "gateway/timers.hpp"

#include <algorithm>
#include <cctype>
#include <cstring>
#include <nlohmann/json.hpp>

#include "boundary/boundary.hpp"
#include "gateway/calls.hpp"
#include "gateway/gateway.hpp"
#include "gateway/habits.hpp"
#include "gateway/proxy.hpp"
#include "platform/timers.h"
#include "platform/timers.hpp"

namespace gateway {

namespace {

[[maybe_unused]] const Timers &registered = timers();

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

void loadTasks(Members &members, const char *name, std::vector<TimerTask> &tasks) {
  members.each(name, [&](const Json &element, const std::string &place) {
    TimerTask task;
    Members one(element, place);
    one.text("time", &task.time);
    one.word("edge", &task.edge);
    one.word("enable", &task.enable);
    one.number("taskId", &task.taskId);
    one.number("index", &task.index);
    one.each("weekdays", [&](const Json &day, const std::string &dayPlace) {
      if (!day.is_number_unsigned()) throw InputError(dayPlace, "must be a number");
      task.weekdays.push_back(day.get<uint32_t>());
    });
    one.finish();
    if (const std::string reason = objection(task); !reason.empty()) {
      throw InputError(place, reason);
    }
    tasks.push_back(std::move(task));
  });
  if (tasks.size() > Timers::kEntries) {
    throw InputError(members.placeOf(name), "a service keeps at most 90 entries");
  }
}

Json saveTasks(const std::vector<TimerTask> &tasks) {
  Json list = Json::array();
  for (const TimerTask &task : tasks) {
    list.push_back({{"time", task.time},
                    {"weekdays", task.weekdays},
                    {"edge", task.edge},
                    {"enable", task.enable},
                    {"taskId", task.taskId},
                    {"index", task.index}});
  }
  return list;
}

Row entryAt(void *control, size_t position) {
  auto *entries = static_cast<uint8_t *>(control) + TimerControlRecord::entries.offset;
  return fieldsOf<TimerEntry>(entries + position * TimerEntry::kSize);
}

TimerTask taskFrom(const Row &entry) {
  TimerTask task;
  task.time = entry.text(TimerEntry::time);
  const std::vector<uint8_t> days = entry.bytes(TimerEntry::weekdays);
  for (uint32_t i = 0; i < entry.word(TimerEntry::weekdayCount) && i < kWeekdays; ++i) {
    uint32_t day = 0;
    std::memcpy(&day, days.data() + i * sizeof day, sizeof day);
    task.weekdays.push_back(day);
  }
  task.edge = entry.byte(TimerEntry::edge);
  task.enable = entry.byte(TimerEntry::enable);
  task.taskId = static_cast<int32_t>(entry.word(TimerEntry::taskId));
  task.index = static_cast<int32_t>(entry.word(TimerEntry::index));
  return task;
}

void writeTask(const TimerTask &task, const Row &entry) {
  entry.setText(TimerEntry::time, task.time);
  std::vector<uint8_t> days;
  for (const uint32_t day : task.weekdays) {
    const Bytes word = bytesOf(day);
    days.insert(days.end(), word.begin(), word.end());
  }
  days.resize(kWeekdays * sizeof(uint32_t));
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

void checkBuffers(const void *request, const void *control) {
  if (request == nullptr || control == nullptr) throw Refusal(kNullArgument, "a buffer is missing");
  for (size_t i = 0; i < 32; ++i) {
    if (static_cast<const uint8_t *>(request)[i] != 0) {
      throw Refusal(kBadRequest, "the request was not cleared");
    }
  }
}

int32_t list(const std::vector<TimerTask> &tasks, void *control) {
  const Row record = fieldsOf<TimerControlRecord>(control);
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

int32_t change(std::vector<TimerTask> &tasks, void *control) {
  const Row record = fieldsOf<TimerControlRecord>(control);
  if (record.word(TimerControlRecord::entryCount) != 1 ||
      record.mark(TimerControlRecord::entryCount) != 1 ||
      record.mark(TimerControlRecord::operation) != 1) {
    throw Refusal(kBadRequest, "a set carries exactly one marked entry");
  }
  for (const uint8_t *gap : gapsIn(entryAt(control, 0))) {
    if (*gap != 0) throw Refusal(kBadRequest, "an entry holds more than its fields");
  }
  const TimerTask task = taskFrom(entryAt(control, 0));
  if (record.word(TimerControlRecord::operation) == 0) return add(tasks, task, record);
  // One entry for one request, however many are equal.
  const auto found = std::find(tasks.begin(), tasks.end(), task);
  if (found == tasks.end()) return refuse(record, kUnknownInstance, "no such entry");
  tasks.erase(found);
  return kOk;
}

}  // namespace

Timers &timers() {
  static Timers *const instance = new Timers;
  return *instance;
}

void Timers::reset() {
  wakeUps.clear();
  schedules.clear();
}

void Timers::load(const Json &value, const std::string &place) {
  Members members(value, place);
  loadTasks(members, "wakeUps", wakeUps);
  loadTasks(members, "schedules", schedules);
  members.finish();
}

Json Timers::save() const {
  if (wakeUps.empty() && schedules.empty()) return nullptr;
  return {{"wakeUps", saveTasks(wakeUps)}, {"schedules", saveTasks(schedules)}};
}

}  // namespace gateway

using namespace gateway;

int32_t gateway::pm_app_wake_up_control_get(TimerRequest *request, TimerControlRecord *control) {
  checkBuffers(request, control);
  return list(timers().wakeUps, control);
}

int32_t gateway::pm_app_wake_up_control_set(TimerRequest *request, TimerControlRecord *control) {
  checkBuffers(request, control);
  return change(timers().wakeUps, control);
}

int32_t gateway::pm_wlan_ex_control_get(TimerRequest *request, TimerControlRecord *control) {
  checkBuffers(request, control);
  return list(timers().schedules, control);
}

int32_t gateway::pm_wlan_ex_control_set(TimerRequest *request, TimerControlRecord *control) {
  checkBuffers(request, control);
  return change(timers().schedules, control);
}
