// The platform is built apart from the library, too: how long its records are and where their
// fields stand, in the order of their layouts. Fields whose names tell their offsets are left to
// the tests of their handlers.

#include <gmock/gmock.h>

#include <vector>

#include "platform/attached_devices.hpp"
#include "platform/device.hpp"
#include "platform/firewall.hpp"
#include "platform/limits.hpp"
#include "platform/ports.hpp"
#include "platform/sampling.hpp"
#include "platform/timers.hpp"
#include "platform/traffic_rules.hpp"
#include "platform/wan.hpp"
#include "platform/wlan.hpp"
#include "records/layouts.hpp"

namespace {

using namespace platform;

template <class Record>
void expectStands(uint32_t size, const std::vector<uint32_t> &offsets) {
  const records::Layout &layout = records::layoutOf<Record>();
  EXPECT_EQ(Record::kSize, size) << layout.name;
  std::vector<uint32_t> found;
  for (const Field &field : layout.fields) found.push_back(field.offset);
  EXPECT_EQ(found, offsets) << layout.name;
}

static_assert(DeviceLimitView::mac.offset == 100 && DeviceLimitView::kSize == 204);
static_assert(WanIpExtRecord::kSize == 4868);
static_assert(WanPppExtRecord::kSize == 6328 && WorkingModeRecord::kSize == 6380);

TEST(PlatformLayout, RecordsHaveTheirSizesAndFieldsTheirOffsets) {
  expectStands<FirewallBaseRecord>(640, {60, 92});
  expectStands<FirewallBaseView>(680, {228});
  expectStands<MacFilterEntryRecord>(392, {28, 156, 188, 220, 356});
  expectStands<BandwidthLimitRecord>(196, {28, 92, 128, 160});
  expectStands<BandwidthLimitRequest>(228, {0, 32});
  expectStands<TimePolicyRegistration>(20, {0, 4, 8, 12, 16});
  expectStands<TimePolicyMessage>(500, {0, 4});
  expectStands<TimePolicyView>(496, {36, 100, 132, 260, 292, 332, 364});
  expectStands<IptvVlanBindingView>(168, {36, 100, 164});
  expectStands<QosClassificationRecord>(
      4072, {28, 92, 156, 2012, 2108, 2172, 2316, 2652, 3364, 3492, 3684, 3780, 3908, 3940, 3972});
  expectStands<TimerEntry>(80, {0, 32, 64, 68, 69, 72, 76});
  expectStands<TimerControlRecord>(7584, {28, 60, 7292, 7580});
  expectStands<LogConfigRecord>(160, {28, 60, 156});
  expectStands<PppoeAccountRecord>(192, {28, 124});
  expectStands<HttpDownloadRequest>(276, {0, 4, 264, 268, 272});
  expectStands<HttpDownloadReply>(20480, {0, 12, 272});
  expectStands<WlanConfigView>(3276, {36, 3016});
  expectStands<WanIpConnectionView>(808, {36, 100, 132, 164, 196, 228, 260, 292, 388});
  expectStands<NetworkingDeviceView>(2136, {36, 68, 100, 2100, 2132});
  expectStands<WanPppConnectionView>(1800, {36, 100, 196, 324, 484, 1220});
  expectStands<WlanApEntry>(124, {0, 36, 40, 52, 100, 104});
  expectStands<WlanApList>(31756, {0, 8, 12});
  expectStands<WlanScanRequest>(64, {28, 60});
  expectStands<WlanCsiRecord>(160, {28, 92, 124, 156});
  expectStands<WlanCsiMacRecord>(64, {28});
  expectStands<WlanConfigRecord>(3588, {28,  60,  92,  124, 156, 188, 220, 252,  284,  316,
                                        476, 508, 540, 572, 604, 928, 960, 1020, 1084, 1148});
  expectStands<DeviceRecord>(792, {0, 64, 68, 72, 80, 92, 108, 260, 276});
  expectStands<StationStatisticsRecord>(348, {28, 64, 96, 200, 236, 272, 308, 344});
  expectStands<AssociatedDeviceView>(1664, {36, 100, 164, 1300, 1364, 1396});
  expectStands<AccessDeviceView>(2492, {36, 100, 196, 360, 392});
  expectStands<LanInfoView>(684, {36, 100, 276});
  expectStands<GatewayIdentityView>(872, {100, 548, 612, 676, 740});
  expectStands<DeviceInfoView>(7760, {36, 172, 652, 940, 1036, 4924});
  expectStands<LanDeviceView>(1556, {876});
  expectStands<InterfaceInfoView>(808, {36, 100, 676});
  expectStands<RouteInfoRecord>(1340, {296, 312, 340, 344, 348, 376, 396});
  expectStands<WanDeviceTypeRecord>(32, {28});
  expectStands<CpuInfoRecord>(28, {0});
  expectStands<PortMacResultRecord>(36, {28});
  expectStands<PortLinkStateRecord>(96, {28});
  expectStands<EthPortConfigView>(844, {36, 100, 356, 392, 488, 520});
  expectStands<WlanHostEntry>(16, {0, 4, 12});
  expectStands<WlanHostTable>(2052, {0, 4});
  expectStands<WlanDriverRecord>(328, {28, 60, 92, 128, 164, 196, 228, 260, 292, 324});
  expectStands<RouteInterfaceView>(2208, {36, 100, 164, 208, 2204});
  expectStands<DssInfoView>(4384, {36, 100, 164, 196, 240, 284, 328, 360});
  expectStands<DssConfigView>(1224, {36, 100, 164});
  expectStands<PrefixConfigView>(652, {36, 100, 164, 196, 240});
  expectStands<WanConnectionView>(3212, {36, 100, 196, 260});
  expectStands<LinkStatusRecord>(80, {0, 20, 56, 60, 64, 68, 72, 76});
  expectStands<PortStatisticsRecord>(504, {28, 64, 208, 244, 280, 316, 460, 496});
  expectStands<BandwidthReply>(16, {0, 8});
  expectStands<UplinkRateConfigView>(264, {36, 100, 164, 228});
  expectStands<WlanBandSteeringRecord>(96, {28, 60, 92});
  expectStands<WlanEasyMeshRecord>(224, {28, 60});
  expectStands<EasyMeshView>(264, {36, 68});
  expectStands<RadioInfoRecord>(56, {0});
  expectStands<WlanSelectRecord>(196, {28, 64, 96, 128});
  expectStands<WlanWpsRecord>(32, {28});
  expectStands<WlanTxPowerRecord>(72, {28, 68});
  expectStands<WlanPskRecord>(96, {28});
  expectStands<WlanWepRecord>(96, {28});
  expectStands<WlanClientView>(200, {36, 100, 132, 164, 196});
  expectStands<SampleConfigView>(200, {36, 68});
}

}  // namespace
