// The attached devices of the house, on the wire and on Wi-Fi, and what each of them has moved.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "gateway/meter.hpp"
#include "records/addresses.hpp"

namespace gateway {

using namespace records;

/// What an SSID knows of a station. The optional members are held by its row of DBVIEW_WLAN_AD.
struct Association {
  std::string ssid;
  std::optional<int32_t> rssi;
  std::optional<uint32_t> linkRate;
  std::optional<uint32_t> linkRate2;
};

/// The optional members and the IPv6 addresses are held by its row of DBVIEW_ACCESS_DEV.
struct Station {
  MacAddress mac = {};
  uint32_t ipv4 = 0;
  std::vector<Ipv6Address> ipv6;
  std::string hostName;
  std::optional<std::string> vendor;
  uint32_t kind = 0;
  std::string interfaceName;
  bool online = true;
  uint32_t accessType = 0;
  uint32_t linkFlag = 0;
  std::optional<uint32_t> adevValue;
  uint32_t connectedAt = 0;
  std::optional<std::string> lastConnection;
  bool withoutRegister = false;
  std::optional<Association> association;

  Meter bytesSent;
  Meter bytesReceived;
  Meter packetsSent;
  Meter packetsReceived;
};

struct Stations {
  /// In the platform's order. The n-th, from 1, is "IGD.LD1.Hosts.Adev<n>"; none ever goes away.
  std::vector<Station> all;

  Station *byMac(const MacAddress &mac);
  /// nullptr for a path that no station has.
  Station *byPath(std::string_view path);
  /// The station that is associated under this instance of DBVIEW_WLAN_AD.
  Station *byAssociation(std::string_view path);
  std::string pathOf(const Station &station) const;
  /// The instance of the station's association, whether or not there is one.
  std::string associationPathOf(const Station &station) const;

  /// Adds a station, with its rows of DBVIEW_ACCESS_DEV and DBVIEW_WLAN_AD.
  Station &attach(Station station);
  /// Puts a known station on an SSID at the clock's time; it is online from now on.
  void associate(Station &station, Association association);
  /// The station leaves its SSID or its port: it is listed among all, and counts no further.
  void leave(Station &station);
};

Stations &stations();

}  // namespace gateway
