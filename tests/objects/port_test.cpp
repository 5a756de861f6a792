#include "pmapi/port.h"

#include <cstring>

#include "gateway/ports.hpp"
#include "gateway/wan.hpp"
#include "platform/ports.hpp"
#include "tests/support/gateway_test.hpp"

using namespace platform;

namespace gateway {
namespace {

class PortTest : public GatewayTest {
 protected:
  PortTest() { loadExample("home_router.json"); }

  int32_t get(uint32_t index, const char *instance) {
    record = {};
    std::strcpy(record.portRate, "kept");
    return pm_ubus_get_portinfo(index, instance, &record);
  }

  PortInfoRecord record = {};
};

TEST_F(PortTest, LanPortTakesItsRateFromTheConfiguration) {
  expectNoLeaks();
  EXPECT_EQ(get(0, "IGD.LD1.ETH1"), 0);
  EXPECT_EQ(record.portNumber, 1u);
  EXPECT_EQ(record.portType, 1u);
  EXPECT_STREQ(record.portRate, "1000Mbps");
  EXPECT_STREQ(record.portMac, "00E04C7731D1");
  EXPECT_EQ(record.portConnection, 1u);
  EXPECT_THAT(logs(), HasLog(5, "now in nexumi_get_port_info\n "));
  EXPECT_THAT(logs(), HasLog(5, "szInstIdentity = IGD.LD1.ETH1\n "));
  EXPECT_THAT(logs(), HasLog(5, "p_portinfo->portMac : 00E04C7731D1!\n "));
  EXPECT_THAT(logs(), HasLog(5, "portConnection:1 \n"));
  EXPECT_THAT(logs(), HasLog(5, "p_portinfo->portRate : 1000Mbps!\n "));
  const char *const rates[] = {"10Mbps", "100Mbps", "1000Mbps", "10000Mbps", "kept"};
  for (uint32_t code = 0; code < 5; ++code) {
    store().row<EthPortConfigView>("IGD.LD1.ETH1").setWord(EthPortConfigView::rateCode, code);
    EXPECT_EQ(get(0, "IGD.LD1.ETH1"), 0);
    EXPECT_STREQ(record.portRate, rates[code]);
  }
}

TEST_F(PortTest, AMacThatThePlatformDoesNotTellIsAllZeros) {
  fail("pm_mac_prm_op");
  EXPECT_EQ(get(0, "IGD.LD1.ETH1"), 0);
  EXPECT_STREQ(record.portMac, "000000000000");
}

TEST_F(PortTest, UplinkPortIsTheOneWhoseIndexEqualsTheLowHalfOfThePlatformsWord) {
  const struct {
    uint32_t rateCode;
    const char *rate;
  } cases[] = {{0, "10Mbps"}, {1, "100Mbps"}, {2, "1000Mbps"}, {3, ""}, {9, ""}};
  wan().uplink.port = 0xABCD0004;
  for (const auto &one : cases) {
    store()
        .row<EthPortConfigView>("IGD.WD1.ETH5")
        .setWord(EthPortConfigView::rateCode, one.rateCode);
    EXPECT_EQ(get(4, "IGD.WD1.ETH5"), 0);
    EXPECT_EQ(record.portNumber, 5u);
    EXPECT_EQ(record.portType, 0u);
    EXPECT_STREQ(record.portRate, one.rate) << one.rateCode;
    EXPECT_EQ(record.portConnection, 1u);
  }
  EXPECT_THAT(logs(), HasLog(5, "stateResult=1\n"));
  EXPECT_EQ(trace("pm_wan_get_port_link_state_type").front(),
            "pm_wan_get_port_link_state_type(4) = 0");
  fail("pm_wan_get_port_link_state_type", "", -4);
  EXPECT_EQ(get(4, "IGD.WD1.ETH5"), 0);
  EXPECT_STREQ(record.portRate, "10Mbps");
  EXPECT_THAT(logs(), HasLogLine({4, "pm_ubus_get_portinfo",
                                  "error:pm_wan_get_port_link_state_type\n", -4}));
}

TEST_F(PortTest, FailuresLeaveWhatWasFilledBefore) {
  EXPECT_EQ(get(9, "IGD.LD1.ETH9"), -8);
  EXPECT_EQ(record.portNumber, 10u);
  EXPECT_STREQ(record.portMac, "");
  EXPECT_THAT(logs(), HasLog(4, "vcorDbGetView DBVIEW_ETH_PORTCONF failed!"));

  const size_t mode = fail("pm_upmode_info_get", "", -33, 1, 1);
  EXPECT_EQ(get(0, "IGD.LD1.ETH1"), -33);
  EXPECT_EQ(gateway().boundary().fault(mode).fired, 1u);
  EXPECT_STREQ(record.portMac, "00E04C7731D1");
  EXPECT_THAT(logs(), HasLog(4, "[pm_ubus_get_portinfo] pm_upmode_info_get error, iret = -33\n"));

  fail("pm_eth_get_port_link_state", "", -34);
  EXPECT_EQ(get(0, "IGD.LD1.ETH1"), -34);
  EXPECT_EQ(record.portType, 1u);
  EXPECT_STREQ(record.portRate, "kept");
  EXPECT_THAT(logs(), HasLog(4, "[pm_eth_get_port_link_state] failed, retcode = -34\n"));
  EXPECT_EQ(pm_ubus_get_portinfo(0, "IGD.LD1.ETH1", nullptr), -1);
  EXPECT_THAT(logs(), HasLogLine({4, "pm_ubus_get_portinfo", "pm_ubus_get_portinfo para is null"}));
}

TEST_F(PortTest, SweepOfFaults) {
  for (const uint32_t index : {0U, 4U}) {
    const char *instance = index == 0 ? "IGD.LD1.ETH1" : "IGD.WD1.ETH5";
    sweepFaults([&] { return get(index, instance); },
                [&](const testing::SweepRun &) { EXPECT_EQ(record.portNumber, index + 1); });
  }
}

}  // namespace
}  // namespace gateway
