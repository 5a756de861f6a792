// A gateway as one JSON document: "clock", "views", "records", "files", and a member per section.
#pragma once

#include <string>

#include "records/json.hpp"

namespace gateway {

using namespace records;

class Gateway;

// These throw InputError.
Json parseProfile(std::string_view text, const std::string &place);
Json readProfile(const std::string &fileName);
void loadProfile(Gateway &gateway, const Json &profile);

/// Texts hold their bytes, whatever these are; as a file's content they are UTF-8, so that
/// parseProfile() gives the same bytes back.
Json saveProfile(Gateway &gateway);
std::string profileText(Gateway &gateway);

/// A JSON schema of everything that loadProfile() takes.
Json profileSchema();

}  // namespace gateway
