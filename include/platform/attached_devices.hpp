// Attached devices and their traffic.
#pragma once

#include "platform/attached_devices.h"
#include "platform/codes.hpp"
#include "platform/layout.hpp"

namespace platform {

/// An attached device as the database remembers it, "IGD.LD1.Hosts.Adev1" and on.
struct AccessDeviceView : View<DBVIEW_ACCESS_DEV, 2492> {
  FIELD(Text<32>, name, 36);
  FIELD(Text<64>, vendor, 100, note("of the device"));
  FIELD(Text<32>, lastConnection, 196, note("date and time, as text"));
  FIELD(Word, adevValue, 360);
  FIELD(PlainText<1024>, ipv6Address, 392, note("all addresses of the device in one text"));
};

/// Request and reply of CTSGW_EVENT_QUERY_ADEV_PARAM: one attached device. The address is also the
/// link state of a device on the wire, where 0 and -1 stand for none.
struct DeviceRecord : Record<792> {
  FIELD(PlainText<32>, path, 0, note("instance of the device"));
  FIELD(PlainWord, accessType, 64);
  FIELD(PlainWord, linkFlag, 68);
  FIELD(PlainWord, ipv4Address, 72, kIpv4);
  FIELD(PlainMac, mac, 80);
  FIELD(PlainText<16>, interfaceName, 92);
  FIELD(PlainText<64>, hostName, 108);
  FIELD(PlainWord, connectionTime, 260, unit("s"), note("system uptime at connection"));
  FIELD(PlainWord, kind, 276, codes(kDeviceKinds));
  static constexpr PlainWord linkState = ipv4Address;
};

/// Traffic of one station; the request carries the MAC, the reply the rest.
struct StationStatisticsRecord : Record<348> {
  FIELD(Mac, mac, 28);
  FIELD(Word, txRate, 64, unit("byte/s"));
  FIELD(Word, rxRate, 96, unit("byte/s"));
  FIELD(Counter, totalBytesReceived, 200, unit("byte"));
  FIELD(Counter, totalBytesSent, 236, unit("byte"));
  FIELD(Counter, totalPacketsReceived, 272, unit("packet"));
  FIELD(Counter, totalPacketsSent, 308, unit("packet"));
  FIELD(Word, notEnoughRegister, 344, codes(kSwitch), note("the hardware does not count this one"));
};

/// Request of CTSGW_EVENT_GET_BW_STATS and CTSGW_EVENT_GET_HARD_STATS.
struct StationStatisticsRequest : Record<380> {
  FIELD(PlainBytes<348>, statistics, 0, note("a StationStatisticsRecord"));
  FIELD(PlainBytes<32>, unused, 348);
};

LAYOUTS(AttachedDevicesLayouts, AccessDeviceView, DeviceRecord, StationStatisticsRecord,
        StationStatisticsRequest);

}  // namespace platform
