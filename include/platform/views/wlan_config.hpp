#pragma once

#include "platform/record.hpp"
#include "platform/view_ids.h"

namespace platform {

/// The database's side of an SSID.
struct WlanConfigView : View<DBVIEW_WLAN_CONF, 3276> {
  static constexpr Text<32> name{"name", 36};
  static constexpr Word pmf{"pmf", 3016};
  static constexpr auto fields = layout(name, pmf);
};

}  // namespace platform
