#pragma once

#include "platform/record.hpp"
#include "platform/wlan.h"

/// Roaming and band steering share these settings. Thresholds are signed, in dBm.
struct WlanBandSteeringRecord : platform::Record<96> {
  static constexpr platform::Word steeringEnable{"steeringEnable", 28};
  static constexpr platform::Word lowRssi24G{"lowRssi24G", 60};
  static constexpr platform::Word lowRssi5G{"lowRssi5G", 92};
  static constexpr auto fields = layout(steeringEnable, lowRssi24G, lowRssi5G);
};
