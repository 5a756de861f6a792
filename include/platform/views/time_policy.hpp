#pragma once

#include "platform/record.hpp"
#include "platform/view_ids.h"

namespace platform {

/// The weekly period in which a device's limit applies, found by its instance number.
struct TimePolicyView : View<DBVIEW_TIME_POLICY, 496> {
  static constexpr Text<32> name{"name", 36};
  static constexpr Word instance{"instance", 100};
  static constexpr Word setting132{"setting132", 132};  ///< 0 in a new policy
  static constexpr Word setting260{"setting260", 260};  ///< 1 in a new policy
  static constexpr Text<8> week{"week", 292};           ///< the mask of weekdays as decimal text
  static constexpr Word startTime{"startTime", 332};    ///< second of the day
  static constexpr Word endTime{"endTime", 364};        ///< second of the day
  static constexpr auto fields =
      layout(name, instance, setting132, setting260, week, startTime, endTime);
};

}  // namespace platform
