// The uplink and the WAN connections behind it.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "gateway/section.hpp"
#include "platform/wan.h"

namespace gateway {

using namespace platform;

struct WanConnection {
  std::string instance;
  uint32_t deviceType;
};

class Wan : public Section {
 public:
  Wan() : Section("wan") {}

  UpModeInfo uplink = {UP_MODE_ETHERNET, 0};
  /// The kind of WAN device in use; connections of other kinds are not listed.
  uint32_t deviceType = 1;
  /// In the platform's order. Their routes are RouteInfoRecord instances of the same path.
  std::vector<WanConnection> connections;

  void load(const Json &value, const std::string &place) override;
  Json save() const override;
  void reset() override;
};

Wan &wan();

}  // namespace gateway
