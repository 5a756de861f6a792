#pragma once

#include "platform/record.hpp"
#include "platform/view_ids.h"

namespace platform {

/// How often rates are sampled and reported; one instance, "IGD".
struct SampleConfigView : View<DBVIEW_SAMPLE_CONFIG, 200> {
  static constexpr Word reportInterval{"reportInterval", 36};
  static constexpr Word sampleInterval{"sampleInterval", 68};
  static constexpr auto fields = layout(reportInterval, sampleInterval);
};

}  // namespace platform
