// What a call gave back.
#pragma once

#include <nlohmann/json.hpp>

#include "records/json.hpp"

namespace catalogue {

using namespace records;

struct Answer {
  Json full = Json::object();
  Json shown = Json::object();  ///< the same with its secrets masked
  bool failed = false;          ///< the function returned a status other than 0
};

}  // namespace catalogue
