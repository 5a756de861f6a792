// What every method of the catalogue can be asked for.
#pragma once

#include <nlohmann/json.hpp>

#include "tools/catalogue/method.hpp"

namespace gateway::testing {

/// Arguments with which the method gets as far as it can on the home router's profile.
command::Json argumentsOf(const command::Method &method);

/// Arguments that take another way through the method; null where there is none.
command::Json otherArgumentsOf(const command::Method &method);

}  // namespace gateway::testing
