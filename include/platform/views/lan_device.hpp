#pragma once

#include "platform/record.hpp"
#include "platform/view_ids.h"

namespace platform {

/// The LAN side as a device, "IGD.LD1".
struct LanDeviceView : View<DBVIEW_LAN_DEVICE, 1556> {
  static constexpr Mac mac{"mac", 876};
  static constexpr auto fields = layout(mac);
};

}  // namespace platform
