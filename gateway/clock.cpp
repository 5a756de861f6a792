#include "gateway/clock.hpp"

#include <unistd.h>

namespace gateway {

uint32_t Clock::sleep(uint32_t seconds) {
  uint32_t left = 0;
  if (interruptedAfter_ && *interruptedAfter_ < seconds) {
    left = seconds - *std::exchange(interruptedAfter_, std::nullopt);
  }
  const uint32_t slept = seconds - left;
  if (sleepSink_) sleepSink_(slept);
  slept_ += slept;
  advance(slept);
  if (real_) ::sleep(slept);
  return left;
}

}  // namespace gateway
