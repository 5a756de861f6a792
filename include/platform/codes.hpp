// The platform's codes: numbers in its records, and the words for them. Library, profiles and
// listings read the same tables; where two rows have one number or one beginning, the first counts.
#pragma once

#include "platform/layout.hpp"

namespace platform {

inline constexpr Code kSwitch[] = {{0, "off"}, {1, "on"}};

inline constexpr uint32_t kBand24G = 0;
inline constexpr uint32_t kBand5G = 1;
inline constexpr Code kBands[] = {{kBand24G, "2.4G"}, {kBand5G, "5G"}};

inline constexpr Code kStandards[] = {
    {1, "802.11a"},  {2, "802.11b"},   {3, "802.11bg"},    {4, "802.11n"},   {5, "802.11g"},
    {6, "802.11gn"}, {7, "802.11bgn"}, {9, "802.11bgnax"}, {13, "802.11ac"}, {14, "802.11ax"}};

inline constexpr uint32_t kSecurityNone = 0;
inline constexpr uint32_t kSecurityWep = 1;
inline constexpr uint32_t kSecurityWpa = 2;
inline constexpr uint32_t kSecurityWpa2 = 3;
inline constexpr uint32_t kSecurityWpaWpa2 = 6;
inline constexpr uint32_t kSecurityWpa3 = 10;
inline constexpr uint32_t kSecurityWpa2Wpa3 = 11;
/// One code serves both lengths of WEP keys, the shorter one first: they are told apart by another
/// field.
inline constexpr Code kSecurityModes[] = {
    {kSecurityNone, "None"},          {kSecurityWep, "WEP-64"},
    {kSecurityWep, "WEP-128"},        {kSecurityWpa, "WPA-Personal"},
    {kSecurityWpa2, "WPA2-Personal"}, {kSecurityWpaWpa2, "MIXED-WPAPSK2"},
    {kSecurityWpa3, "WPA3-SAE"},      {kSecurityWpa2Wpa3, "MIXED-WPA2WPA3"}};
inline constexpr uint32_t kWep64Bit = 1;
inline constexpr uint32_t kWep128Bit = 2;
inline constexpr Code kWepKeyLengths[] = {{kWep64Bit, "64 bit"}, {kWep128Bit, "128 bit"}};

// The platform says nothing of these but their order, so they bear the daemon's numbers.
inline constexpr Code kCiphers[] = {{0, "cipher 2", 2}, {1, "cipher 1", 1}, {2, "cipher 3", 3}};
inline constexpr Code kBandwidths[] = {{0, "width 1", 1}, {1, "width 2", 2}, {2, "width 0", 0}};

inline constexpr Code kDeviceKinds[] = {{0, "other"}, {1, "phone"}, {2, "pad"}, {3, "pc"},
                                        {4, "stb"},   {5, "ap"},    {6, "iot"}};

inline constexpr Code kPortRates[] = {
    {0, "10Mbps"}, {1, "100Mbps"}, {2, "1000Mbps"}, {3, "10000Mbps"}};
inline constexpr Code kUplinkSpeeds[] = {{0, "10"}, {1, "100"}, {2, "1000"}};

inline constexpr Code kUplinkModes[] = {{1, "Ethernet"}, {512, "WLAN"}};

inline constexpr uint32_t kRouterMode = 1;
inline constexpr uint32_t kStaticAccess = 1;
inline constexpr uint32_t kPppAccess = 2;
inline constexpr Code kAccessModes[] = {{kStaticAccess, "static IP"}, {kPppAccess, "PPP"}};
inline constexpr uint32_t kWlanClientUplink = 2;
inline constexpr uint32_t kIpv4Only = 1;
inline constexpr uint32_t kIpv6Only = 2;
inline constexpr uint32_t kDualStack = 3;
inline constexpr Code kAddressModes[] = {
    {kIpv4Only, "IPv4"}, {kIpv6Only, "IPv6"}, {kDualStack, "IPv4 and IPv6"}};
inline constexpr uint32_t kRouteConnected = 2;
inline constexpr Code kConnectionStates[] = {{kRouteConnected, "Connected"}};
inline constexpr Code kAddressOrigins[] = {{1, "AutoConfigured"}, {2, "Static"}, {3, "DHCPv6"}};
inline constexpr Code kPrefixOrigins[] = {{1, "Static"}, {2, "PrefixDelegation"}, {3, "Static"}};

inline constexpr uint32_t kWhiteList = 1;
inline constexpr Code kFilterPolicies[] = {{0, "black list"}, {kWhiteList, "white list"}};

inline constexpr uint32_t kAddTimer = 0;
inline constexpr uint32_t kDeleteTimer = 1;
inline constexpr Code kTimerOperations[] = {{kAddTimer, "add or replace"},
                                            {kDeleteTimer, "delete"}};
inline constexpr uint8_t kStartEdge = 0;
inline constexpr uint8_t kEndEdge = 1;
inline constexpr Code kTimerEdges[] = {{kStartEdge, "start"}, {kEndEdge, "end"}};

}  // namespace platform
