#pragma once

#include "platform/record.hpp"

namespace platform {

/// Traffic of one station; the request carries the MAC, the reply the rest.
struct StationStatisticsRecord : Record<348> {
  static constexpr Mac mac{"mac", 28};
  static constexpr Word txRate{"txRate", 64};
  static constexpr Word rxRate{"rxRate", 96};
  static constexpr Counter totalBytesReceived{"totalBytesReceived", 200};
  static constexpr Counter totalBytesSent{"totalBytesSent", 236};
  static constexpr Counter totalPacketsReceived{"totalPacketsReceived", 272};
  static constexpr Counter totalPacketsSent{"totalPacketsSent", 308};
  /// The hardware does not count this one.
  static constexpr Word notEnoughRegister{"notEnoughRegister", 344};
  static constexpr auto fields = layout(mac, txRate, rxRate, totalBytesReceived, totalBytesSent,
                                        totalPacketsReceived, totalPacketsSent, notEnoughRegister);
};

/// Request of CTSGW_EVENT_GET_BW_STATS and CTSGW_EVENT_GET_HARD_STATS.
struct StationStatisticsRequest : Record<380> {
  static constexpr PlainBytes<348> statistics{"statistics", 0};  ///< a StationStatisticsRecord
  static constexpr PlainBytes<32> unused{"unused", 348};
  static constexpr auto fields = layout(statistics, unused);
};

}  // namespace platform
