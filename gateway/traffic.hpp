// What the uplink has moved: per interface, and per port of the switch.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "gateway/meter.hpp"
#include "gateway/section.hpp"

namespace gateway {

struct InterfaceTraffic {
  std::string name;
  Meter tx;
  Meter rx;
};

/// The counters in the order of their offsets in PortStatisticsRecord.
struct PortTraffic {
  std::string instance;
  std::array<Meter, 8> counters;
};

class UplinkTraffic : public Section {
 public:
  UplinkTraffic() : Section("traffic") {}

  std::vector<InterfaceTraffic> interfaces;
  std::vector<PortTraffic> ports;

  void load(const Json &value, const std::string &place) override;
  Json save() const override;
  void reset() override;
};

UplinkTraffic &uplinkTraffic();

}  // namespace gateway
