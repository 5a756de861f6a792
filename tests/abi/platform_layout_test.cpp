// The platform is built apart from the library, too: how long its records are and where their
// fields stand, in the order of their layouts. Fields whose names tell their offsets are left to
// the tests of their handlers. Compiling this file is the test.

#include <algorithm>
#include <cstddef>

#include "platform/all_records.hpp"

namespace {

using namespace platform;

template <class Layout, size_t Count>
consteval bool stand(uint32_t size, const uint32_t (&offsets)[Count]) {
  return Layout::kSize == size && std::ranges::equal(Layout::fields, offsets, {}, &Field::offset);
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
static_assert(stand<WanIpConnectionView>(808, {36, 100, 132, 164, 196, 228, 260, 292, 388}));
static_assert(WanIpExtRecord::kSize == 4868);
static_assert(WanPppExtRecord::kSize == 6328 && WorkingModeRecord::kSize == 6380);
static_assert(stand<NetworkingDeviceView>(2136, {36, 68, 100, 2100, 2132}));
static_assert(stand<WanPppConnectionView>(1800, {36, 100, 196, 324, 484, 1220}));
static_assert(stand<WlanApEntry>(124, {0, 36, 40, 52, 100, 104}));
static_assert(stand<WlanApList>(31756, {0, 8, 12}));
static_assert(stand<WlanScanRequest>(64, {28, 60}));
static_assert(stand<WlanCsiRecord>(160, {28, 92, 124, 156}));
static_assert(stand<WlanCsiMacRecord>(64, {28}));
static_assert(stand<WlanConfigRecord>(3588, {28,  60,  92,  124, 156, 188, 220, 252,  284,  316,
                                             476, 508, 540, 572, 604, 928, 960, 1020, 1084, 1148}));
static_assert(stand<DeviceRecord>(792, {0, 64, 68, 72, 80, 92, 108, 260, 276}));
static_assert(stand<StationStatisticsRecord>(348, {28, 64, 96, 200, 236, 272, 308, 344}));
static_assert(stand<AssociatedDeviceView>(1664, {36, 100, 164, 1300, 1364, 1396}));
static_assert(stand<AccessDeviceView>(2492, {36, 100, 196, 360, 392}));
static_assert(stand<LanInfoView>(684, {36, 100, 276}));
static_assert(stand<GatewayIdentityView>(872, {100, 548, 612, 676, 740}));
static_assert(stand<DeviceInfoView>(7760, {36, 172, 652, 940, 1036, 4924}));
static_assert(stand<LanDeviceView>(1556, {876}));
static_assert(stand<InterfaceInfoView>(808, {36, 100, 676}));
static_assert(stand<RouteInfoRecord>(1340, {296, 312, 340, 344, 348, 376, 396}));
static_assert(stand<WanDeviceTypeRecord>(32, {28}));
static_assert(stand<CpuInfoRecord>(28, {0}));
static_assert(stand<PortMacResultRecord>(36, {28}));
static_assert(stand<PortLinkStateRecord>(96, {28}));
static_assert(stand<EthPortConfigView>(844, {36, 100, 356, 392, 488, 520}));
static_assert(stand<WlanHostEntry>(16, {0, 4, 12}));
static_assert(stand<WlanHostTable>(2052, {0, 4}));
static_assert(stand<WlanDriverRecord>(328, {28, 60, 92, 128, 164, 196, 228, 260, 292, 324}));
static_assert(stand<RouteInterfaceView>(2208, {36, 100, 164, 208, 2204}));
static_assert(stand<DssInfoView>(4384, {36, 100, 164, 196, 240, 284, 328, 360}));
static_assert(stand<DssConfigView>(1224, {36, 100, 164}));
static_assert(stand<PrefixConfigView>(652, {36, 100, 164, 196, 240}));
static_assert(stand<WanConnectionView>(3212, {36, 100, 196, 260}));
static_assert(stand<LinkStatusRecord>(80, {0, 20, 56, 60, 64, 68, 72, 76}));
static_assert(stand<PortStatisticsRecord>(504, {28, 64, 208, 244, 280, 316, 460, 496}));
static_assert(stand<BandwidthReply>(16, {0, 8}));
static_assert(stand<UplinkRateConfigView>(264, {36, 100, 164, 228}));
static_assert(stand<WlanBandSteeringRecord>(96, {28, 60, 92}));
static_assert(stand<WlanEasyMeshRecord>(224, {28, 60}));
static_assert(stand<EasyMeshView>(264, {36, 68}));
static_assert(stand<RadioInfoRecord>(56, {0}));
static_assert(stand<WlanSelectRecord>(196, {28, 64, 96, 128}));
static_assert(stand<WlanWpsRecord>(32, {28}));
static_assert(stand<WlanTxPowerRecord>(72, {28, 68}));
static_assert(stand<WlanPskRecord>(96, {28}));
static_assert(stand<WlanWepRecord>(96, {28}));
static_assert(stand<WlanClientView>(200, {36, 100, 132, 164, 196}));
static_assert(stand<SampleConfigView>(200, {36, 68}));

}  // namespace
