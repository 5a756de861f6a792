#pragma once

#include "platform/record.hpp"
#include "platform/view_ids.h"

namespace platform {

/// An attached device as the database remembers it, "IGD.LD1.Hosts.Adev1" and on.
struct AccessDeviceView : View<DBVIEW_ACCESS_DEV, 2492> {
  static constexpr Text<32> name{"name", 36};
  static constexpr Text<64> vendor{"vendor", 100};
  static constexpr Text<32> lastConnection{"lastConnection", 196};
  static constexpr Word adevValue{"adevValue", 360};
  /// All addresses of the device in one text.
  static constexpr PlainText<1024> ipv6Address{"ipv6Address", 392};
  static constexpr auto fields = layout(name, vendor, lastConnection, adevValue, ipv6Address);
};

}  // namespace platform
