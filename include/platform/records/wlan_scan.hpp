#pragma once

#include "platform/record.hpp"
#include "platform/wlan.h"

/// How to scan. The settings have no known meaning; a whole scan has -1 and 0.
struct WlanScanRequest : platform::Record<64> {
  static constexpr platform::Word setting1{"setting1", 28};
  static constexpr platform::Word setting2{"setting2", 60};
  static constexpr auto fields = layout(setting1, setting2);
};

namespace platform {

/// An access point that a scan has heard.
struct WlanApEntry : Record<124> {
  static constexpr PlainText<32> ssid{"ssid", 0};
  static constexpr PlainWord channel{"channel", 36};
  static constexpr PlainMac bssid{"bssid", 40};
  static constexpr PlainWord rssi{"rssi", 52};
  static constexpr PlainWord securityMode{"securityMode", 100};
  static constexpr PlainWord encryption{"encryption", 104};
  static constexpr auto fields = layout(ssid, channel, bssid, rssi, securityMode, encryption);
};

}  // namespace platform

/// The access points of a scan; the caller sets the first word to -1.
struct WlanApList : platform::Record<31756> {
  static constexpr platform::PlainWord selector{"selector", 0};
  static constexpr platform::PlainWord count{"count", 8};
  /// WlanApEntry, one after the other.
  static constexpr platform::PlainBytes<31744> entries{"entries", 12};
  static constexpr uint32_t kMaxEntries = 256;
  static constexpr auto fields = layout(selector, count, entries);
};

/// The access point to join as a client.
struct WlanSelectRecord : platform::Record<196> {
  static constexpr platform::Mac bssid{"bssid", 28};
  static constexpr platform::Word securityMode{"securityMode", 64};
  static constexpr platform::Word channel{"channel", 96};
  static constexpr platform::Text<64> passphrase{"passphrase", 128};
  static constexpr auto fields = layout(bssid, securityMode, channel, passphrase);
};
