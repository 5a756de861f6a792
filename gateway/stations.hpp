// The attached devices of the house, on the wire and on Wi-Fi, and what each of them has moved.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "gateway/meter.hpp"
#include "gateway/section.hpp"
#include "records/addresses.hpp"

namespace gateway {

using namespace records;

class Gateway;

/// What an SSID knows of a station; its row of DBVIEW_WLAN_AD has the same.
struct Association {
  std::string ssid;
  int32_t rssi = 0;
  uint32_t linkRate = 0;  /**< kbit/s */
  uint32_t linkRate2 = 0; /**< kbit/s */
};

struct Station {
  MacAddress mac = {};
  uint32_t ipv4 = 0;
  std::vector<std::string> ipv6;
  std::string hostName;
  std::string vendor;
  /// 1 to 6: phone, pad, pc, stb, ap, iot; 0 is none of them.
  uint32_t kind = 0;
  std::string interfaceName;
  bool online = true;
  uint32_t accessType = 0;
  uint32_t linkFlag = 0;
  uint32_t adevValue = 0;
  /// Uptime of the gateway when it came, and the same as the database words it.
  uint32_t connectedAt = 0;
  std::string lastConnection;
  /// The hardware has no register left to count this one.
  bool withoutRegister = false;
  std::optional<Association> association;

  Meter bytesSent;
  Meter bytesReceived;
  Meter packetsSent;
  Meter packetsReceived;
};

class Stations : public Section {
 public:
  Stations() : Section("stations") {}

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
  Station &attach(Gateway &gateway, Station station);
  /// Puts a known station on an SSID at the clock's time; it is online from now on.
  void associate(Gateway &gateway, Station &station, Association association);
  /// The station leaves its SSID or its port: it is listed among all, and counts no further.
  void leave(Gateway &gateway, Station &station);

  void load(const Json &value, const std::string &place) override;
  Json save() const override;
  void reset() override { all.clear(); }

 private:
  void writeRows(Gateway &gateway, const Station &station);
};

Stations &stations();

}  // namespace gateway
