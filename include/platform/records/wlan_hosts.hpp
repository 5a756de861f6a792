#pragma once

#include "platform/proxy.h"
#include "platform/record.hpp"

namespace platform {

/// A station associated with an SSID.
struct WlanHostEntry : Record<16> {
  static constexpr PlainWord ssidNumber{"ssidNumber", 0};  ///< 1 to 4 are 2.4 GHz, from 5 on 5 GHz
  static constexpr PlainMac mac{"mac", 4};
  static constexpr PlainWord rssi{"rssi", 12};
  static constexpr auto fields = layout(ssidNumber, mac, rssi);
};

}  // namespace platform

/// All associated stations, from ctSgw_wlanGetHostInfo.
struct WlanHostTable : platform::Record<2052> {
  static constexpr platform::PlainWord count{"count", 0};
  /// WlanHostEntry, one after the other.
  static constexpr platform::PlainBytes<2048> entries{"entries", 4};
  static constexpr uint32_t kMaxEntries = 128;
  static constexpr auto fields = layout(count, entries);
};
