// Other access points: those around the gateway, what each radio's last scan heard of them, and the
// one that the gateway is a client of.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "records/addresses.hpp"

namespace gateway {

using namespace records;

struct AccessPoint {
  std::string ssid;
  MacAddress bssid = {};
  uint32_t channel = 0;
  int8_t rssi = 0;
  uint32_t securityMode = 0;
  uint32_t encryption = 0;
  std::string passphrase;
};

/// What one radio can hear, and what it heard.
struct Air {
  std::vector<AccessPoint> accessPoints;
  /// A platform that miscounts: what it says instead of the number it lists.
  std::optional<int32_t> reportedCount;
  std::vector<AccessPoint> heard;
  /// Uptime at which the last scan has its result; none before the first scan.
  std::optional<int64_t> scannedAt;
};

struct JoinedNetwork {
  uint32_t radio = 0;
  std::string ssid;
  MacAddress bssid = {};
};

// Its implicit copy runs over the array.
// NOLINTNEXTLINE(readability-identifier-naming)
struct Scans {
  /// Seconds until a scan has its result.
  static constexpr int64_t kDuration = 4;

  Air radios[2];
  std::optional<JoinedNetwork> joined;
};

Scans &scans();

}  // namespace gateway
