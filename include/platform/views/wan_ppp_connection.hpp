#pragma once

#include "platform/record.hpp"
#include "platform/view_ids.h"

namespace platform {

/// The PPP settings of a WAN connection; the words are copied one by one into WanPppExtRecord.
struct WanPppConnectionView : View<DBVIEW_WAN_PPP_CONN, 1800> {
  static constexpr Text<32> name{"name", 36};
  static constexpr Text<64> userName{"userName", 100};
  static constexpr Text<64> password{"password", 196};
  static constexpr Word setting324{"setting324", 324};
  static constexpr Word setting484{"setting484", 484};
  static constexpr Word setting1220{"setting1220", 1220};
  static constexpr auto fields =
      layout(name, userName, password, setting324, setting484, setting1220);
};

}  // namespace platform
