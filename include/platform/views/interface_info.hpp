#pragma once

#include "platform/record.hpp"
#include "platform/view_ids.h"

namespace platform {

/// A network interface, found by the id of what it belongs to, such as a WAN instance.
struct InterfaceInfoView : View<DBVIEW_INTERFACE_INFO, 808> {
  static constexpr Text<32> name{"name", 36};
  static constexpr Text<32> interfaceId{"interfaceId", 100};
  static constexpr Text<128> interfaceName{"interfaceName", 676};
  static constexpr auto fields = layout(name, interfaceId, interfaceName);
};

}  // namespace platform
