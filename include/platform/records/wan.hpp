#pragma once

#include "platform/record.hpp"

namespace platform {

/// The kind of WAN device in use, from pm_e8_wanc_get_current_wandtype.
struct WanDeviceTypeRecord : Record<32> {
  static constexpr Word wanDeviceType{"wanDeviceType", 28};
  static constexpr auto fields = layout(wanDeviceType);
};

/// What pm_upmode_info_get fills, in the room that pm_upmode_info_set asks for.
struct UpModeBlock : Record<512> {
  static constexpr PlainWord mode{"mode", 0};
  static constexpr PlainWord port{"port", 4};
  static constexpr auto fields = layout(mode, port);
};

}  // namespace platform
