#pragma once

#include "platform/record.hpp"

namespace platform {

/// The PPPoE account of the WAN connection.
struct PppoeAccountRecord : Record<192> {
  static constexpr Text<64> userName{"userName", 28};
  static constexpr Text<64> password{"password", 124};
  static constexpr auto fields = layout(userName, password);
};

}  // namespace platform
