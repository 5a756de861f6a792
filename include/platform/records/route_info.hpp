#pragma once

#include "platform/record.hpp"

namespace platform {

/// The route of one WAN connection, from plib_ifs_get_routeif_info. The IPv4 address has its first
/// octet in the most significant byte.
struct RouteInfoRecord : Record<1340> {
  static constexpr PlainWord flags{"flags", 296};  ///< bit 0: the route is usable
  static constexpr PlainWord wanType{"wanType", 312};
  static constexpr PlainWord addressMode{"addressMode", 340};  ///< 1 IPv4, 2 IPv6, 3 both
  static constexpr PlainWord isInternet1{"isInternet1", 344};
  static constexpr PlainWord ipv4Address{"ipv4Address", 348};
  static constexpr PlainWord isInternet2{"isInternet2", 376};
  static constexpr PlainBytes<16> ipv6Address{"ipv6Address", 396};
  static constexpr auto fields =
      layout(flags, wanType, addressMode, isInternet1, ipv4Address, isInternet2, ipv6Address);
};

}  // namespace platform
