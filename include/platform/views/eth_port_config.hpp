#pragma once

#include "platform/record.hpp"
#include "platform/view_ids.h"

namespace platform {

/// Configuration of one Ethernet port. The three runs of parameter words are handed to
/// pm_mac_prm_op as they stand, the second behind the first and the third last.
struct EthPortConfigView : View<DBVIEW_ETH_PORTCONF, 844> {
  static constexpr Text<32> name{"name", 36};
  static constexpr Word macParameterId{"macParameterId", 100};
  static constexpr Word rateCode{"rateCode", 356};  ///< 0 to 3: 10, 100, 1000, 10000 Mbit/s
  static constexpr PlainBytes<96> parameterRun1{"parameterRun1", 392};
  static constexpr PlainBytes<32> parameterRun3{"parameterRun3", 488};
  static constexpr PlainBytes<64> parameterRun2{"parameterRun2", 520};
  static constexpr auto fields =
      layout(name, macParameterId, rateCode, parameterRun1, parameterRun3, parameterRun2);
};

}  // namespace platform
