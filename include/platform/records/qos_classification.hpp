#pragma once

#include "platform/record.hpp"

namespace platform {

/// One QoS rule. Five class parameters are written, four are reported; the word at 3940 holds what
/// was written as the second parameter and is reported as the fourth.
template <class Storage>
struct QosClassificationFields : Storage {
  /// What pm_qos_qc_del_config takes.
  static constexpr Text<32> ruleName{"ruleName", Storage::kFirst + 28};
  static constexpr Byte qosCommon{"qosCommon", Storage::kFirst + 92};
  static constexpr Word param1{"param1", Storage::kFirst + 156};
  static constexpr Word param5{"param5", Storage::kFirst + 2012};
  static constexpr Text<32> label{"label", Storage::kFirst + 2108};
  static constexpr Mac mac2{"mac2", Storage::kFirst + 2172};
  static constexpr Mac mac1{"mac1", Storage::kFirst + 2316};
  static constexpr Word param3{"param3", Storage::kFirst + 2652};
  static constexpr Word ip2{"ip2", Storage::kFirst + 3364};
  static constexpr Word ip1{"ip1", Storage::kFirst + 3492};
  static constexpr Word port1{"port1", Storage::kFirst + 3684};
  static constexpr Word port2{"port2", Storage::kFirst + 3780};
  static constexpr Word writtenParam4{"writtenParam4", Storage::kFirst + 3908};
  static constexpr Word writtenParam2{"writtenParam2", Storage::kFirst + 3940};
  static constexpr Word reportedParam2{"reportedParam2", Storage::kFirst + 3972};
  static constexpr Word reportedParam4 = writtenParam2;
  static constexpr auto fields =
      Storage::layout(ruleName, qosCommon, param1, param5, label, mac2, mac1, param3, ip2, ip1,
                      port1, port2, writtenParam4, writtenParam2, reportedParam2);
};

/// As pm_qos_qc_set_config takes it.
using QosClassificationRecord = QosClassificationFields<Record<4072>>;

// The layout of a template is checked where it is first used: here.
static_assert(!QosClassificationRecord::fields.empty());

}  // namespace platform
