// Counters that grow with the gateway's clock.
#pragma once

#include <cstdint>

#include "platform/layout.hpp"
#include "records/shape.hpp"

namespace gateway {

/// In a profile the count alone, or {"count": 12, "perSecond": 3}.
struct Meter {
  uint64_t count = 0;
  uint32_t perSecond = 0;
  /// The uptime at which `count` stood.
  int64_t since = 0;

  /// What is counted now.
  uint64_t now() const;
  /// Brings `count` up to now.
  void settle();
  /// Keeps what was counted and counts no further.
  void stop();
};

/// A meter that a profile gave counts from now on.
void begin(Meter &meter);

}  // namespace gateway

PM_RECORD_AS(true, gateway::Meter, PM_FIELD(count).means("what was counted so far"),
             PM_FIELD(perSecond).means("what is added as the clock moves"));
