// What the catalogue holds, for people and for programs.
#pragma once

#include <string>

#include "records/json.hpp"

namespace command {

using namespace records;

/// Names of objects; `verbose` adds methods with their functions, arguments and answers.
std::string listing(const std::string &onlyObject, bool verbose);

Json listingAsJson(const std::string &onlyObject);

}  // namespace command
