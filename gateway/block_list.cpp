#include "gateway/block_list.hpp"

#include <algorithm>

#include "boundary/boundary.hpp"
#include "gateway/calls.hpp"
#include "gateway/gateway.hpp"
#include "gateway/section.hpp"
#include "platform/wlan.hpp"

PM_RECORD(gateway::BlockList, PM_FIELD(stations).means("those that may not associate"));

namespace gateway {

namespace {

SectionOf<BlockList> section{"blockList", "Stations that are kept out"};

}  // namespace

BlockList &blockList() {
  return section.state();
}

bool BlockList::holds(const MacAddress &mac) const {
  return std::ranges::find(stations, mac) != stations.end();
}

int32_t pm_wlan_add_blklist(const char *name, AssociatedDeviceView *view) {
  if (!store().has<AssociatedDeviceView>(name)) return kUnknownInstance;
  const MacAddress mac = store().row<AssociatedDeviceView>(name).mac(AssociatedDeviceView::mac);
  if (fieldsOf<AssociatedDeviceView>(view).mac(AssociatedDeviceView::mac) != mac) {
    throw Refusal(kBadRequest, "the record is another station's");
  }
  if (blockList().holds(mac)) return kNothingChanged;
  blockList().stations.push_back(mac);
  return kOk;
}

}  // namespace gateway
