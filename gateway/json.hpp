// Profiles keep the order in which their author wrote them: it is the order of WAN connections,
// stations and rules.
#pragma once

#include <nlohmann/json_fwd.hpp>
#include <stdexcept>
#include <string>

namespace gateway {

using Json = nlohmann::ordered_json;

/// A profile that cannot be: what() is "PLACE: REASON" on one line.
class ProfileError : public std::runtime_error {
 public:
  ProfileError(const std::string &place, const std::string &reason)
      : std::runtime_error(place.empty() ? reason : place + ": " + reason) {}
};

}  // namespace gateway
