#pragma once

#include "platform/record.hpp"
#include "platform/view_ids.h"

namespace platform {

/// What kind of device the gateway is; one instance, "IGD".
struct DeviceInfoView : View<DBVIEW_DEVICE_INFO, 7760> {
  static constexpr Text<64> vendor{"vendor", 36};
  static constexpr Text<64> model{"model", 172};
  static constexpr Text<64> serialNumber{"serialNumber", 652};
  static constexpr Text<64> firmwareVersion{"firmwareVersion", 940};
  static constexpr Text<64> softwareVersion{"softwareVersion", 1036};
  static constexpr Text<64> deviceType{"deviceType", 4924};
  static constexpr auto fields =
      layout(vendor, model, serialNumber, firmwareVersion, softwareVersion, deviceType);
};

}  // namespace platform
