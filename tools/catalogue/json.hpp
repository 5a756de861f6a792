// The JSON of the command. Tables and their templates need no more than the name.
#pragma once

#include <nlohmann/json_fwd.hpp>
#include <stdexcept>
#include <string>

namespace command {

/// Members keep the order of the record.
using Json = nlohmann::ordered_json;

/// What the user asked for cannot be done: a line that says where and why.
class UsageError : public std::runtime_error {
 public:
  explicit UsageError(const std::string &line) : std::runtime_error(line) {}
  UsageError(const std::string &where, const std::string &why)
      : std::runtime_error(where.empty() ? why : where + ": " + why) {}
};

}  // namespace command
