// The firewall base and the MAC filter.
#pragma once

#include "platform/codes.hpp"
#include "platform/firewall.h"
#include "platform/layout.hpp"

namespace platform {

/// The firewall as a whole, "IGD.FWBASE".
struct FirewallBaseView : View<DBVIEW_FW_BASE, 680> {
  FIELD(Word, lockStatus, 228, note("as CTSGW_EVENT_SET_LOCK sets it"));
};

/// The switches of the firewall.
struct FirewallBaseRecord : Record<640> {
  FIELD(Word, macFilterPolicy, 60, codes(kFilterPolicies));
  FIELD(Byte, macFilterEnable, 92, codes(kSwitch));
};

/// One device of the MAC filter table.
template <class Storage>
struct MacFilterFields : Storage {
  FIELD(Text<32>, name, Storage::kFirst + 28);
  FIELD(Word, type, Storage::kFirst + 156);
  FIELD(Word, protocol, Storage::kFirst + 188);
  FIELD(Mac, sourceMac, Storage::kFirst + 220);
  FIELD(Text<32>, deviceName, Storage::kFirst + 356);
};

/// As pm_mac_filterset takes it.
struct MacFilterEntryRecord : MacFilterFields<Record<392>> {};

/// The same as the database delivers it.
struct MacFilterView : MacFilterFields<View<DBVIEW_MAC_FILTER, 400>> {};

LAYOUTS(FirewallLayouts, FirewallBaseView, FirewallBaseRecord, MacFilterEntryRecord, MacFilterView);

}  // namespace platform
