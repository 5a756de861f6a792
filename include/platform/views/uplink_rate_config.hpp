#pragma once

#include "platform/record.hpp"
#include "platform/view_ids.h"

namespace platform {

/// Rate sampling of one interface, as texts; the interface name is the instance.
struct UplinkRateConfigView : View<DBVIEW_UPLINKRATE_CONFIG, 264> {
  static constexpr Text<32> name{"name", 36};
  static constexpr Text<32> interfaceName{"interfaceName", 100};
  static constexpr Text<32> reportInterval{"reportInterval", 164};
  static constexpr Text<32> sampleInterval{"sampleInterval", 228};
  static constexpr auto fields = layout(name, interfaceName, reportInterval, sampleInterval);
};

}  // namespace platform
