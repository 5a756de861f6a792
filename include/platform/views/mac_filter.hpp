#pragma once

#include "platform/records/mac_filter_entry.hpp"
#include "platform/view_ids.h"

namespace platform {

/// The same as the database delivers it.
using MacFilterView = MacFilterFields<View<DBVIEW_MAC_FILTER, 400>>;

}  // namespace platform
