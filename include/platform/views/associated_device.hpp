#pragma once

#include "platform/record.hpp"
#include "platform/view_ids.h"

namespace platform {

/// A station associated with an SSID, found by its MAC.
struct AssociatedDeviceView : View<DBVIEW_WLAN_AD, 1664> {
  /// What pm_wlan_get_ad and pm_wlan_del_ad take.
  static constexpr Text<32> name{"name", 36};
  static constexpr Text<32> ssidInstance{"ssidInstance", 100};
  static constexpr Mac mac{"mac", 164};
  static constexpr Word rssi{"rssi", 1300};
  static constexpr Word linkRate2{"linkRate2", 1364};  ///< kbit/s
  static constexpr Word linkRate{"linkRate", 1396};    ///< kbit/s
  static constexpr auto fields = layout(name, ssidInstance, mac, rssi, linkRate2, linkRate);
};

}  // namespace platform
