#pragma once

#include "platform/record.hpp"
#include "platform/wlan.h"

/// Figures and counters of the driver for one SSID.
struct WlanDriverRecord : platform::Record<328> {
  static constexpr platform::Word noiseLevel{"noiseLevel", 28};  ///< signed, dBm
  static constexpr platform::Word interferencePercent{"interferencePercent", 60};
  static constexpr platform::Counter totalBytesSent{"totalBytesSent", 92};
  static constexpr platform::Counter totalBytesReceived{"totalBytesReceived", 128};
  static constexpr platform::Word totalPacketsSent{"totalPacketsSent", 164};
  static constexpr platform::Word totalPacketsReceived{"totalPacketsReceived", 196};
  static constexpr platform::Word errorsSent{"errorsSent", 228};
  static constexpr platform::Word errorsReceived{"errorsReceived", 260};
  static constexpr platform::Word discardPacketsSent{"discardPacketsSent", 292};
  static constexpr platform::Word discardPacketsReceived{"discardPacketsReceived", 324};
  static constexpr auto fields = layout(
      noiseLevel, interferencePercent, totalBytesSent, totalBytesReceived, totalPacketsSent,
      totalPacketsReceived, errorsSent, errorsReceived, discardPacketsSent, discardPacketsReceived);
};
