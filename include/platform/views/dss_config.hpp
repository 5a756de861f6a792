#pragma once

#include "platform/record.hpp"
#include "platform/view_ids.h"

namespace platform {

/// How a WAN connection obtains its IPv6 prefix.
struct DssConfigView : View<DBVIEW_DSS_CFG, 1224> {
  static constexpr Text<32> name{"name", 36};
  static constexpr Text<32> wanInstance{"wanInstance", 100};
  static constexpr Word prefixMode{"prefixMode", 164};
  static constexpr auto fields = layout(name, wanInstance, prefixMode);
};

}  // namespace platform
