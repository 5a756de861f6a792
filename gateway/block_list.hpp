// The stations that may not associate. Those that are associated are rows of DBVIEW_WLAN_AD.
#pragma once

#include <vector>

#include "gateway/section.hpp"
#include "records/addresses.hpp"

namespace gateway {

using namespace records;

class BlockList : public Section {
 public:
  BlockList() : Section("blockList") {}

  std::vector<MacAddress> stations;

  bool holds(const MacAddress &mac) const;

  void load(const Json &value, const std::string &place) override;
  Json save() const override;
  void reset() override { stations.clear(); }
};

BlockList &blockList();

}  // namespace gateway
