// Sampling of rates, and the counters behind it.
#pragma once

#include "platform/layout.hpp"

namespace platform {

/// How often rates are sampled and reported; one instance, "IGD".
struct SampleConfigView : View<DBVIEW_SAMPLE_CONFIG, 200> {
  FIELD(Word, reportInterval, 36, unit("s"));
  FIELD(Word, sampleInterval, 68, unit("s"));
};

/// Rate sampling of one interface, as texts; the interface name is the instance.
struct UplinkRateConfigView : View<DBVIEW_UPLINKRATE_CONFIG, 264> {
  FIELD(Text<32>, name, 36);
  FIELD(Text<32>, interfaceName, 100);
  FIELD(Text<32>, reportInterval, 164, unit("s"), note("decimal"));
  FIELD(Text<32>, sampleInterval, 228, unit("s"), note("decimal"));
};

/// Request for the counters of one interface, by event or by message.
struct BandwidthRequest : Record<32> {
  FIELD(PlainText<32>, interfaceName, 0);
};

/// Payload of CTSGW_EVENT_GET_BANDWIDTH and whole reply of BANDINFO_MGR_GET_BANDWIDTH.
struct BandwidthReply : Record<16> {
  FIELD(PlainCounter, tx, 0, unit("byte"));
  FIELD(PlainCounter, rx, 8, unit("byte"));
};

LAYOUTS(SamplingLayouts, SampleConfigView, UplinkRateConfigView, BandwidthRequest, BandwidthReply);

}  // namespace platform
