// The current rates of the uplink, summed over its connections: one walk, two sources of counters.
#pragma once

#include "frame/log.hpp"
#include "frame/record_buffer.hpp"
#include "platform/sampling.hpp"

namespace pm {

constexpr uint32_t kRateTextSize = 64;

using BandwidthRequestBuffer = RecordBuffer<BandwidthRequest>;
using BandwidthBuffer = RecordBuffer<BandwidthReply>;

/// Asks for the counters of one interface. Stopped: the walk ends with `status` as its result.
struct BandwidthAnswer {
  bool stopped;
  int32_t status;
};
using BandwidthQuery = BandwidthAnswer (*)(const Trail &log, const BandwidthRequestBuffer &request,
                                           BandwidthBuffer &counters);

/// Writes both texts (kRateTextSize each) when every connection was asked. `unreadable` is what a
/// connection list or view that cannot be read yields. The counters are cleared before the first
/// connection; a query may clear them again. One that fills nothing adds those of the connection
/// before it.
int32_t sumUplinkRates(const Trail &log, BandwidthQuery query, int32_t unreadable, char *rxText,
                       char *txText);

}  // namespace pm
