#pragma once

#include "platform/record.hpp"
#include "platform/view_ids.h"

namespace platform {

/// The IP settings of a WAN connection. The words are copied one by one into WanIpExtRecord; those
/// named staticAddressing only for a connection with static addressing.
struct WanIpConnectionView : View<DBVIEW_WAN_IP_CONN, 808> {
  static constexpr Text<32> name{"name", 36};
  static constexpr Word staticAddressing1{"staticAddressing1", 100};
  static constexpr Word staticAddressing2{"staticAddressing2", 132};
  static constexpr Word staticAddressing3{"staticAddressing3", 164};
  static constexpr Word setting196{"setting196", 196};
  static constexpr Word staticAddressing4{"staticAddressing4", 228};
  static constexpr Word staticAddressing5{"staticAddressing5", 260};
  static constexpr Word staticAddressing6{"staticAddressing6", 292};
  static constexpr Word setting388{"setting388", 388};
  static constexpr auto fields =
      layout(name, staticAddressing1, staticAddressing2, staticAddressing3, setting196,
             staticAddressing4, staticAddressing5, staticAddressing6, setting388);
};

}  // namespace platform
