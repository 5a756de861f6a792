// IPTV VLAN bindings and QoS classification.
#pragma once

#include "platform/layout.hpp"
#include "platform/traffic_rules.h"

namespace platform {

/// One port or SSID bound to an IPTV VLAN.
struct IptvVlanBindingView : View<DBVIEW_IPTVLANBIND, 168> {
  FIELD(Text<32>, name, 36);
  FIELD(Text<32>, portPath, 100);
  FIELD(Word, vlanId, 164, range(0, 4094), note("0 is no VLAN"));
};

/// One QoS rule. Five class parameters are written, four are reported; the word at 3940 holds what
/// was written as the second parameter and is reported as the fourth.
template <class Storage>
struct QosClassificationFields : Storage {
  FIELD(Text<32>, ruleName, Storage::kFirst + 28, note("What pm_qos_qc_del_config takes."));
  FIELD(Byte, qosCommon, Storage::kFirst + 92, note("shared by all rules"));
  FIELD(Word, param1, Storage::kFirst + 156, note("class parameter, the platform's own"));
  FIELD(Word, param5, Storage::kFirst + 2012, note("class parameter, never read back"));
  FIELD(Text<32>, label, Storage::kFirst + 2108, note("name of the rule for people"));
  FIELD(Mac, mac2, Storage::kFirst + 2172);
  FIELD(Mac, mac1, Storage::kFirst + 2316);
  FIELD(Word, param3, Storage::kFirst + 2652, note("class parameter"));
  FIELD(Word, ip2, Storage::kFirst + 3364, kIpv4);
  FIELD(Word, ip1, Storage::kFirst + 3492, kIpv4);
  FIELD(Word, port1, Storage::kFirst + 3684, range(0, 65535));
  FIELD(Word, port2, Storage::kFirst + 3780, range(0, 65535));
  FIELD(Word, writtenParam4, Storage::kFirst + 3908, note("class parameter, written only"));
  FIELD(Word, writtenParam2, Storage::kFirst + 3940,
        note("class parameter 2 as written, 4 as reported"));
  FIELD(Word, reportedParam2, Storage::kFirst + 3972, note("class parameter 2 as reported"));
  static constexpr Word reportedParam4 = writtenParam2;
};

/// As pm_qos_qc_set_config takes it.
struct QosClassificationRecord : QosClassificationFields<Record<4072>> {};

/// The same as the database delivers it.
struct QosClassificationView : QosClassificationFields<View<DBVIEW_QOS_CLASSIFICATION, 4080>> {};

LAYOUTS(TrafficRulesLayouts, IptvVlanBindingView, QosClassificationRecord, QosClassificationView);

}  // namespace platform
