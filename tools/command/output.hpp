#pragma once

#include "tools/catalogue/json.hpp"

namespace command {

/// One line of JSON, or for the eye: a line for each member, and a table where rows are listed.
void printAnswer(const Json &answer, bool asTable);

}  // namespace command
