// Codes that several handlers return; a handler's own codes stand in its file.
#pragma once

#include <cstdint>

#include "platform/import.h"

namespace pm {

inline constexpr int32_t kOk = 0;
inline constexpr int32_t kFailure = -1;
inline constexpr int32_t kUnreadable = -8;
inline constexpr int32_t kNullRecord = -257;
inline constexpr int32_t kMalformed = 1001;

/// Writes that the platform accepts, among them those that changed nothing.
constexpr bool appliedOrUnchanged(int32_t status) {
  return status == kOk || status == PLATFORM_NOTHING_CHANGED;
}

}  // namespace pm
