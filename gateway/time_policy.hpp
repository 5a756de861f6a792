// What the module "time_policy" was told.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "gateway/section.hpp"

namespace gateway {

/// A wish to hear when a policy begins and ends.
struct PolicyRegistration {
  uint32_t instance = 0;
  uint32_t limitMode = 0;
  std::string signal;
  uint32_t signalNumber = 0;
};

/// A policy as it was written.
struct PolicyNotice {
  uint32_t instance = 0;
  std::string week;
  uint32_t startTime = 0;
  uint32_t endTime = 0;
};

/// Both lists grow with each message; the newest is the last.
struct TimePolicy {
  std::vector<PolicyRegistration> registrations;
  std::vector<PolicyNotice> notices;
};

TimePolicy &timePolicy();

}  // namespace gateway
