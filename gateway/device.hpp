// The gateway as a device: what restarted, what was restored, its LEDs and its locks.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "gateway/section.hpp"

namespace gateway {

struct Restore {
  uint32_t kind;
  uint32_t a;
  uint32_t b;
  uint32_t c;
};

class Device : public Section {
 public:
  static constexpr uint32_t kLeds = 16;

  Device() : Section("device") {}

  /// Reasons of the restarts, oldest first.
  std::vector<uint32_t> restarts;
  std::vector<Restore> restores;
  /// By number; what is not here is off.
  std::map<uint32_t, uint32_t> leds;
  uint32_t hwnatCleanings = 0;

  void load(const Json &value, const std::string &place) override;
  Json save() const override;
  void reset() override;
};

Device &device();

}  // namespace gateway
