// What a gateway profile may hold, for the schema of profiles.
#pragma once

#include "records/json.hpp"

namespace command {

using namespace records;

/// The fields of every view and record, and the names of the sections.
Json layoutsAsJson();

}  // namespace command
