#pragma once

#include "platform/record.hpp"

namespace platform {

/// Payload of CTSGW_EVENT_GET_WLANRADIOINFO.
struct RadioInfoRecord : Record<56> {
  static constexpr PlainWord radioValue{"radioValue", 0};
  static constexpr auto fields = layout(radioValue);
};

/// Request of the same event.
struct RadioInfoRequest : Record<4> {
  static constexpr PlainWord radioType{"radioType", 0};  ///< 0 is 2.4 GHz, 1 is 5 GHz
  static constexpr auto fields = layout(radioType);
};

}  // namespace platform
