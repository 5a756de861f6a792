#pragma once

#include "platform/record.hpp"
#include "platform/view_ids.h"

namespace platform {

/// How the gateway is connected; one instance, "IGD".
struct NetworkingDeviceView : View<DBVIEW_NETWORKING_DEV_INFO, 2136> {
  static constexpr Word workingMode{"workingMode", 36};        ///< 1 is router mode
  static constexpr Word accessMode{"accessMode", 68};          ///< 1 static IP, 2 PPP, else IP
  static constexpr Text<128> wanInstance{"wanInstance", 100};  ///< the Internet connection
  static constexpr Word uplinkMode{"uplinkMode", 2100};        ///< 2 is a Wi-Fi client
  static constexpr Word ipv6Enable{"ipv6Enable", 2132};
  /// The same word, as those call it who report how the uplink is addressed.
  static constexpr Word netIpMode = ipv6Enable;
  static constexpr auto fields =
      layout(workingMode, accessMode, wanInstance, uplinkMode, ipv6Enable);
};

}  // namespace platform
