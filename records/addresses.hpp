// Addresses and hexadecimal texts, as the platform and the profiles write them.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace records {

using MacAddress = std::array<uint8_t, 6>;
using Ipv6Address = std::array<uint8_t, 16>;

/// Pairs of digits without separators.
std::optional<std::vector<uint8_t>> parseHex(std::string_view text);
std::string printHex(const std::vector<uint8_t> &bytes);

/// Twelve digits, or six pairs with ":".
std::optional<MacAddress> parseMac(std::string_view text);
/// "00:1a:2b:3c:4d:5e"
std::string printMac(const MacAddress &mac);

/// The first octet is the most significant byte.
std::optional<uint32_t> parseIpv4(const std::string &text);
std::string printIpv4(uint32_t address);

std::optional<Ipv6Address> parseIpv6(const std::string &text);
std::string printIpv6(const Ipv6Address &address);

}  // namespace records
