// Whether the process has the cJSON that the library was built with.
#pragma once

#include <string>

namespace probe {

/// What the library reads of cJSON's nodes and does not find where its header has it, as a line to
/// be shown; empty when all is there.
std::string cjsonDifference();

}  // namespace probe
