// What a gateway profile may hold, for the schema of profiles.
#pragma once

#include "tools/catalogue/json.hpp"

namespace command {

/// The fields of every view and record, and the names of the sections.
Json layoutsAsJson();

}  // namespace command
