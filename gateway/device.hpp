// The gateway as a device: what restarted, what was restored, its LEDs and its locks.
#pragma once

#include <cstdint>
#include <vector>

#include "gateway/section.hpp"

namespace gateway {

struct Restore {
  uint32_t kind = 0;
  uint32_t a = 0;
  uint32_t b = 0;
  uint32_t c = 0;
};

struct Led {
  uint32_t number = 0;
  uint32_t state = 0;
};

struct Device {
  std::vector<uint32_t> restarts;
  std::vector<Restore> restores;
  /// What is not here is off.
  std::vector<Led> leds;
  uint32_t hwnatCleanings = 0;
};

Device &device();

}  // namespace gateway
