#pragma once

#include "platform/record.hpp"
#include "platform/wlan.h"

/// A WPS run.
struct WlanWpsRecord : platform::Record<32> {
  static constexpr platform::Word start{"start", 28};
  static constexpr auto fields = layout(start);
};
