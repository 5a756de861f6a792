// The two timer services: wake-up control, and the Wi-Fi schedule.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "gateway/section.hpp"

namespace gateway {

struct TimerTask {
  std::string time;
  std::vector<uint32_t> weekdays;
  uint32_t edge = 0;
  uint32_t enable = 0;
  int32_t taskId = 0;
  int32_t index = 0;
  /// What a listing says of the number of weekdays, where it is not the truth.
  std::optional<uint32_t> countedDays = {};

  bool operator==(const TimerTask &) const = default;
};

struct Timers {
  static constexpr size_t kEntries = 90;

  std::vector<TimerTask> wakeUps;
  std::vector<TimerTask> schedules;
};

Timers &timers();

}  // namespace gateway
