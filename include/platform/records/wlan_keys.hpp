#pragma once

#include "platform/record.hpp"
#include "platform/wlan.h"

/// One WEP key of an SSID.
struct WlanWepRecord : platform::Record<96> {
  static constexpr platform::Text<64> key{"key", 28};
  static constexpr auto fields = layout(key);
};

/// The WPA passphrase of an SSID.
struct WlanPskRecord : platform::Record<96> {
  static constexpr platform::Text<64> passphrase{"passphrase", 28};
  static constexpr auto fields = layout(passphrase);
};
