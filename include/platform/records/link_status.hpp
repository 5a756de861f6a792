#pragma once

#include "platform/record.hpp"

namespace platform {

/// Payload of CTSGW_EVENT_GET_LINKSTAT_BY_STAMODE: the link of the gateway as a Wi-Fi client.
struct LinkStatusRecord : Record<80> {
  static constexpr PlainWord linkDown{"linkDown", 0};
  static constexpr PlainText<36> ssid{"ssid", 20};
  static constexpr PlainWord wlanStatus1{"wlanStatus1", 56};
  static constexpr PlainWord wlanStatus4{"wlanStatus4", 60};
  static constexpr PlainWord wlanStatus2{"wlanStatus2", 64};
  static constexpr PlainWord wlanStatus3{"wlanStatus3", 68};
  static constexpr PlainWord linkRate{"linkRate", 72};
  static constexpr PlainWord linkRate2{"linkRate2", 76};
  static constexpr auto fields = layout(linkDown, ssid, wlanStatus1, wlanStatus4, wlanStatus2,
                                        wlanStatus3, linkRate, linkRate2);
};

/// Request of the same event.
struct LinkStatusRequest : Record<4> {
  static constexpr PlainWord band{"band", 0};  ///< 0 is 2.4 GHz, 1 is 5 GHz
  static constexpr auto fields = layout(band);
};

/// Payload of CTSGW_EVENT_GET_PORTLINKSTAT_TYPE.
struct PortSpeedReply : Record<4> {
  static constexpr PlainWord speed{"speed", 0};  ///< 0 to 2: 10, 100, 1000 Mbit/s
  static constexpr auto fields = layout(speed);
};

}  // namespace platform
