#pragma once

#include "platform/record.hpp"
#include "platform/wlan.h"

/// Collection of channel state information on one radio.
struct WlanCsiRecord : platform::Record<160> {
  static constexpr platform::Text<32> radioName{"radioName", 28};
  static constexpr platform::Word csiEnable{"csiEnable", 92};
  static constexpr platform::Word csiParam1{"csiParam1", 124};
  static constexpr platform::Word csiParam2{"csiParam2", 156};
  static constexpr auto fields = layout(radioName, csiEnable, csiParam1, csiParam2);
};

/// A station whose channel state is collected.
struct WlanCsiMacRecord : platform::Record<64> {
  static constexpr platform::Text<32> macText{"macText", 28};  ///< twelve hexadecimal digits
  static constexpr auto fields = layout(macText);
};
