#pragma once

#include "platform/record.hpp"
#include "platform/view_ids.h"

namespace platform {

/// One Ethernet interface of the LAN, found by its name.
struct LanInfoView : View<DBVIEW_LANINFO, 684> {
  static constexpr Text<32> name{"name", 36};
  static constexpr Text<16> interfaceName{"interfaceName", 100};
  static constexpr Text<16> speed{"speed", 276};  ///< "10Mbps", "100Mbps", "1000Mbps"
  static constexpr auto fields = layout(name, interfaceName, speed);
};

}  // namespace platform
