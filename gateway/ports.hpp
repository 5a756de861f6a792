// The Ethernet ports of the box and what is plugged into them.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "records/addresses.hpp"

namespace gateway {

using namespace records;

/// The optional members are held by the port's row of DBVIEW_ETH_PORTCONF.
struct Port {
  uint32_t number = 0;
  std::string instance;
  std::optional<uint32_t> macParameterId;
  MacAddress mac = {};
  uint32_t linkState = 0;
  std::optional<uint32_t> rateCode;
};

struct Ports {
  std::vector<Port> all;

  /// nullptr for a number beyond the box.
  Port *byNumber(uint32_t number);
  Port *byInstance(std::string_view instance);
};

Ports &ports();

}  // namespace gateway
