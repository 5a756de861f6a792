#pragma once

#include "platform/record.hpp"

namespace platform {

/// Load of the processor.
struct CpuInfoRecord : Record<28> {
  static constexpr PlainWord cpuUsage{"cpuUsage", 0};
  static constexpr auto fields = layout(cpuUsage);
};

}  // namespace platform
