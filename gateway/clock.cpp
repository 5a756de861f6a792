#include "gateway/clock.hpp"

#include <unistd.h>

namespace gateway {

void Clock::sleep(uint32_t seconds) {
  if (sleepSink_) sleepSink_(seconds);
  slept_ += seconds;
  advance(seconds);
  if (real_) ::sleep(seconds);
}

}  // namespace gateway
