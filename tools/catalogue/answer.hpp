// What a call gave back.
#pragma once

#include <nlohmann/json.hpp>

#include "tools/catalogue/json.hpp"

namespace command {

struct Answer {
  Json full = Json::object();
  Json shown = Json::object();  ///< the same with its secrets masked
  bool failed = false;          ///< the function returned a status other than 0
};

}  // namespace command
