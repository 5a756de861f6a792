#pragma once

#include "platform/record.hpp"
#include "platform/wlan.h"

/// One SSID and the radio under it.
struct WlanConfigRecord : platform::Record<3588> {
  static constexpr platform::Word ssidEnable{"ssidEnable", 28};
  static constexpr platform::Word ssidAdvertisementEnabled{"ssidAdvertisementEnabled", 60};
  static constexpr platform::Word maxAssociateNum{"maxAssociateNum", 92};
  static constexpr platform::Word securityMode{"securityMode", 124};
  static constexpr platform::Word wepKeyLength{"wepKeyLength", 156};  ///< 1 is 64 bit, 2 is 128 bit
  static constexpr platform::Word wepKeyIndex{"wepKeyIndex", 188};
  static constexpr platform::Word wpaEncryption{"wpaEncryption", 220};
  static constexpr platform::Word wpa2Encryption{"wpa2Encryption", 252};
  static constexpr platform::Word saeEnable{"saeEnable", 284};
  static constexpr platform::Word saeProtection{"saeProtection", 316};
  static constexpr platform::Word band{"band", 476};  ///< 0 is 2.4 GHz, 1 is 5 GHz
  static constexpr platform::Word bandwidthCode{"bandwidthCode", 508};
  static constexpr platform::Word radioEnable{"radioEnable", 540};
  static constexpr platform::Word standardCode{"standardCode", 572};
  /// 1 is the highest, 5 the lowest.
  static constexpr platform::Word txPowerLevel{"txPowerLevel", 604};
  static constexpr platform::Word channelMode{"channelMode", 928};  ///< 0 with a fixed channel
  static constexpr platform::Word channel{"channel", 960};
  static constexpr platform::Word restart{"restart", 1020};
  static constexpr platform::Text<32> ssid{"ssid", 1084};
  static constexpr platform::Word bandSteering{"bandSteering", 1148};
  static constexpr auto fields = layout(
      ssidEnable, ssidAdvertisementEnabled, maxAssociateNum, securityMode, wepKeyLength,
      wepKeyIndex, wpaEncryption, wpa2Encryption, saeEnable, saeProtection, band, bandwidthCode,
      radioEnable, standardCode, txPowerLevel, channelMode, channel, restart, ssid, bandSteering);
};
