// The platform is built apart from the library, too: how long its records are and where their
// fields stand, in the order of their layouts. Fields whose names tell their offsets are left to
// the tests of their handlers. Compiling this file is the test.

#include <cstddef>

#include "platform/all_records.hpp"

namespace {

using namespace platform;

template <class Layout, size_t Count>
consteval bool stand(uint32_t size, const uint32_t (&offsets)[Count]) {
  if (Layout::kSize != size || Layout::fields.size() != Count) return false;
  for (size_t i = 0; i < Count; ++i) {
    if (Layout::fields[i].offset != offsets[i]) return false;
  }
  return true;
}

static_assert(stand<FirewallBaseRecord>(640, {60, 92}));
static_assert(stand<FirewallBaseView>(680, {228}));
static_assert(stand<MacFilterEntryRecord>(392, {28, 156, 188, 220, 356}));
static_assert(stand<BandwidthLimitRecord>(196, {28, 92, 128, 160}));
static_assert(stand<BandwidthLimitRequest>(228, {0, 32}));
static_assert(stand<TimePolicyRegistration>(20, {0, 4, 8, 12, 16}));
static_assert(stand<TimePolicyMessage>(500, {0, 4}));
static_assert(stand<TimePolicyView>(496, {36, 100, 132, 260, 292, 332, 364}));
static_assert(DeviceLimitView::mac.offset == 100 && DeviceLimitView::kSize == 204);
static_assert(stand<IptvVlanBindingView>(168, {36, 100, 164}));
static_assert(stand<QosClassificationRecord>(4072, {28, 92, 156, 2012, 2108, 2172, 2316, 2652, 3364,
                                                    3492, 3684, 3780, 3908, 3940, 3972}));
static_assert(stand<TimerEntry>(80, {0, 32, 64, 68, 69, 72, 76}));
static_assert(stand<TimerControlRecord>(7584, {28, 60, 7292, 7580}));
static_assert(stand<LogConfigRecord>(160, {28, 60, 156}));
static_assert(stand<PppoeAccountRecord>(192, {28, 124}));
static_assert(stand<HttpSpeedRequest>(276, {0, 4, 264, 268, 272}));
static_assert(stand<HttpSpeedReply>(20480, {0, 12, 272}));
static_assert(stand<WlanConfigView>(3276, {36, 3016}));
static_assert(WlanConfigRecord::restart.offset == 1020 && WlanConfigRecord::kSize == 3588);
static_assert(stand<WanIpConnectionView>(808, {36, 100, 132, 164, 196, 228, 260, 292, 388}));
static_assert(WanConnectionView::kSize == 3212 && WanIpExtRecord::kSize == 4868);
static_assert(WanPppExtRecord::kSize == 6328 && WorkingModeRecord::kSize == 6380);
static_assert(stand<NetworkingDeviceView>(2136, {36, 68, 100, 2100, 2132}));
static_assert(stand<WanPppConnectionView>(1800, {36, 100, 196, 324, 484, 1220}));

}  // namespace
