#pragma once

#include "platform/record.hpp"

namespace platform {

/// Request of WLAN_MGR_GET_CARD_MAX.
struct CardCountRequest : Record<32> {
  static constexpr PlainText<32> instance{"instance", 0};
  static constexpr auto fields = layout(instance);
};

/// Its reply.
struct CardCountReply : Record<4> {
  static constexpr PlainWord cardCount{"cardCount", 0};
  static constexpr auto fields = layout(cardCount);
};

}  // namespace platform
