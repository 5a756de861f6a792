// Rings of rate samples, their statistics, and the two samplers that fill them.
#include <algorithm>
#include <cstring>

#include "gateway/stations.hpp"
#include "gateway/traffic.hpp"
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
#include "tests/objects/uplink_fixture.hpp"

using namespace platform;

namespace gateway {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Pair;
using ::testing::SizeIs;

class RateSamplesTest : public testing::SampledGatewayTest {
 protected:
  static int32_t add(int32_t tx, int32_t rx, const char *key = "uplink", int32_t mode = 3) {
    const si_net_sample sample = {{}, tx, rx};
    return si_sample_list_add(&sample, key, mode);
  }

  int32_t reduce(const char *key, int32_t mode) {
    si_net_sample_dev wanted = {};
    std::strncpy(wanted.name, key, sizeof wanted.name - 1);
    return si_net_sample_list_statics(&wanted, &result, mode);
  }

  si_net_sample_statics result = {7, 7, 7, 7};
};

TEST_F(RateSamplesTest, RingKeepsAsManyAsTheIpv4IntervalsAllow) {
  const struct {
    int32_t report;
    int32_t sample;
    size_t kept;
  } cases[] = {{600, 60, 10}, {59, 60, 10}, {600, 59, 10}, {180, 60, 3}, {600, 700, 1}};
  g_if6_ReportInterval = 120;
  for (const auto &one : cases) {
    startSampling();
    g_ifa_ReportInterval = one.report;
    g_ifa_SampleInterval = one.sample;
    for (int32_t i = 1; i <= 12; ++i) EXPECT_EQ(add(i, -i, "uplink", 4), 0);
    const auto all = rings(g_net_uplink_if6_list);
    ASSERT_THAT(all, SizeIs(1));
    const auto kept = samples(all[0]);
    ASSERT_THAT(kept, SizeIs(one.kept)) << one.report << "/" << one.sample;
    EXPECT_EQ(kept.front().first, 13 - static_cast<int32_t>(one.kept)) << "the newest stay";
    EXPECT_THAT(kept.back(), Pair(12, -12));
  }
}

TEST_F(RateSamplesTest, RingThatHasBecomeTooLongKeepsItsLength) {
  for (int32_t i = 1; i <= 10; ++i) add(i, i);
  g_ifa_ReportInterval = 120;
  forgetCalls();
  EXPECT_EQ(add(11, 11), 0);
  EXPECT_THAT(samples(rings(g_net_uplink_ifa_list)[0]), SizeIs(10));
  EXPECT_THAT(trace(), ElementsAre("RetUB()", "GetUB(20) = ok"));
  EXPECT_THAT(logs(), HasLogLine({5, "si_sample_list_add", "[ list for each  1 \n"}));
  EXPECT_THAT(logs(), ::testing::Not(HasLog(5, "[ list for each  2 \n")));
}

TEST_F(RateSamplesTest, EachModeAndKeyHasItsOwnRing) {
  const std::string longKey(40, 'k');
  for (int32_t mode = 1; mode <= 4; ++mode) add(mode, mode, longKey.c_str(), mode);
  add(9, 9, "other", 1);
  EXPECT_THAT(rings(g_net_sta_ifa_list), SizeIs(2));
  for (int32_t mode = 1; mode <= 4; ++mode) {
    EXPECT_EQ(reduce(longKey.c_str(), mode), 0);
    EXPECT_EQ(result.rx_max, mode);
  }
  // The whole key does not equal what a node keeps of it.
  add(1, 1, longKey.c_str(), 2);
  EXPECT_THAT(rings(g_net_sta_if6_list), SizeIs(2));
}

TEST_F(RateSamplesTest, StatisticsOfARing) {
  const struct {
    std::vector<int32_t> values;
    int32_t max;
    int32_t average;
  } cases[] = {{{10, -5, 7}, 10, 4},
               {{-3, -4}, 0, -3},
               {{7}, 7, 7},
               {{INT32_MAX, INT32_MAX}, INT32_MAX, -1}};
  for (const auto &one : cases) {
    startSampling();
    for (const int32_t value : one.values) add(100, value);
    EXPECT_EQ(reduce("uplink", 3), 0);
    EXPECT_EQ(result.rx_max, one.max);
    EXPECT_EQ(result.rx_aver, one.average);
    EXPECT_EQ(result.tx_max, 100);
    EXPECT_EQ(result.tx_aver, 100);
  }
  EXPECT_THAT(logs(), HasLogLine({5, "si_net_sample_list_statics",
                                  "[si_sample_statics] success end [mode:3 count:3]   [rx_max "
                                  "rx_max rx_aver tx_aver] is [10 : 100 :4 :100]\n"}));
}

TEST_F(RateSamplesTest, StatisticsThatCannotBeHadLeaveTheResult) {
  add(1, 1, "");
  add(2, 2, "emptied");
  auto *ring = const_cast<si_net_sample_dev *>(rings(g_net_uplink_ifa_list)[1]);
  si_net_sample_list_del(reinterpret_cast<si_net_sample *>(ring->samples.next));
  si_net_sample_list_del(nullptr);
  EXPECT_EQ(reduce("", 3), -1) << "an empty key is never found";
  EXPECT_EQ(reduce("emptied", 3), -1);
  EXPECT_EQ(reduce("uplink", 3), -1);
  for (const int32_t mode : {0, 5, -1}) EXPECT_EQ(reduce("emptied", mode), -1);
  g_net_sta_ifa_list = {};
  EXPECT_EQ(reduce("uplink", 1), -1) << "a head that nobody has set";
  EXPECT_EQ(result.rx_max, 7);
  const si_net_sample_dev key = {};
  EXPECT_EQ(si_net_sample_list_statics(nullptr, &result, 1), -1);
  EXPECT_EQ(si_net_sample_list_statics(&key, nullptr, 1), -1);
}

TEST_F(RateSamplesTest, AdditionsThatFailLeaveTheListsWhole) {
  EXPECT_EQ(si_sample_list_add(nullptr, "uplink", 3), -1);
  EXPECT_EQ(add(1, 1, "uplink", 5), -1);
  EXPECT_THAT(logs(), HasLogLine({4, "si_sample_list_add",
                                  "[si_net_sample_list_statics] not support this mode  [5] \n"}));
  fail("GetUB", "64", -1, 1, 1);
  EXPECT_EQ(add(1, 1), 0) << "without a node nothing is added";
  EXPECT_THAT(logs(), HasLog(4, "[si_net_device_list_add ] GetUB error"));
  EXPECT_THAT(rings(g_net_uplink_ifa_list), IsEmpty());

  for (int32_t i = 1; i <= 10; ++i) add(i, i);
  fail("GetUB", "20", -1, 1, 1);
  EXPECT_EQ(add(11, 11), -1);
  EXPECT_THAT(logs(), HasLog(4, "[si_sample_list_add] GetUB error"));
  const auto left = samples(rings(g_net_uplink_ifa_list)[0]);
  EXPECT_THAT(left, SizeIs(9)) << "what was evicted is gone";
  EXPECT_EQ(left.front().first, 2);
}

class UplinkSamplerTest : public RateSamplesTest {
 protected:
  UplinkSamplerTest() { loadExample("home_router.json"); }
};

TEST_F(UplinkSamplerTest, FilesTheReceiveRateTwiceAsTimePasses) {
  store().row<SampleConfigView>("IGD").setWord(SampleConfigView::reportInterval, 1200);
  g_if6_ReportInterval = g_if6_SampleInterval = 1;
  const uint64_t before = gateway::traffic().interfaces[0].rx.count +
                          gateway::traffic().interfaces[1].rx.count +
                          gateway::traffic().interfaces[2].rx.count;
  EXPECT_EQ(if_uplink_statics(1), 0);
  gateway().clock().advance(60);
  EXPECT_EQ(if_uplink_statics(1), 0);
  EXPECT_EQ(if_uplink_statics(2), 0);
  const auto all = samples(rings(g_net_uplink_ifa_list)[0]);
  ASSERT_THAT(all, SizeIs(2));
  EXPECT_EQ(all[0].first, static_cast<int32_t>(static_cast<float>(before) / 1024));
  EXPECT_EQ(all[0].first, all[0].second);
  EXPECT_GT(all[1].first, all[0].first + 60 * 1000);
  EXPECT_THAT(samples(rings(g_net_uplink_if6_list)[0]), ElementsAre(all[1]));
  EXPECT_STREQ(rings(g_net_uplink_ifa_list)[0]->name, "uplink");
  EXPECT_EQ(g_ifa_ReportInterval, 1200);
  EXPECT_EQ(g_ifa_SampleInterval, 60);
  EXPECT_EQ(g_if6_ReportInterval, 600);
  EXPECT_EQ(g_if6_SampleInterval, 60);
}

TEST_F(UplinkSamplerTest, RatesThatCannotBeReadCountAsZero) {
  const struct {
    Fault fault;
    const char *line;
  } cases[] = {{{"vcorDbLstView", "DBVIEW_WAN_CONN_DEV"}, nullptr},
               {{"vcorDbGetView", "IGD.WD1.WCD1.WCPPP1"}, nullptr},
               {{"ctSgw_ssend_to_proxy", "nbif2"},
                "ctSgw_ssend_to_proxy CTSGW_EVENT_GET_BANDWIDTH error!\n"},
               {{.call = "ctSgw_ssend_to_proxy", .match = "nbif0", .replyStatus = 5},
                "ctSgw_ssend_to_proxy CTSGW_EVENT_GET_BANDWIDTH error!\n"}};
  for (const auto &one : cases) {
    restart();
    startSampling();
    fail(one.fault);
    EXPECT_EQ(if_uplink_statics(1), 0);
    EXPECT_THAT(samples(rings(g_net_uplink_ifa_list)[0]), ElementsAre(Pair(0, 0)));
    if (one.line != nullptr) {
      EXPECT_THAT(logs(), HasLog(4, one.line));
    }
  }
}

TEST_F(UplinkSamplerTest, CountersThatDoNotComeCountAsZero) {
  auto &interfaces = gateway::traffic().interfaces;
  interfaces[0].rx = {1024, 0, 0};
  interfaces[1].rx = {1024 << 1, 0, 0};
  interfaces[2].rx = {1024 << 2, 0, 0};
  // The second connection's counters in part: its figures are its own, not the ones before it.
  const std::vector<uint8_t> whole = {0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0, 0};
  const struct {
    size_t length;
    int32_t rate;
  } cases[] = {{0, 3}, {7, 3}, {8, 3}, {10, 3}, {11, 67}, {16, 67}};
  for (const auto &one : cases) {
    startSampling();
    fail({.call = "ctSgw_ssend_to_proxy",
          .match = "BANDWIDTH",
          .from = 2,
          .times = 1,
          .replyStatus = 0,
          .replyPayload = {whole.begin(), whole.begin() + static_cast<ptrdiff_t>(one.length)}});
    EXPECT_EQ(if_uplink_statics(1), 0);
    EXPECT_THAT(samples(rings(g_net_uplink_ifa_list)[0]), ElementsAre(Pair(one.rate, one.rate)))
        << one.length;
  }
  EXPECT_THAT(logs(), HasLogLine({5, "net_json_get_rate_rt",
                                  " BandWithInfotmp  tBandwidthTx :0 tBandwidthRx: 65536"}));
  EXPECT_THAT(logs(), HasLog(5,
                             " enter  si_sample_list_add dev_name is uplink  rx tx [ 67 : 67] "
                             "\n"));
}

TEST_F(UplinkSamplerTest, OtherModesAndAnUnreadableConfigurationAddNothing) {
  EXPECT_EQ(if_uplink_statics(3), 0);
  EXPECT_THAT(logs(), HasLogLine({4, "if_uplink_statics", "not support this mode \n"}));
  fail("vcorDbGetView", "DBVIEW_SAMPLE_CONFIG", -5);
  EXPECT_EQ(if_uplink_statics(1), -1);
  EXPECT_THAT(logs(), HasLogLine({4, "if_uplink_statics", "{si_sample } get err: -5", -5}));
  EXPECT_EQ(if_sta_statics(1), 0) << "the stations' sampler does not report it";
  EXPECT_THAT(rings(g_net_uplink_ifa_list), IsEmpty());
  EXPECT_THAT(rings(g_net_sta_ifa_list), IsEmpty());
}

class StationSamplerTest : public RateSamplesTest {
 protected:
  StationSamplerTest() { loadExample("home_router.json"); }

  /// Leaves one station online.
  Station &only(size_t index) {
    for (Station &station : stations().all) station.online = false;
    stations().all[index].online = true;
    return stations().all[index];
  }

  std::pair<int32_t, int32_t> sampleOnce() {
    startSampling();
    EXPECT_EQ(if_sta_statics(1), 0);
    const auto all = rings(g_net_sta_ifa_list);
    EXPECT_THAT(all, SizeIs(1));
    return samples(all.at(0)).at(0);
  }
};

TEST_F(StationSamplerTest, EachSampleIsTheLastStationUnderAnEmptyKey) {
  const Station &last = stations().all[8];
  EXPECT_EQ(if_sta_statics(1), 0);
  EXPECT_EQ(if_sta_statics(1), 0);
  EXPECT_EQ(if_sta_statics(2), 0);
  const auto all = rings(g_net_sta_ifa_list);
  ASSERT_THAT(all, SizeIs(2)) << "no call finds the node of the one before";
  const auto rate = Pair(static_cast<int32_t>(last.bytesSent.perSecond),
                         static_cast<int32_t>(last.bytesReceived.perSecond));
  for (const si_net_sample_dev *ring : all) {
    EXPECT_STREQ(ring->name, "");
    EXPECT_THAT(samples(ring), ElementsAre(rate));
  }
  EXPECT_THAT(rings(g_net_sta_if6_list), SizeIs(1));
  EXPECT_EQ(if_sta_statics(3), 0);
  EXPECT_THAT(logs(), HasLogLine({4, "if_sta_statics", "not support this mode \n"}));
  EXPECT_THAT(rings(g_net_sta_ifa_list), SizeIs(2));
}

TEST_F(StationSamplerTest, InterfaceDecidesWhoIsAsked) {
  only(3);
  EXPECT_THAT(sampleOnce(), Pair(262144, 40960));
  EXPECT_THAT(trace("ctSgw_ssend_to_proxy"),
              ElementsAre(HasSubstr("CTSGW_EVENT_QUERY_ADEV_PARAM IGD.LD1.Hosts.Adev4"),
                          HasSubstr("CTSGW_EVENT_GET_BW_STATS")));
  forgetCalls();
  only(7);
  EXPECT_THAT(sampleOnce(), Pair(524288, 131072));
  EXPECT_THAT(trace("ctSgw_ssend_to_proxy")[1], HasSubstr("CTSGW_EVENT_GET_HARD_STATS"));
  forgetCalls();
  only(8);  // the hardware has no register for it
  EXPECT_THAT(sampleOnce(), Pair(128, 256));
  EXPECT_THAT(trace("ctSgw_ssend_to_proxy"), SizeIs(3));
  EXPECT_THAT(logs(), HasLogLine({5, "if_sta_statics",
                                  "pm_bw_get_hard_stats not enough register, use olt func\n"}));
  forgetCalls();
  only(8).interfaceName = "usb0";
  EXPECT_THAT(sampleOnce(), Pair(0, 0));
  EXPECT_THAT(trace("ctSgw_ssend_to_proxy"), SizeIs(1));
}

TEST_F(StationSamplerTest, DeviceThatDoesNotCountEndsTheWalkWithZero) {
  only(3);
  stations().all[8].online = true;
  stations().all[8].interfaceName = "usb0";
  EXPECT_THAT(sampleOnce(), Pair(0, 0)) << "nothing is left of the device before it";
  only(3).online = false;
  EXPECT_THAT(sampleOnce(), Pair(0, 0)) << "no device at all";
  EXPECT_THAT(logs(), HasLogLine({5, "if_sta_statics",
                                  " enter  si_sample_list_add dev_mac is   [tx:0 rx:0 ]\n"}));
  Station &station = only(7);
  station.linkFlag = 1;
  EXPECT_THAT(sampleOnce(), Pair(0, 0));
  station.ipv4 = 0;
  EXPECT_THAT(sampleOnce(), Pair(524288, 131072));
}

TEST_F(StationSamplerTest, FailuresSkipTheDeviceOnly) {
  const struct {
    size_t station;
    Fault fault;
    const char *line;
  } cases[] = {
      {3,
       {"ctSgw_ssend_to_proxy", "ADEV"},
       "ctSgw_ssend_to_proxy CTSGW_EVENT_QUERY_ADEV_PARAM error!\n"},
      {3,
       {"ctSgw_ssend_to_proxy", "BW_STATS"},
       "ctSgw_ssend_to_proxy CTSGW_EVENT_GET_BW_STATS error!\n"},
      {7,
       {"ctSgw_ssend_to_proxy", "HARD_STATS"},
       "ctSgw_ssend_to_proxy CTSGW_EVENT_GET_HARD_STATS error!\n"},
      {8,
       {"ctSgw_ssend_to_proxy", "BW_STATS"},
       "ctSgw_ssend_to_proxy CTSGW_EVENT_GET_BW_STATS error!\n"},
  };
  for (const auto &one : cases) {
    restart();
    only(one.station);
    fail(one.fault);
    EXPECT_THAT(sampleOnce(), Pair(0, 0));
    EXPECT_THAT(logs(), Contains(::testing::Field(&LogLine::text, one.line)));
  }
  // What the hardware says besides that it does not count this one is worth nothing.
  fail({.call = "ctSgw_ssend_to_proxy",
        .match = "HARD_STATS",
        .times = 1,
        .replyStatus = 0,
        .replyPayload = std::vector<uint8_t>(348, 'x')});
  EXPECT_THAT(sampleOnce(), Pair(0, 0));
  fail("plib_adev_list_view", "", -3);
  EXPECT_EQ(if_sta_statics(1), 1001);
}

TEST_F(StationSamplerTest, InterfaceNameMayFillItsField) {
  only(7);
  const std::string longest = "eth0.123456789ab";
  store().create<LanInfoView>("IGD.LD1.ETH9").setText(LanInfoView::interfaceName, longest);
  std::vector<uint8_t> device(DeviceRecord::kSize, 'x');
  fieldsOf<DeviceRecord>(device.data()).setMac(DeviceRecord::mac, stations().all[7].mac);
  std::copy(longest.begin(), longest.end(), device.begin() + DeviceRecord::interfaceName.offset);
  fail({.call = "ctSgw_ssend_to_proxy", .match = "ADEV", .replyStatus = 0, .replyPayload = device});
  EXPECT_THAT(sampleOnce(), Pair(524288, 131072));
}

TEST_F(StationSamplerTest, LanInterfaceThatIsNotFoundIsPrinted) {
  only(7);
  fail("vcorDbQryView", "DBVIEW_LANINFO", -6, 1, 1);
  EXPECT_EQ(printedBy([&] { sampleOnce(); }),
            "[net_get_laninfo_by_ifname]vcorDbQryView  DBVIEW_LANINFO  -6 \n");
  fail("vcorDbGetView", "DBVIEW_LANINFO", -7, 1, 1);
  EXPECT_EQ(printedBy([&] { sampleOnce(); }),
            "[net_get_laninfo_by_ifname]vcorDbGetView   DBVIEW_LAN_INFO  IGD.LD1.ETH1  failed \n");
  store().row<LanInfoView>("IGD.LD1.ETH2").setText(LanInfoView::interfaceName, "eth0");
  EXPECT_EQ(printedBy([&] { sampleOnce(); }), "[net_get_laninfo_by_ifname]tList.dwCount = 2\n");
}

TEST_F(StationSamplerTest, ListLongerThanItsBufferIsCut) {
  loadExample("crowded.json");
  for (uint8_t i = 0; i < 3; ++i) {
    Station more;
    more.mac = {2, 0, 0, 0, 0, i};
    more.interfaceName = "wlan0";
    stations().attach(more);
  }
  EXPECT_THAT(sampleOnce(), Pair(1024, 512)) << "the 128th device is the last";
  size_t queries = 0;
  for (const std::string &call : trace("ctSgw_ssend_to_proxy")) {
    queries += call.find("QUERY_ADEV") != std::string::npos ? 1 : 0;
  }
  EXPECT_EQ(queries, 128u);
}

TEST_F(StationSamplerTest, RepliesOfWrongLengthAreTakenAsFarAsTheyGo) {
  only(3);
  const uint16_t lengths[] = {0, 3, 4, 9, 65535};
  for (const uint16_t length : lengths) {
    for (const char *event : {"ADEV", "BW_STATS"}) {
      fail({.call = "ctSgw_ssend_to_proxy",
            .match = event,
            .times = 1,
            .replyStatus = 0,
            .replyLength = length});
      EXPECT_THAT(sampleOnce(), Pair(0, 0)) << event << " " << length;
    }
  }
}

TEST_F(StationSamplerTest, SweepOfFaults) {
  beforeEachRun(&StationSamplerTest::startSampling);
  const auto check = [&](const testing::SweepRun &run) {
    EXPECT_TRUE(run.status == 0 || run.status == 1001 || run.status == -1) << run.status;
    for (const ListLink *head : {&g_net_sta_ifa_list, &g_net_uplink_ifa_list}) {
      for (const si_net_sample_dev *ring : rings(*head)) samples(ring);
    }
  };
  EXPECT_GT(sweepFaults([] { return if_sta_statics(1); }, check), 20u);
  EXPECT_GT(sweepFaults([] { return if_uplink_statics(1); }, check), 9u);
}

}  // namespace
}  // namespace gateway
