// A gateway as one JSON document: "clock", "views", "records", "files", and a member per section.
#pragma once

#include <string>

#include "gateway/json.hpp"

namespace gateway {

class Gateway;

/// Both throw ProfileError.
Json readProfile(const std::string &fileName);
void loadProfile(Gateway &gateway, const Json &profile);

Json saveProfile(Gateway &gateway);

}  // namespace gateway
