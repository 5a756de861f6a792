#pragma once

#include "platform/record.hpp"
#include "platform/view_ids.h"

namespace platform {

/// A WAN connection of any kind, found by the services that it carries ("INTERNET").
struct WanConnectionView : View<DBVIEW_WAN_CONN_DEV, 3212> {
  static constexpr Text<32> name{"name", 36};
  static constexpr Text<64> serviceList{"serviceList", 100};
  static constexpr Text<32> interfaceName{"interfaceName", 196};
  static constexpr Mac mac{"mac", 260};
  static constexpr auto fields = layout(name, serviceList, interfaceName, mac);
};

}  // namespace platform
