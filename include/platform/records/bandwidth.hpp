#pragma once

#include "platform/record.hpp"

namespace platform {

/// Request for the counters of one interface, by event or by message.
struct BandwidthRequest : Record<32> {
  static constexpr PlainText<32> interfaceName{"interfaceName", 0};
  static constexpr auto fields = layout(interfaceName);
};

/// Payload of CTSGW_EVENT_GET_BANDWIDTH and whole reply of BANDINFO_MGR_GET_BANDWIDTH.
struct BandwidthReply : Record<16> {
  static constexpr PlainCounter tx{"tx", 0};
  static constexpr PlainCounter rx{"rx", 8};
  static constexpr auto fields = layout(tx, rx);
};

}  // namespace platform
