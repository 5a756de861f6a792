// The access point: two radios with four SSIDs each. Settings stand in the store; what only happens
// is counted here.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "gateway/section.hpp"

namespace gateway {

inline constexpr uint32_t kRadio24G = 0;
inline constexpr uint32_t kRadio5G = 1;

/// The radio that carries an SSID such as "IGD.LD1.WLAN6", or what hangs under it.
uint32_t radioOfSsid(std::string_view path);

/// Where the records of a whole radio stand.
constexpr const char *radioBase(uint32_t radio) {
  return radio == kRadio24G ? "IGD.LD1.WLANBase1" : "IGD.LD1.WLANBase2";
}

class Radios : public Section {
 public:
  Radios() : Section("radios") {}

  /// How often each radio was restarted.
  std::array<uint32_t, 2> restarts = {};

  void load(const Json &value, const std::string &place) override;
  Json save() const override;
  void reset() override { restarts = {}; }
};

Radios &radios();

}  // namespace gateway
