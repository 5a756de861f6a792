#pragma once

#include "platform/record.hpp"
#include "platform/view_ids.h"

namespace platform {

/// The firewall as a whole, "IGD.FWBASE".
struct FirewallBaseView : View<DBVIEW_FW_BASE, 680> {
  static constexpr Word lockStatus{"lockStatus", 228};
  static constexpr auto fields = layout(lockStatus);
};

}  // namespace platform
