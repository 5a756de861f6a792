#pragma once

#include "platform/record.hpp"
#include "platform/view_ids.h"

namespace platform {

/// The IPv6 prefix of a WAN connection.
struct PrefixConfigView : View<DBVIEW_PREFIX_CFG, 652> {
  static constexpr Text<32> name{"name", 36};
  static constexpr Text<32> wanInstance{"wanInstance", 100};
  static constexpr Word prefixOrigin{"prefixOrigin", 164};  ///< 1 and 3 static, 2 delegated
  static constexpr Bytes<16> prefix{"prefix", 196};
  static constexpr Word prefixLength{"prefixLength", 240};
  static constexpr auto fields = layout(name, wanInstance, prefixOrigin, prefix, prefixLength);
};

}  // namespace platform
