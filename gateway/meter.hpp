// Counters that grow with the gateway's clock.
#pragma once

#include <cstdint>
#include <string_view>

#include "gateway/section.hpp"

namespace gateway {

struct Meter {
  uint64_t count = 0;
  uint32_t perSecond = 0;
  /// The uptime at which `count` stood.
  int64_t since = 0;

  uint64_t at(int64_t uptime) const;
  /// Keeps what was counted and counts no further.
  void stop(int64_t uptime);
};

/// A member of a profile: the count, or {"count": 12, "perSecond": 3}. Counting begins at `uptime`.
void readMeter(Members &members, std::string_view member, int64_t uptime, Meter *meter);
Json saveMeter(const Meter &meter, int64_t uptime);

}  // namespace gateway
