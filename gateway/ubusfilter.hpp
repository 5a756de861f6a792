// The packet filter's chain "ubusfilter" for IPv4 and IPv6, as iptables and ip6tables change it.
#pragma once

#include <string>
#include <vector>

#include "gateway/section.hpp"

namespace gateway {

/// Packets of one device with a keyword in their URL. Without a target they are only counted.
struct FilterRule {
  std::string mac;
  std::string urlKey;
  std::string target;

  bool operator==(const FilterRule &) const = default;
};

struct Ubusfilter {
  /// The chain is made by whoever sets up the firewall; without it every command fails. A profile
  /// that names it has it.
  bool exists = false;
  std::vector<FilterRule> ipv4;
  std::vector<FilterRule> ipv6;
};

Ubusfilter &ubusfilter();

}  // namespace gateway
