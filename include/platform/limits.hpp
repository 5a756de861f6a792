// Limits of devices and their periods.
#pragma once

#include "platform/layout.hpp"

namespace platform {

/// The rates to which one device is limited: the configured number times 1024.
template <class Storage>
struct BandwidthLimitFields : Storage {
  FIELD(Text<32>, name, Storage::kFirst + 28);
  FIELD(Mac, mac, Storage::kFirst + 92);
  FIELD(Word, txRate, Storage::kFirst + 128, unit("1/1024 of the daemon's unit"));
  FIELD(Word, rxRate, Storage::kFirst + 160, unit("1/1024 of the daemon's unit"));
};

/// As CTSGW_EVENT_SET_BW carries it.
struct BandwidthLimitRecord : BandwidthLimitFields<Record<196>> {};

/// Request of CTSGW_EVENT_SET_BW; CTSGW_EVENT_DEL_BW sends the identity alone.
struct BandwidthLimitRequest : Record<228> {
  FIELD(PlainText<32>, identity, 0);
  FIELD(PlainBytes<196>, limit, 32, note("a BandwidthLimitRecord"));
};

/// The device under which the proxy knows a limit, found by its MAC.
struct DeviceLimitView : BandwidthLimitFields<View<DBVIEW_DEV_LIMIT, 204>> {};

/// The weekly period in which a device's limit applies, found by its instance number.
struct TimePolicyView : View<DBVIEW_TIME_POLICY, 496> {
  FIELD(Text<32>, name, 36);
  FIELD(Word, instance, 100, note("number of the policy"));
  FIELD(Word, setting132, 132, note("0 in a new policy"));
  FIELD(Word, setting260, 260, note("1 in a new policy"));
  FIELD(Text<8>, week, 292, note("the mask of weekdays as decimal text"));
  FIELD(Word, startTime, 332, unit("s"), range(0, 86400), note("second of the day"));
  FIELD(Word, endTime, 364, unit("s"), range(0, 86400), note("second of the day"));
};

/// TIME_POLICY_REGISTER: who wants to hear when a time policy begins and ends. The signal number is
/// 16 bits wide; the two bytes behind it are zero.
struct TimePolicyRegistration : Record<20> {
  FIELD(PlainWord, instance, 0, note("number of the policy"));
  FIELD(PlainWord, instanceAgain, 4, note("the same"));
  FIELD(PlainWord, limitMode, 8);
  FIELD(PlainPointer, signalName, 12, note("to a text"));
  FIELD(PlainWord, signalNumber, 16, note("16 bits wide; the two bytes behind it are zero"));
};

/// TIME_POLICY_SET: a time policy as it was just written.
struct TimePolicyMessage : Record<500> {
  FIELD(PlainWord, word0, 0);
  FIELD(PlainBytes<496>, policy, 4, note("a TimePolicyView, header included"));
};

LAYOUTS(LimitsLayouts, BandwidthLimitRecord, BandwidthLimitRequest, DeviceLimitView, TimePolicyView,
        TimePolicyRegistration, TimePolicyMessage);

}  // namespace platform
