#include "pmapi/wlan_neighborinfo.h"

#include <algorithm>
#include <iterator>

#include "catalogue/catalogue.hpp"

PM_RECORD(NeighborApEntry, PM_FIELD(radio), PM_FIELD(ssid), PM_FIELD(bssid), PM_FIELD(apValueText),
          PM_FIELD(apValue52), PM_FIELD(apValue104), PM_FIELD(apValue100));

namespace catalogue {

namespace {

using Scan = uint32_t (*)(NeighborInfoRecord *);
using Count = int32_t NeighborInfoRecord::*;

// The bands share the entries, so each scan's own count says how many of them are its.
Method scan(const char *name, const char *function, Scan call, const char *countName, Count count) {
  return customMethod(
      name, function,
      {result(countName, "int32"), rows<NeighborApEntry>(Direction::kOut, "entries")},
      [=](Call &context) -> int64_t {
        Buffer buffer(sizeof(NeighborInfoRecord));
        auto *record = buffer.as<NeighborInfoRecord *>();
        const auto status = static_cast<int32_t>(callExport(call, record));
        const int32_t found = record->*count;
        context.putNumber(countName, found);
        const auto listed =
            std::clamp<int32_t>(found, 0, static_cast<int32_t>(std::size(record->entries)));
        context.putRows("entries", kShape<NeighborApEntry>, record->entries,
                        static_cast<uint32_t>(listed));
        return status;
      });
}

const Entry kEntry{{
    .name = "wlan_neighborinfo",
    .source = "object_nexumd_wlan_neighborinfo_pmapi.c",
    .summary = "Access points in reach of the radios",
    .methods =
        {
            scan("get_2g", PM_FUNCTION(pm_ubus_wlan_neighborinfo_get_2g), "neighborNum24G",
                 &NeighborInfoRecord::neighborNum24G)
                .saying("Scans on 2.4 GHz; takes 5 seconds."),
            scan("get_5g", PM_FUNCTION(pm_ubus_wlan_neighborinfo_get_5g), "neighborNum5G",
                 &NeighborInfoRecord::neighborNum5G)
                .saying("Scans on 5 GHz; takes 5 seconds."),
        },
}};

}  // namespace
}  // namespace catalogue
