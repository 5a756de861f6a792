// The gateway's time: it stands still until somebody sleeps or moves it.
#pragma once

#include <algorithm>
#include <cstdint>
#include <functional>
#include <optional>
#include <utility>

namespace gateway {

struct Time {
  int64_t uptime = 3600;
  int64_t time = 1700000000; /**< seconds since 1970 */
};

class Clock {
 public:
  /// Far beyond what the library can tell apart, and far enough from what an integer holds.
  static constexpr int64_t kLatest = int64_t{1} << 53;

  const Time &now() const { return now_; }
  int64_t uptime() const { return now_.uptime; }
  int64_t time() const { return now_.time; }
  /// Seconds that the library slept.
  int64_t slept() const { return slept_; }

  void set(int64_t uptime, int64_t time) { now_ = {uptime, time}; }
  void advance(int64_t seconds) {
    set(std::min(uptime() + seconds, kLatest), std::min(time() + seconds, kLatest));
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
    now_ = {};
    slept_ = 0;
    interruptedAfter_.reset();
  }

 private:
  Time now_;
  int64_t slept_ = 0;
  std::optional<uint32_t> interruptedAfter_;
  bool real_ = false;
  std::function<void(uint32_t)> sleepSink_;
};

}  // namespace gateway
