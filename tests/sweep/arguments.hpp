// What every method of the catalogue can be asked for.
#pragma once

#include <nlohmann/json.hpp>

#include "catalogue/method.hpp"

namespace gateway::testing {

/// Arguments with which the method gets as far as it can on the home router's profile.
records::Json argumentsOf(const catalogue::Method &method);

/// Arguments that take another way through the method; null where there is none.
records::Json otherArgumentsOf(const catalogue::Method &method);

}  // namespace gateway::testing
