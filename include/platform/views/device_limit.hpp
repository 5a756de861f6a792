#pragma once

#include "platform/records/bandwidth_limit.hpp"
#include "platform/view_ids.h"

namespace platform {

/// The device under which the proxy knows a limit, found by its MAC.
using DeviceLimitView = BandwidthLimitFields<View<DBVIEW_DEV_LIMIT, 204>>;

}  // namespace platform
