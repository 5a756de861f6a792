// What the public headers say of each exported function.
#pragma once

#include <cstdint>
#include <set>
#include <string>

namespace catalogue {

struct Contract {
  std::string summary;      ///< its first sentence
  std::set<int32_t> codes;  ///< what it answers by name
  bool handsOn = false;     ///< what the platform answers comes back as well
};

/// All empty for what the headers do not declare.
const Contract &contractOf(const std::string &function);

}  // namespace catalogue
