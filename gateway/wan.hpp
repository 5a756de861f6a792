// The uplink and the WAN connections behind it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/wan.h"

namespace gateway {

using namespace platform;

struct WanConnection {
  std::string instance;
  std::optional<uint32_t> deviceType;
};

struct Wan {
  UpModeInfo uplink = {UP_MODE_ETHERNET, 0};
  /// The kind of WAN device in use; connections of other kinds are not listed.
  uint32_t deviceType = 1;
  /// In the platform's order. Their routes are RouteInfoRecord instances of the same path.
  std::vector<WanConnection> connections;
};

Wan &wan();

}  // namespace gateway
