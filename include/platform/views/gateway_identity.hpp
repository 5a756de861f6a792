#pragma once

#include "platform/record.hpp"
#include "platform/view_ids.h"

namespace platform {

/// Who this gateway is to the management side; one instance, "IGD".
struct GatewayIdentityView : View<DBVIEW_GATEWAY_IDENTITY, 872> {
  static constexpr Text<32> productToken{"productToken", 100};
  static constexpr Text<32> captureEth{"captureEth", 548};
  static constexpr Text<32> cmei{"cmei", 612};
  static constexpr Text<32> authId{"authId", 676};
  static constexpr Text<128> devKey{"devKey", 740};
  static constexpr auto fields = layout(productToken, captureEth, cmei, authId, devKey);
};

}  // namespace platform
