// The gateway as a device.
#pragma once

#include "platform/codes.hpp"
#include "platform/device.h"
#include "platform/layout.hpp"

namespace platform {

/// What kind of device the gateway is; one instance, "IGD".
struct DeviceInfoView : View<DBVIEW_DEVICE_INFO, 7760> {
  FIELD(Text<64>, vendor, 36);
  FIELD(Text<64>, model, 172);
  FIELD(Text<64>, serialNumber, 652);
  FIELD(Text<64>, firmwareVersion, 940);
  FIELD(Text<64>, softwareVersion, 1036);
  FIELD(Text<64>, deviceType, 4924);
};

/// Who this gateway is to the management side; one instance, "IGD".
struct GatewayIdentityView : View<DBVIEW_GATEWAY_IDENTITY, 872> {
  FIELD(Text<32>, productToken, 100, kSecret);
  FIELD(Text<32>, captureEth, 548, note("the interface that is watched"));
  FIELD(Text<32>, cmei, 612, note("equipment identity"));
  FIELD(Text<32>, authId, 676, kSecret);
  FIELD(Text<128>, devKey, 740, kSecret);
};

/// The LAN side as a device, "IGD.LD1".
struct LanDeviceView : View<DBVIEW_LAN_DEVICE, 1556> {
  FIELD(Mac, mac, 876);
};

/// Load of the processor.
struct CpuInfoRecord : Record<28> {
  FIELD(PlainWord, cpuUsage, 0, unit("%"));
};

/// Settings of the device log.
struct LogConfigRecord : Record<160> {
  FIELD(Word, logEnable, 28, codes(kSwitch));
  FIELD(Word, logLevel, 60, range(0, 7));
  FIELD(Word, logParam, 156, note("0 announces a changed size, else the word that is sent"));
};

/// Request of CTSGW_EVENT_SET_HTTPDOWNLOAD_DIAGNOSTICS.
struct HttpDownloadRequest : Record<276> {
  FIELD(PlainWord, word0, 0);
  FIELD(PlainText<260>, requestText, 4, note("the request as the daemon wrote it"));
  FIELD(PlainWord, word264, 264);
  FIELD(PlainWord, requestWord, 268, note("the request's word at byte 32"));
  FIELD(PlainWord, word272, 272);
};

/// The whole reply, status word included, of CTSGW_EVENT_GET_HTTPDOWNLOAD_DIAGNOSTICSRESULT.
struct HttpDownloadReply : Record<20480> {
  FIELD(PlainWord, iRet, 0, note("0 is success"));
  FIELD(PlainText<260>, state, 12, note("\"Completed\" at the end"));
  FIELD(PlainWord, rate, 272, note("as the proxy measured it"));
};

LAYOUTS(DeviceLayouts, DeviceInfoView, GatewayIdentityView, LanDeviceView, CpuInfoRecord,
        LogConfigRecord, HttpDownloadRequest, HttpDownloadReply);

}  // namespace platform
