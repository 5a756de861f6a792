// What is measured: every method of the catalogue with its example, and by hand what needs more
// than that: long lists, deep topologies, and floors.
#pragma once

#include <cstdint>
#include <functional>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "records/json.hpp"

namespace bench {

using records::Json;

struct Case {
  std::string name;
  /// Calls the library; of several calls the last one counts.
  std::function<void()> call;
  /// The gateway's profile; none: the home router's.
  std::function<Json()> profile = {};
  /// What only this case can be compared with: the same work as anyone would write it.
  std::function<void()> floor = {};
  /// The call may cost this many percent of its floor.
  uint32_t limitPercent = 0;
  /// Cases of one family follow each other: what one more item costs is told.
  std::string family = {};
  uint32_t items = 0;
};

std::vector<Case> allCases();

/// A profile of examples/.
Json example(const char *fileName);

}  // namespace bench
