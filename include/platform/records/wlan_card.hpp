#pragma once

#include "platform/record.hpp"
#include "platform/wlan.h"

/// The Wi-Fi cards; a gateway with one has no 5 GHz radio.
struct WlanCardRecord : platform::Record<32> {
  static constexpr platform::PlainWord cardCount{"cardCount", 0};
  static constexpr auto fields = layout(cardCount);
};
