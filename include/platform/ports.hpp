// Ethernet ports.
#pragma once

#include "platform/codes.hpp"
#include "platform/layout.hpp"
#include "platform/ports.h"

namespace platform {

/// Configuration of one Ethernet port. The three runs of parameter words are handed to
/// pm_mac_prm_op as they stand, the second behind the first and the third last.
struct EthPortConfigView : View<DBVIEW_ETH_PORTCONF, 844> {
  FIELD(Text<32>, name, 36);
  FIELD(Word, macParameterId, 100, note("what pm_mac_prm_op is asked by"));
  FIELD(Word, rateCode, 356, codes(kPortRates));
  FIELD(PlainBytes<96>, parameterRun1, 392);
  FIELD(PlainBytes<32>, parameterRun3, 488);
  FIELD(PlainBytes<64>, parameterRun2, 520);
};

/// One Ethernet interface of the LAN, found by its name.
struct LanInfoView : View<DBVIEW_LANINFO, 684> {
  FIELD(Text<32>, name, 36);
  FIELD(Text<16>, interfaceName, 100);
  FIELD(Text<16>, speed, 276, note("\"10Mbps\", \"100Mbps\", \"1000Mbps\""));
};

/// Link state of a LAN port.
struct PortLinkStateRecord : Record<96> {
  FIELD(Word, linkState, 28, note("handed to the daemon as it stands"));
};

/// Counters of a port, in the order of their offsets.
struct PortStatisticsRecord : Record<504> {
  FIELD(Counter, counter28, 28);
  FIELD(Counter, counter64, 64);
  FIELD(Counter, counter208, 208);
  FIELD(Counter, counter244, 244);
  FIELD(Counter, counter280, 280);
  FIELD(Counter, counter316, 316);
  FIELD(Counter, counter460, 460);
  FIELD(Counter, counter496, 496);
};

/// What pm_mac_prm_op needs to know about a port: the parameter runs of EthPortConfigView, in
/// order.
struct PortMacParameterRecord : Record<196> {
  FIELD(PlainWord, selector, 0, note("-9 for a port"));
  FIELD(PlainBytes<96>, parameterRun1, 4);
  FIELD(PlainBytes<64>, parameterRun2, 100);
  FIELD(PlainBytes<32>, parameterRun3, 164);
};

/// The MAC of a port, from pm_mac_prm_op.
struct PortMacResultRecord : Record<36> {
  FIELD(Mac, mac, 28);
};

LAYOUTS(PortsLayouts, EthPortConfigView, LanInfoView, PortLinkStateRecord, PortStatisticsRecord,
        PortMacParameterRecord, PortMacResultRecord);

}  // namespace platform
