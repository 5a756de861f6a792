// What the public headers say that a function returns.
#pragma once

#include <cstdint>
#include <set>
#include <string>

namespace gateway::testing {

struct Contract {
  std::set<int32_t> named; /**< the codes that it lists */
  bool handsOn = false;    /**< what the platform answers comes back as well */
};

/// Throws when the headers declare no such function, say nothing of what it returns, or use a code
/// without its name.
const Contract &contractOf(const std::string &function);

}  // namespace gateway::testing
