#pragma once

#include "platform/record.hpp"
#include "platform/view_ids.h"

namespace platform {

/// IPv6 addressing that a WAN connection was given.
struct DssInfoView : View<DBVIEW_DSS_INFO, 4384> {
  static constexpr Text<32> name{"name", 36};
  static constexpr Text<32> wanInstance{"wanInstance", 100};
  /// 1 autoconfigured, 2 static, 3 DHCPv6.
  static constexpr Word addressOrigin{"addressOrigin", 164};
  static constexpr Bytes<16> dnsServer1{"dnsServer1", 196};
  static constexpr Bytes<16> dnsServer2{"dnsServer2", 240};
  static constexpr Bytes<16> dnsServer3{"dnsServer3", 284};
  static constexpr Word preferredLifetime{"preferredLifetime", 328};
  static constexpr Word validLifetime{"validLifetime", 360};
  static constexpr auto fields = layout(name, wanInstance, addressOrigin, dnsServer1, dnsServer2,
                                        dnsServer3, preferredLifetime, validLifetime);
};

}  // namespace platform
