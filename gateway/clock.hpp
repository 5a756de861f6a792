// The gateway's time: it stands still until somebody sleeps or moves it.
#pragma once

#include <algorithm>
#include <cstdint>
#include <functional>
#include <optional>
#include <utility>

namespace gateway {

class Clock {
 public:
  /// Far beyond what the library can tell apart, and far enough from what an integer holds.
  static constexpr int64_t kLatest = int64_t{1} << 53;
  static constexpr int64_t kDefaultUptime = 3600;
  static constexpr int64_t kDefaultTime = 1700000000;

  int64_t uptime() const { return uptime_; }
  /// Seconds since 1970.
  int64_t time() const { return time_; }
  /// Seconds that the library slept.
  int64_t slept() const { return slept_; }

  void set(int64_t uptime, int64_t time) {
    uptime_ = uptime;
    time_ = time;
  }
  void advance(int64_t seconds) {
    uptime_ = std::min(uptime_ + seconds, kLatest);
    time_ = std::min(time_ + seconds, kLatest);
  }
  /// A sleep of the library: it moves the clock, and takes its time only when that is asked for.
  /// Returns how many seconds were left when it was interrupted.
  uint32_t sleep(uint32_t seconds);
  /// A signal ends the next sleep that is longer after so many seconds.
  void interruptAfter(uint32_t seconds) { interruptedAfter_ = seconds; }
  void useRealTime(bool real) { real_ = real; }
  /// Told how many seconds, before the library sleeps.
  void onSleep(std::function<void(uint32_t)> sink) { sleepSink_ = std::move(sink); }

  void reset() {
    set(kDefaultUptime, kDefaultTime);
    slept_ = 0;
    interruptedAfter_.reset();
  }

 private:
  int64_t uptime_ = kDefaultUptime;
  int64_t time_ = kDefaultTime;
  int64_t slept_ = 0;
  std::optional<uint32_t> interruptedAfter_;
  bool real_ = false;
  std::function<void(uint32_t)> sleepSink_;
};

}  // namespace gateway
