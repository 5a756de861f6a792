// What has been moved: per interface, and per port of the switch.
#pragma once

#include <string>
#include <vector>

#include "gateway/meter.hpp"

namespace gateway {

struct InterfaceTraffic {
  std::string name;
  Meter tx;
  Meter rx;
};

struct PortTraffic {
  std::string instance;
  /// In the order of their offsets in PortStatisticsRecord.
  Meter counters[8];
};

struct Traffic {
  std::vector<InterfaceTraffic> interfaces;
  std::vector<PortTraffic> ports;
};

Traffic &traffic();

}  // namespace gateway
