// The codes that nearly every handler returns, under short names; the others go by their public
// ones.
#pragma once

#include <cstdint>

#include "platform/import.h"
#include "pmapi/status.h"

namespace pm {

using namespace platform;

inline constexpr int32_t kOk = PM_STATUS_OK;
inline constexpr int32_t kFailure = PM_STATUS_FAILED;
inline constexpr int32_t kNullRecord = PM_STATUS_NULL_RECORD;

/// Writes that the platform accepts, among them those that changed nothing.
constexpr bool appliedOrUnchanged(int32_t status) {
  return status == kOk || status == PLATFORM_NOTHING_CHANGED;
}

}  // namespace pm
