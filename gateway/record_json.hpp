// Records as JSON objects whose members bear the fields' names.
#pragma once

#include <string>

#include "gateway/json.hpp"
#include "gateway/store.hpp"

namespace gateway {

/// Writes the given members into the record; throws ProfileError with the member's place.
void loadRecord(const Row &row, const Json &members, const std::string &place);
/// The fields that are not zero.
Json saveRecord(const Row &row);

}  // namespace gateway
