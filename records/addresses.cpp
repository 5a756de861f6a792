#include "records/addresses.hpp"

#include <arpa/inet.h>

#include <algorithm>
#include <charconv>

namespace records {

namespace {

constexpr std::string_view kDigits = "0123456789abcdef";

}  // namespace

std::optional<std::vector<uint8_t>> parseHex(std::string_view text) {
  if (text.size() % 2 != 0) return std::nullopt;
  std::vector<uint8_t> bytes;
  for (size_t i = 0; i < text.size(); i += 2) {
    uint8_t byte = 0;
    const char *end = text.data() + i + 2;
    const auto [stop, error] = std::from_chars(text.data() + i, end, byte, 16);
    if (error != std::errc() || stop != end) return std::nullopt;
    bytes.push_back(byte);
  }
  return bytes;
}

std::string printHex(const std::vector<uint8_t> &bytes) {
  std::string text;
  for (const uint8_t byte : bytes) {
    text += kDigits[byte >> 4];
    text += kDigits[byte & 0xf];
  }
  return text;
}

std::optional<MacAddress> parseMac(std::string_view text) {
  std::string digits(text);
  if (text.size() == 17) {
    for (size_t i = 2; i < text.size(); i += 3) {
      if (text[i] != ':') return std::nullopt;
    }
    std::erase(digits, ':');
  }
  const std::optional<std::vector<uint8_t>> bytes = parseHex(digits);
  MacAddress mac;
  if (!bytes || bytes->size() != mac.size()) return std::nullopt;
  std::copy(bytes->begin(), bytes->end(), mac.begin());
  return mac;
}

std::string printMac(const MacAddress &mac) {
  std::string text = printHex({mac.begin(), mac.end()});
  for (size_t i = 10; i > 0; i -= 2) text.insert(i, ":");
  return text;
}

std::optional<uint32_t> parseIpv4(const std::string &text) {
  in_addr address;
  if (inet_pton(AF_INET, text.c_str(), &address) != 1) return std::nullopt;
  return ntohl(address.s_addr);
}

std::string printIpv4(uint32_t address) {
  const in_addr network{htonl(address)};
  char text[INET_ADDRSTRLEN];
  return inet_ntop(AF_INET, &network, text, sizeof text);
}

std::optional<Ipv6Address> parseIpv6(const std::string &text) {
  Ipv6Address address;
  if (inet_pton(AF_INET6, text.c_str(), address.data()) != 1) return std::nullopt;
  return address;
}

std::string printIpv6(const Ipv6Address &address) {
  char text[INET6_ADDRSTRLEN];
  return inet_ntop(AF_INET6, address.data(), text, sizeof text);
}

}  // namespace records
