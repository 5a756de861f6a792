#pragma once

#include "platform/record.hpp"

namespace platform {

/// The rates to which one device is limited: the configured number times 1024.
template <class Storage>
struct BandwidthLimitFields : Storage {
  static constexpr Text<32> name{"name", Storage::kFirst + 28};
  static constexpr Mac mac{"mac", Storage::kFirst + 92};
  static constexpr Word txRate{"txRate", Storage::kFirst + 128};
  static constexpr Word rxRate{"rxRate", Storage::kFirst + 160};
  static constexpr auto fields = Storage::layout(name, mac, txRate, rxRate);
};

/// As CTSGW_EVENT_SET_BW carries it.
using BandwidthLimitRecord = BandwidthLimitFields<Record<196>>;

// The layout of a template is checked where it is first used: here.
static_assert(!BandwidthLimitRecord::fields.empty());

/// Request of CTSGW_EVENT_SET_BW; CTSGW_EVENT_DEL_BW sends the identity alone.
struct BandwidthLimitRequest : Record<228> {
  static constexpr PlainText<32> identity{"identity", 0};
  static constexpr PlainBytes<196> limit{"limit", 32};  ///< a BandwidthLimitRecord
  static constexpr auto fields = layout(identity, limit);
};

}  // namespace platform
