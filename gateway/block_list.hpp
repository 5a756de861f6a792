// The stations that may not associate. Those that are associated are rows of DBVIEW_WLAN_AD.
#pragma once

#include <vector>

#include "records/addresses.hpp"

namespace gateway {

using namespace records;

struct BlockList {
  std::vector<MacAddress> stations;

  bool holds(const MacAddress &mac) const;
};

BlockList &blockList();

}  // namespace gateway
