#pragma once

#include "platform/record.hpp"

namespace platform {

/// One point of time of a timer task. A Wi-Fi schedule takes two entries, its start and its end.
struct TimerEntry : Record<80> {
  static constexpr PlainText<32> time{"time", 0};            ///< "hh:mm"
  static constexpr PlainBytes<32> weekdays{"weekdays", 32};  ///< eight words, 1 Monday to 7 Sunday
  static constexpr PlainWord weekdayCount{"weekdayCount", 64};
  static constexpr PlainByte edge{"edge", 68};  ///< 1 at the end of a schedule
  static constexpr PlainByte enable{"enable", 69};
  static constexpr PlainWord taskId{"taskId", 72};
  static constexpr PlainWord index{"index", 76};
  static constexpr auto fields = layout(time, weekdays, weekdayCount, edge, enable, taskId, index);
};

/// What the timer services exchange.
struct TimerControlRecord : Record<7584> {
  static constexpr Word entryCount{"entryCount", 28};
  static constexpr PlainBytes<7200> entries{"entries", 60};
  static constexpr Text<256> failureReason{"failureReason", 7292};
  static constexpr Word operation{"operation", 7580};  ///< 0 adds or replaces, 1 deletes
  static constexpr uint32_t kMaxEntries = 90;
  static constexpr auto fields = layout(entryCount, entries, failureReason, operation);
};

}  // namespace platform
