#pragma once

#include "platform/record.hpp"
#include "platform/view_ids.h"

namespace platform {

/// One port or SSID bound to an IPTV VLAN.
struct IptvVlanBindingView : View<DBVIEW_IPTVLANBIND, 168> {
  static constexpr Text<32> name{"name", 36};
  static constexpr Text<32> portPath{"portPath", 100};
  static constexpr Word vlanId{"vlanId", 164};
  static constexpr auto fields = layout(name, portPath, vlanId);
};

}  // namespace platform
