#pragma once

#include "platform/record.hpp"

namespace platform {

/// Settings of the device log.
struct LogConfigRecord : Record<160> {
  static constexpr Word logEnable{"logEnable", 28};
  static constexpr Word logLevel{"logLevel", 60};
  static constexpr Word logParam{"logParam", 156};
  static constexpr auto fields = layout(logEnable, logLevel, logParam);
};

}  // namespace platform
