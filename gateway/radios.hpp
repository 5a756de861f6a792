// The access point: two radios with four SSIDs each. Settings stand in the store; what only happens
// is counted here.
#pragma once

#include <cstdint>
#include <string_view>

#include "platform/codes.hpp"

namespace gateway {

/// The radio that carries an SSID such as "IGD.LD1.WLAN6", or what hangs under it.
uint32_t radioOfSsid(std::string_view path);

/// Where the records of a whole radio stand.
constexpr const char *radioBase(uint32_t radio) {
  return radio == platform::kBand24G ? "IGD.LD1.WLANBase1" : "IGD.LD1.WLANBase2";
}

/// A number for each radio.
struct RadioCounts {
  uint32_t of[2] = {};
};

struct Radios {
  RadioCounts restarts;
};

Radios &radios();

}  // namespace gateway
