#pragma once

#include "platform/record.hpp"

namespace platform {

/// Link state of a LAN port.
struct PortLinkStateRecord : Record<96> {
  static constexpr Word linkState{"linkState", 28};
  static constexpr auto fields = layout(linkState);
};

/// Counters of a port, in the order of their offsets.
struct PortStatisticsRecord : Record<504> {
  static constexpr Counter counter28{"counter28", 28};
  static constexpr Counter counter64{"counter64", 64};
  static constexpr Counter counter208{"counter208", 208};
  static constexpr Counter counter244{"counter244", 244};
  static constexpr Counter counter280{"counter280", 280};
  static constexpr Counter counter316{"counter316", 316};
  static constexpr Counter counter460{"counter460", 460};
  static constexpr Counter counter496{"counter496", 496};
  static constexpr auto fields = layout(counter28, counter64, counter208, counter244, counter280,
                                        counter316, counter460, counter496);
};

/// What pm_mac_prm_op needs to know about a port: the parameter runs of EthPortConfigView, in
/// order.
struct PortMacParameterRecord : Record<196> {
  static constexpr PlainWord selector{"selector", 0};  ///< -9 for a port
  static constexpr PlainBytes<96> parameterRun1{"parameterRun1", 4};
  static constexpr PlainBytes<64> parameterRun2{"parameterRun2", 100};
  static constexpr PlainBytes<32> parameterRun3{"parameterRun3", 164};
  static constexpr auto fields = layout(selector, parameterRun1, parameterRun2, parameterRun3);
};

/// The MAC of a port, from pm_mac_prm_op.
struct PortMacResultRecord : Record<36> {
  static constexpr Mac mac{"mac", 28};
  static constexpr auto fields = layout(mac);
};

}  // namespace platform
