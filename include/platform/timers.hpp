// What the timer services exchange.
#pragma once

#include "platform/codes.hpp"
#include "platform/layout.hpp"
#include "platform/timers.h"

namespace platform {

/// Nothing that is known: zeroed.
struct TimerRequest : Record<32> {};

/// One point of time of a timer task. A Wi-Fi schedule takes two entries, its start and its end.
struct TimerEntry : Record<80> {
  FIELD(PlainText<32>, time, 0, note("\"hh:mm\""));
  FIELD(PlainBytes<32>, weekdays, 32, note("eight words, 1 Monday to 7 Sunday"));
  FIELD(PlainWord, weekdayCount, 64, range(0, 8));
  FIELD(PlainByte, edge, 68, codes(kTimerEdges), note("which end of a schedule"));
  FIELD(PlainByte, enable, 69, codes(kSwitch));
  FIELD(PlainWord, taskId, 72, note("the daemon's number of the task"));
  FIELD(PlainWord, index, 76, note("of the wake-up or of the Wi-Fi"));
};

/// What the timer services exchange.
struct TimerControlRecord : Record<7584> {
  FIELD(Word, entryCount, 28, range(0, 90));
  using Entries = PlainRows<TimerEntry, 90>;
  FIELD(Entries, entries, 60);
  FIELD(Text<256>, failureReason, 7292);
  FIELD(Word, operation, 7580, codes(kTimerOperations));
};

LAYOUTS(TimersLayouts, TimerRequest, TimerEntry, TimerControlRecord);

}  // namespace platform
