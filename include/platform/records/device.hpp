#pragma once

#include "platform/record.hpp"

namespace platform {

/// Request and reply of CTSGW_EVENT_QUERY_ADEV_PARAM: one attached device. The address is also the
/// link state of a device on the wire, where 0 and -1 stand for none.
struct DeviceRecord : Record<792> {
  static constexpr PlainText<32> path{"path", 0};
  static constexpr PlainWord accessType{"accessType", 64};
  static constexpr PlainWord linkFlag{"linkFlag", 68};
  static constexpr PlainWord ipv4Address{"ipv4Address", 72};
  static constexpr PlainMac mac{"mac", 80};
  static constexpr PlainText<16> interfaceName{"interfaceName", 92};
  static constexpr PlainText<64> hostName{"hostName", 108};
  /// System uptime at connection, in seconds.
  static constexpr PlainWord connectionTime{"connectionTime", 260};
  /// 1 to 6: phone, pad, pc, stb, ap, iot.
  static constexpr PlainWord kind{"kind", 276};
  static constexpr PlainWord linkState = ipv4Address;
  static constexpr auto fields = layout(path, accessType, linkFlag, ipv4Address, mac, interfaceName,
                                        hostName, connectionTime, kind);
};

}  // namespace platform
