// What the catalogue holds, for people and for programs.
#pragma once

#include <string>

#include "tools/catalogue/json.hpp"

namespace command {

/// Names of objects; `verbose` adds methods with their functions, arguments and answers.
std::string listing(const std::string &onlyObject, bool verbose);

Json listingAsJson(const std::string &onlyObject);

}  // namespace command
