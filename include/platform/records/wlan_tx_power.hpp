#pragma once

#include "platform/record.hpp"
#include "platform/wlan.h"

/// Transmit power of one radio, in percent as text.
struct WlanTxPowerRecord : platform::Record<72> {
  static constexpr platform::Text<8> txPower{"txPower", 28};
  static constexpr platform::Word band{"band", 68};
  static constexpr auto fields = layout(txPower, band);
};
