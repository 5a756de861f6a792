// The numbers by which the four lists of rate samples are told apart.
#pragma once

namespace pm {

enum ListMode { kStationIpv4 = 1, kStationIpv6 = 2, kUplinkIpv4 = 3, kUplinkIpv6 = 4 };

}  // namespace pm
