#include "pmapi/iptv.h"

#include <cstring>
#include <string>

#include "boundary/status.hpp"
#include "platform/traffic_rules.hpp"
#include "tests/support/gateway_test.hpp"

using namespace platform;

namespace gateway {
namespace {

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;

constexpr char kBind[] = "pm_iptvvlanbind_set_config";

class IptvTest : public GatewayTest {
 protected:
  void bind(const std::string &path, uint32_t vlanId) {
    const Row row = store().create<IptvVlanBindingView>("IGD.B" + std::to_string(++bindings_));
    row.setText(IptvVlanBindingView::portPath, path);
    row.setWord(IptvVlanBindingView::vlanId, vlanId);
  }

  UbusIptv record = {};

 private:
  int bindings_ = 0;
};

TEST_F(IptvTest, BindsPortsUpToTheFirstZeroAndReadsThemBack) {
  const UbusIptv asked = {1, 85, {1, 3, 0, 4}, {2, 6}};
  gateway().setLogResult(7);
  EXPECT_EQ(pm_ubus_nexumd_iptv_set(asked), 7) << "the logger's answer";
  EXPECT_THAT(trace(kBind), ElementsAre("pm_iptvvlanbind_set_config(IGD.LD1.ETH1 85) = 0",
                                        "pm_iptvvlanbind_set_config(IGD.LD1.ETH3 85) = 0",
                                        "pm_iptvvlanbind_set_config(IGD.LD1.WLAN2 85) = 0",
                                        "pm_iptvvlanbind_set_config(IGD.LD1.WLAN6 85) = 0"));
  EXPECT_EQ(pm_ubus_nexumd_iptv_get(&record), 0);
  EXPECT_EQ(record.enable, 1u);
  EXPECT_EQ(record.vlanId, 85u);
  EXPECT_THAT(record.ethPorts, ElementsAre(1, 3, 0, 0));
  EXPECT_EQ(record.wlanPorts[1], 6u);
  for (const char *line :
       {"now in pm_ubus_nexumd_iptv_set\n", "now in pm_ubus_nexumd_iptv_get\n",
        "pm_ubus_nexumd_iptv_set success \n", "pm_ubus_nexumd_iptv_get success end "}) {
    EXPECT_THAT(logs(), HasLog(5, line));
  }
}

TEST_F(IptvTest, EveryPortOfAFullRecordIsBoundAndReadBack) {
  UbusIptv asked = {1, 1, {1, 2, 3, 4}, {}};
  for (uint32_t i = 0; i < 16; ++i) asked.wlanPorts[i] = 16 - i;
  EXPECT_EQ(pm_ubus_nexumd_iptv_set(asked), 0);
  EXPECT_THAT(trace(kBind), SizeIs(20));
  EXPECT_EQ(pm_ubus_nexumd_iptv_get(&record), 0);
  EXPECT_THAT(record.ethPorts, ElementsAreArray(asked.ethPorts));
  EXPECT_THAT(record.wlanPorts, ElementsAreArray(asked.wlanPorts));
}

TEST_F(IptvTest, VlanRangesDifferBetweenSetAndGet) {
  UbusIptv asked = {1, 4097, {1}, {}};
  EXPECT_EQ(pm_ubus_nexumd_iptv_set(asked), -1);
  EXPECT_THAT(trace(kBind), IsEmpty());
  EXPECT_THAT(logs(), HasLog(4, "pm_ubus_nexumd_iptv_set vlanid is out of range (0~4096)\n"));
  asked.vlanId = 4096;
  EXPECT_EQ(pm_ubus_nexumd_iptv_set(asked), 0);
  EXPECT_THAT(store().paths(layoutOf<IptvVlanBindingView>()), SizeIs(1));
  const Row row = store().row<IptvVlanBindingView>("IGD.Iptvlanbind1");
  for (const auto &[vlanId, reported] :
       {std::pair(0u, 77u), {1u, 1u}, {4094u, 4094u}, {4095u, 77u}, {4096u, 77u}}) {
    row.setWord(IptvVlanBindingView::vlanId, vlanId);
    record.vlanId = 77;
    EXPECT_EQ(pm_ubus_nexumd_iptv_get(&record), 0);
    EXPECT_EQ(record.vlanId, reported) << vlanId;
    EXPECT_EQ(record.ethPorts[0], 1u);
  }
}

TEST_F(IptvTest, DisablingRemovesEveryBindingThatCanBeReadAndNamesNoneForTheOthers) {
  bind("IGD.LD1.ETH1", 85);
  bind("IGD.LD1.WLAN2", 85);
  bind("IGD.LD1.ETH4", 86);
  fail("vcorDbGetView", "IGD.B2", -5, 1, 1);
  EXPECT_EQ(pm_ubus_nexumd_iptv_set({0, 9999, {}, {}}), 0);
  EXPECT_THAT(store().paths(layoutOf<IptvVlanBindingView>()), ElementsAre("IGD.B2"));
  EXPECT_THAT(trace(kBind),
              ElementsAre(HasSubstr("(IGD.LD1.ETH1 0)"), HasSubstr("( 0)"), HasSubstr("ETH4 0)")));
  EXPECT_THAT(logs(), HasLogLine({5, "pm_iptv_del",
                                  "vcorDbQryView DBVIEW_IPTVIVLANBIND tList.dwCount is 3 \n"}));
  fail("vcorDbLstView", "", -6, 1, 1);
  EXPECT_EQ(pm_iptv_del(), -6);
  EXPECT_THAT(logs(), HasLog(4, "vcorDbQryView DBVIEW_IPTVLANBIND failure! iRet = -6.\n"));
}

TEST_F(IptvTest, TablesBeyondTheRecordFillItAndNoMore) {
  struct {
    UbusIptv record;
    uint32_t behind = 0xFEEDFACE;
  } guarded = {};
  for (int port = 1; port <= 10; ++port) bind("IGD.LD1.ETH" + std::to_string(port), 85);
  for (int port = 1; port <= 30; ++port) bind("IGD.LD1.WLAN" + std::to_string(port), 90);
  EXPECT_EQ(pm_ubus_nexumd_iptv_get(&guarded.record), 0);
  EXPECT_THAT(guarded.record.ethPorts, ElementsAre(1, 2, 3, 4));
  EXPECT_EQ(guarded.record.wlanPorts[15], 16u);
  EXPECT_EQ(guarded.record.vlanId, 90u) << "the last one wins";
  EXPECT_EQ(guarded.behind, 0xFEEDFACEU);
}

TEST_F(IptvTest, GetRefusesWithoutTouchingTheRecord) {
  record.enable = 9;
  EXPECT_EQ(pm_ubus_nexumd_iptv_get(&record), -1) << "an empty table";
  EXPECT_EQ(pm_ubus_nexumd_iptv_get(nullptr), -1);
  EXPECT_THAT(logs(),
              HasLogLine({4, "pm_ubus_nexumd_iptv_get", "pm_ubus_nexumd_iptv_get para is null"}));
  fail("vcorDbLstView", "", -6, 1, 1);
  EXPECT_EQ(pm_ubus_nexumd_iptv_get(&record), -1);
  EXPECT_THAT(logs(), HasLog(4, "list vlan fail!"));
  EXPECT_EQ(record.enable, 9u);
}

TEST_F(IptvTest, OddPathsAndUnreadableBindingsLeaveTheOthers) {
  bind("IGD.LD1", 85);
  bind("IGD.LD1.WLAN9", 86);
  bind("IGD.LD1.ETH2", 87);
  // A path to the last byte of its field.
  const Row full = store().row<IptvVlanBindingView>("IGD.B1");
  const std::string path = "IGD.LD1.WLAN7" + std::string(23, 'x');
  std::memcpy(full.data() + IptvVlanBindingView::portPath.offset, path.data(), path.size());
  bind("IGD.LD1", 88);
  fail("vcorDbGetView", "IGD.B2", -5, 1, 1);
  EXPECT_EQ(pm_ubus_nexumd_iptv_get(&record), 0);
  EXPECT_THAT(record.ethPorts, ElementsAre(2, 0, 0, 0));
  EXPECT_EQ(record.wlanPorts[0], 7u);
  EXPECT_EQ(record.wlanPorts[1], 0u) << "too short for a port";
  EXPECT_EQ(pm_iptv_del(), 0);
  EXPECT_THAT(trace(kBind)[0], HasSubstr("(" + path.substr(0, 31) + " 0)"));
}

TEST_F(IptvTest, CountsBelowZeroAreNone) {
  bind("IGD.LD1.ETH1", 85);
  fail(Fault{.call = "vcorDbLstView", .times = 2, .count = -1});
  EXPECT_EQ(pm_ubus_nexumd_iptv_get(&record), -1);
  EXPECT_EQ(pm_iptv_del(), 0);
  EXPECT_THAT(trace(kBind), IsEmpty());
}

TEST_F(IptvTest, SweepOfFaults) {
  beforeEachRun([this] {
    bind("IGD.LD1.ETH1", 85);
    bind("IGD.LD1.WLAN2", 85);
  });
  sweepFaults(
      [] {
        return pm_ubus_nexumd_iptv_set({1, 85, {1, 2}, {3}});
      },
      [](const testing::SweepRun &run) { EXPECT_EQ(run.status, 0); });
  sweepFaults([] { return pm_ubus_nexumd_iptv_set({0, 0, {}, {}}); });
  sweepFaults([this] { return pm_ubus_nexumd_iptv_get(&record); });
}

}  // namespace
}  // namespace gateway
