#pragma once

#include "platform/record.hpp"

namespace platform {

/// The switches of the firewall.
struct FirewallBaseRecord : Record<640> {
  static constexpr Word macFilterPolicy{"macFilterPolicy", 60};  ///< 0 black list, 1 white list
  static constexpr Byte macFilterEnable{"macFilterEnable", 92};
  static constexpr auto fields = layout(macFilterPolicy, macFilterEnable);
};

}  // namespace platform
