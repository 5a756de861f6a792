#pragma once

#include "platform/record.hpp"
#include "platform/view_ids.h"

namespace platform {

/// The interface through which the gateway is a client of another access point. All four flags are
/// set once it has joined one.
struct WlanClientView : View<DBVIEW_WLAN_APCLI, 200> {
  static constexpr Text<32> name{"name", 36};
  static constexpr Word clientFlag1{"clientFlag1", 100};
  static constexpr Word clientFlag2{"clientFlag2", 132};
  static constexpr Word clientFlag3{"clientFlag3", 164};
  static constexpr Word clientFlag4{"clientFlag4", 196};
  static constexpr auto fields = layout(name, clientFlag1, clientFlag2, clientFlag3, clientFlag4);
};

}  // namespace platform
