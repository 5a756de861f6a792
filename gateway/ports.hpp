// The Ethernet ports of the box and what is plugged into them.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "gateway/section.hpp"
#include "gateway/store.hpp"

namespace gateway {

struct Port {
  uint32_t number = 0;
  std::string instance;
  /// By which the platform knows the port's MAC.
  uint32_t macParameterId = 0;
  MacAddress mac = {};
  uint32_t linkState = 0;
  uint32_t rateCode = 0;
};

class Ports : public Section {
 public:
  Ports() : Section("ports") {}

  std::vector<Port> all;

  /// nullptr for a number beyond the box.
  Port *byNumber(uint32_t number);
  Port *byInstance(const std::string &instance);

  void load(const Json &value, const std::string &place) override;
  Json save() const override;
  void reset() override { all.clear(); }
};

Ports &ports();

}  // namespace gateway
