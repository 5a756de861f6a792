#pragma once

#include "platform/record.hpp"
#include "platform/view_ids.h"

namespace platform {

/// IPv6 routing state of a WAN connection.
struct RouteInterfaceView : View<DBVIEW_ROUTE_IF, 2208> {
  static constexpr Text<32> name{"name", 36};
  static constexpr Text<32> wanInstance{"wanInstance", 100};
  static constexpr Bytes<16> ipv6Address{"ipv6Address", 164};
  static constexpr Bytes<16> ipv6Gateway{"ipv6Gateway", 208};
  static constexpr Word connectionState{"connectionState", 2204};  ///< 2 is connected
  static constexpr auto fields =
      layout(name, wanInstance, ipv6Address, ipv6Gateway, connectionState);
};

}  // namespace platform
