#include <unistd.h>

#include <cstring>
#include <filesystem>

#include "gateway/habits.hpp"
#include "gateway/host.hpp"
#include "gateway/ports.hpp"
#include "gateway/traffic.hpp"
#include "gateway/wan.hpp"
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

using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;

constexpr const char *kWan = "IGD.WD1.WCD1.WCPPP1";
constexpr const char *kArpHeader =
    "IP address       HW type     Flags       HW address            Mask     Device\n";

Ipv6Address address(const char *text) {
  return parseIpv6(text).value();
}

class UplinkInfoTest : public testing::SampledGatewayTest {
 protected:
  UplinkInfoTest() { loadExample("home_router.json"); }

  int32_t get() {
    record = {};
    return pm_ubus_get_uplinkinfo(&record);
  }

  std::string gatewayMac() {
    char mac[32] = {};
    status = ubus_getGatewayMac(mac);
    return mac;
  }

  UplinkInfoRecord record = {};
  int32_t status = 0;
};

TEST_F(UplinkInfoTest, FillsTheRecordOfAWiredUplink) {
  if_uplink_statics(1);
  if_uplink_statics(2);
  EXPECT_EQ(get(), 0);
  EXPECT_STREQ(record.uplinkType, "Ethernet");
  EXPECT_STREQ(record.managerMac, "00E04C7731A3");
  EXPECT_STREQ(record.GatewayMac, "00005E000101");
  EXPECT_EQ(record.netIpMode, 1);
  EXPECT_EQ(record.accessMode, 2);
  EXPECT_STREQ(record.pppoeUserName, "07558823417@home");
  EXPECT_STREQ(record.pppoePassword, "s8Lq2vXd");
  EXPECT_STREQ(record.runningTime, "1036800");
  EXPECT_STREQ(record.radioBand, "");
  EXPECT_STREQ(record.wlanStatus3, "");
  EXPECT_STREQ(record.linkRate, "1000");
  EXPECT_STREQ(record.linkRate2, "1000");
  EXPECT_STREQ(record.v6Status, "Connected");
  EXPECT_STREQ(record.v6AddressOrigin, "DHCPv6");
  EXPECT_STREQ(record.v6IPAddress, "2001:db8:4c:7731::1");
  EXPECT_STREQ(record.dhsv6_servers, "2001:db8:53::1");
  EXPECT_EQ(record.v6PrefixMode, 1);
  EXPECT_STREQ(record.v6PrefixOrigin, "PrefixDelegation");
  EXPECT_STREQ(record.v6Prefix, "2001:db8:4c:7732::");
  EXPECT_STREQ(record.PreferLifetime, "3600");
  EXPECT_STREQ(record.ValidLifetime, "7200");
  EXPECT_STREQ(record.defaultIPv6Gateway, "fe80::200:5eff:fe00:101");
  EXPECT_EQ(record.rateStatsValid, 1);
  for (const UplinkRateBlock *block : {&record.ipv4Rates, &record.ipv6Rates}) {
    EXPECT_STREQ(block->MaxRxRate, "9472000");
    EXPECT_STREQ(block->AverTxRate, "9472000");
  }
  EXPECT_STREQ(record.ipv4Rates.statType, "IFA");
  EXPECT_STREQ(record.ipv6Rates.statType, "IF6");
  EXPECT_STREQ(record.RxRate_rt, "9472000.000");
  EXPECT_STREQ(record.TxRate_rt, "1041817.625");
  const testing::LogExpectation lines[] = {
      {5, "pm_ubus_get_uplinkinfo", "ubus_get_manger_mac, 00:e0:4c:77:31:a3 !\n"},
      {5, "ubus_getGatewayMac", "pGatewayMac:00:00:5e:00:01:01\n"},
      {5, "pm_ubus_get_uplinkinfo", "GatewayMac=00005E000101\n"},
      {5, "ubus_getPPPOEUserPwd", "pUser:07558823417@home\n"},
      {5, "ubus_getPPPOEUserPwd", "pPwd:s8Lq2vXd\n"},
      {5, "pm_ubus_get_uplinkinfo", "up_mode=1\n"},
      {5, "pm_ubus_get_uplinkinfo", "pm_wan_get_port_link_state_type Rate = 1000 \n"},
      {5, "ubus_get_rate_rt", " RxRate_rt  RxRate_rt  :9472000.000 TxRate_rt: 1041817.625"},
      {5, "pm_ubus_get_uplinkinfo", " RxRate_rt  RxRate_rt :9472000.000 TxRate_rt: 1041817.625"}};
  for (const testing::LogExpectation &line : lines) EXPECT_THAT(logs(), HasLogLine(line));
}

TEST_F(UplinkInfoTest, RateBlocksShowEachDirectionOfTheirOwnList) {
  const si_net_sample all[] = {{{}, 1, 10}, {{}, 3, 20}, {{}, 100, 1000}, {{}, 300, 2000}};
  for (uint32_t i = 0; i < 4; ++i) si_sample_list_add(&all[i], "uplink", i < 2 ? 3 : 4);
  EXPECT_EQ(get(), 0);
  const auto texts = [](const UplinkRateBlock &block) {
    return std::vector<std::string>{block.AverRxRate, block.AverTxRate, block.MaxRxRate,
                                    block.MaxTxRate};
  };
  EXPECT_THAT(texts(record.ipv4Rates), ElementsAre("15", "2", "20", "3"));
  EXPECT_THAT(texts(record.ipv6Rates), ElementsAre("1500", "200", "2000", "300"));
  EXPECT_THAT(logs(), HasLog(5, "AverRxRate is 15  : 2 :20 :3\n"));
  EXPECT_THAT(logs(), HasLog(5, "si_net_sample_list_statics succeed \n"));
}

TEST_F(UplinkInfoTest, PortCountersComeInTheirOwnOrderAndGrow) {
  for (uint32_t i = 0; i < 8; ++i)
    gateway::traffic().ports[0].counters[i] = {1ull << (32 + i), i, 0};
  gateway().clock().set(10, 0);
  EXPECT_EQ(get(), 0);
  // By the order of the offsets 280, 28, 316, 64, 460, 208, 496, 244 among all eight.
  const uint32_t order[] = {4, 0, 5, 1, 6, 2, 7, 3};
  for (uint32_t i = 0; i < 8; ++i) {
    EXPECT_EQ(record.ethCounters[i], (1ull << (32 + order[i])) + 10 * order[i]) << i;
  }
}

TEST_F(UplinkInfoTest, UplinkTypeFollowsTheMode) {
  const struct {
    uint32_t mode;
    uint32_t mask;
    const char *type;
  } cases[] = {{1, 8, "Ethernet"}, {0x10001, 8, "Ethernet"}, {512, 8, "WLAN"}, {2, 8, "GPON"},
               {2, 72, "GPON"},    {2, 64, "XGPON"},         {2, 1, ""}};
  for (const auto &one : cases) {
    wan().uplink.mode = one.mode;
    host().upMode = one.mask;
    EXPECT_EQ(get(), 0);
    EXPECT_STREQ(record.uplinkType, one.type) << one.mode << " " << one.mask;
  }
  fail("GetUpMode", "", -4);
  EXPECT_EQ(get(), 0);
  EXPECT_STREQ(record.uplinkType, "");
  EXPECT_THAT(logs(), HasLogLine({4, "pm_ubus_get_uplinkinfo", "GetUpMode -4!", -4}));
}

TEST_F(UplinkInfoTest, PortSpeeds) {
  const char *const speeds[] = {"10", "100", "1000", ""};
  wan().uplink.port = 0xABC0004;
  for (uint32_t code = 0; code < 4; ++code) {
    store().row<EthPortConfigView>("IGD.WD1.ETH5").setWord(EthPortConfigView::rateCode, code);
    EXPECT_EQ(get(), 0);
    EXPECT_STREQ(record.linkRate, speeds[code]);
    EXPECT_STREQ(record.linkRate2, speeds[code]);
  }
  EXPECT_THAT(trace("pm_switch_get_inst_id_by_port").back(), HasSubstr("(4)"));
  const uint16_t lengths[] = {4, 7, 2048};
  for (const uint16_t length : lengths) {
    fail({.call = "ctSgw_ssend_to_proxy",
          .match = "PORTLINKSTAT",
          .times = 1,
          .replyStatus = 0,
          .replyLength = length});
    forgetCalls();
    EXPECT_EQ(get(), 0);
    EXPECT_THAT(logs(), HasLog(5, length == 2048 ? "speedResult:0\n" : "speedResult:-1\n"));
  }
  fail({.call = "ctSgw_ssend_to_proxy", .match = "PORTLINKSTAT", .replyStatus = 3});
  EXPECT_EQ(get(), 0);
  EXPECT_STREQ(record.linkRate, "");
  EXPECT_THAT(logs(),
              HasLogLine({4, "pm_ubus_get_uplinkinfo",
                          "ctSgw_ssend_to_proxy CTSGW_EVENT_GET_PORTLINKSTAT_TYPE error!\n", 3}));
}

TEST_F(UplinkInfoTest, PortIsAskedForByAPathThatEnds) {
  const Habit endsNoPaths(&Habits::endsNoPaths);
  const std::string path = "IGD.Switch1.Port" + std::string(16, 'p');
  ports().byNumber(wan().uplink.port)->instance = path;
  EXPECT_EQ(get(), 0);
  EXPECT_THAT(trace("pm_eth_get_port_basic_statstics"),
              ElementsAre(HasSubstr("(" + path.substr(0, 31) + ")")));
}

class WifiUplinkTest : public UplinkInfoTest {
 protected:
  WifiUplinkTest() { loadExample("wifi_repeater.json"); }

  Row link(const char *band) { return store().row<LinkStatusRecord>(band); }
};

TEST_F(WifiUplinkTest, LinkIsSoughtInBothBands) {
  EXPECT_EQ(get(), 0);
  EXPECT_STREQ(record.uplinkType, "WLAN");
  EXPECT_STREQ(record.radioBand, "5G");
  EXPECT_STREQ(record.linkName, "Northfield-7731");
  EXPECT_STREQ(record.wlanStatus1, "-57");
  EXPECT_STREQ(record.wlanStatus2, "-95");
  EXPECT_STREQ(record.wlanStatus3, "44");
  EXPECT_STREQ(record.wlanStatus4, "38");
  EXPECT_STREQ(record.linkRate, "866");
  EXPECT_STREQ(record.linkRate2, "780");
  EXPECT_STREQ(record.v6Status, "");
  EXPECT_EQ(record.ethCounters[0], 0u);
  EXPECT_THAT(trace("pm_eth_get_port_basic_statstics"), IsEmpty());

  link("5G").setWord(LinkStatusRecord::linkDown, 1);
  EXPECT_EQ(get(), 0);
  EXPECT_STREQ(record.radioBand, "") << "no link in either band";
  EXPECT_STREQ(record.linkRate, "866") << "the second answer is shown all the same";

  link("2.4G").setWord(LinkStatusRecord::linkDown, 0);
  link("2.4G").setBytes(LinkStatusRecord::ssid, std::vector<uint8_t>(36, 'n'));
  EXPECT_EQ(get(), 0);
  EXPECT_STREQ(record.radioBand, "2.4G");
  EXPECT_EQ(record.linkName, std::string(31, 'n'));
}

TEST_F(WifiUplinkTest, LinkThatCannotBeAskedForIsDown) {
  link("2.4G").setWord(LinkStatusRecord::linkDown, 0);
  fail({.call = "ctSgw_ssend_to_proxy", .match = "LINKSTAT", .times = 1, .replyStatus = 6});
  EXPECT_EQ(get(), 0);
  EXPECT_STREQ(record.radioBand, "5G");
  EXPECT_THAT(logs(),
              HasLogLine({4, "pm_ubus_get_uplinkinfo",
                          "ctSgw_ssend_to_proxy CTSGW_EVENT_GET_LINKSTAT_BY_STAMODE error!\n", 6}));
  // Nor does what the other band says of a link that is down stand in for it.
  link("2.4G").setWord(LinkStatusRecord::linkDown, 1);
  link("2.4G").setWord(LinkStatusRecord::linkRate, 54);
  fail("ctSgw_ssend_to_proxy", "LINKSTAT", -1, 2);
  EXPECT_EQ(get(), 0);
  for (const char *text : {record.radioBand, record.linkName}) EXPECT_STREQ(text, "");
  for (const char *text : {record.wlanStatus1, record.wlanStatus2, record.wlanStatus3,
                           record.wlanStatus4, record.linkRate, record.linkRate2}) {
    EXPECT_STREQ(text, "0");
  }
  EXPECT_THAT(logs(), HasLog(5, "wlan status 1\n "));
}

TEST_F(UplinkInfoTest, WithoutIpv6ItsFieldsAreEmptied) {
  store().row<NetworkingDeviceView>("IGD").setWord(NetworkingDeviceView::netIpMode, 2);
  std::memset(&record, 'x', sizeof record);
  EXPECT_EQ(pm_ubus_get_uplinkinfo(&record), 0);
  EXPECT_EQ(record.netIpMode, 2);
  EXPECT_EQ(record.v6PrefixMode, 0);
  for (const char *text :
       {record.v6Status, record.v6AddressOrigin, record.v6IPAddress, record.dhsv6_servers,
        record.v6PrefixOrigin, record.v6Prefix, record.PreferLifetime, record.ValidLifetime,
        record.defaultIPv6Gateway, record.radioBand, record.linkName, record.wlanStatus1,
        record.wlanStatus2, record.wlanStatus3, record.wlanStatus4, record.ipv4Rates.AverRxRate,
        record.ipv4Rates.AverTxRate, record.ipv6Rates.MaxRxRate, record.ipv6Rates.MaxTxRate}) {
    EXPECT_STREQ(text, "");
  }
  EXPECT_THAT(trace("IPv6ToStr"), IsEmpty());
}

TEST_F(UplinkInfoTest, Ipv6Codes) {
  const char *const origins[] = {"", "AutoConfigured", "Static", "DHCPv6", ""};
  const char *const prefixes[] = {"", "Static", "PrefixDelegation", "Static", ""};
  const Row route = store().row<RouteInterfaceView>("IGD.RouteIf1");
  for (uint32_t code = 0; code < 5; ++code) {
    store().row<DssInfoView>("IGD.Dss1").setWord(DssInfoView::addressOrigin, code);
    store().row<PrefixConfigView>("IGD.Prefix1").setWord(PrefixConfigView::prefixOrigin, code);
    route.setWord(RouteInterfaceView::connectionState, code);
    EXPECT_EQ(get(), 0);
    EXPECT_STREQ(record.v6AddressOrigin, origins[code]);
    EXPECT_STREQ(record.v6PrefixOrigin, prefixes[code]);
    EXPECT_STREQ(record.v6Status, code == 2 ? "Connected" : "Unconnected ");
  }
}

TEST_F(UplinkInfoTest, NameServersAreThoseThatAreReachable) {
  const struct {
    const char *servers[3];
    const char *text;
  } cases[] = {{{"::", "2001:db8::2", "::"}, "2001:db8::2"},
               {{"2001:db8::1", "::", "2001:db8::3"}, "2001:db8::1,2001:db8::3"},
               {{"::", "fe80::1", "::"}, ""},
               {{"2001:db8:aaaa:bbbb:cccc:dddd:eeee:ffff", "2001:db8::2", "::"},
                "2001:db8:aaaa:bbbb:cccc:dddd:ee"}};
  const Row dss = store().row<DssInfoView>("IGD.Dss1");
  const platform::Field fields[] = {DssInfoView::dnsServer1, DssInfoView::dnsServer2,
                                    DssInfoView::dnsServer3};
  for (const auto &one : cases) {
    for (uint32_t i = 0; i < 3; ++i) {
      const Ipv6Address server = address(one.servers[i]);
      dss.setBytes(fields[i], {server.begin(), server.end()});
    }
    EXPECT_EQ(get(), 0);
    EXPECT_STREQ(record.dhsv6_servers, one.text);
  }
  EXPECT_THAT(logs(), HasLog(5,
                             "dhsv6_servers=2001:db8:aaaa:bbbb:cccc:dddd:eeee:ffff,"
                             "2001:db8::2\n"));
}

TEST_F(UplinkInfoTest, AddressesThatThePlatformDoesNotEndEndWithTheirRoom) {
  const Row dss = store().row<DssInfoView>("IGD.Dss1");
  dss.setBytes(DssInfoView::dnsServer1, std::vector<uint8_t>(16, 0x20));
  dss.setBytes(DssInfoView::dnsServer2, std::vector<uint8_t>(16, 0x20));
  dss.setBytes(DssInfoView::dnsServer3, std::vector<uint8_t>(16, 0));
  fail(boundary::Fault{.call = "IPv6ToStr", .count = 1000});
  EXPECT_EQ(get(), 0);
  const std::string server(127, 'f');
  EXPECT_THAT(logs(), HasLog(5, "dhsv6_servers=" + server + "," + server + "\n"));
  EXPECT_STREQ(record.v6Prefix, std::string(31, 'f').c_str());
}

TEST_F(UplinkInfoTest, LongAddressesAreCutAndALongPrefixDoesNotFit) {
  const Ipv6Address longest = address("2001:db8:aaaa:bbbb:cccc:dddd:eeee:ffff");
  const std::vector<uint8_t> bytes(longest.begin(), longest.end());
  const Row route = store().row<RouteInterfaceView>("IGD.RouteIf1");
  route.setBytes(RouteInterfaceView::ipv6Address, bytes);
  route.setBytes(RouteInterfaceView::ipv6Gateway, bytes);
  store().row<PrefixConfigView>("IGD.Prefix1").setBytes(PrefixConfigView::prefix, bytes);
  expectComplaint("\"2001:db8:aaaa:bbbb:cccc:dddd:eeee:ffff\" does not fit 32");
  EXPECT_EQ(get(), 0);
  EXPECT_STREQ(record.v6IPAddress, "2001:db8:aaaa:bbbb:cccc:dddd:ee");
  EXPECT_STREQ(record.defaultIPv6Gateway, "2001:db8:aaaa:bbbb:cccc:dddd:ee");
  EXPECT_STREQ(record.v6Prefix, "");
}

TEST_F(UplinkInfoTest, Ipv6ViewsThatCannotBeReadCountAsEmpty) {
  store().create<RouteInterfaceView>("IGD.RouteIf2").setText(RouteInterfaceView::wanInstance, kWan);
  fail("vcorDbQryView", "DBVIEW_DSS_INFO");
  fail({.call = "vcorDbGetView", .match = "DBVIEW_DSS_CFG", .answer = -7, .workDone = true});
  fail("vcorDbGetView", "DBVIEW_PREFIX_CFG", -7);
  EXPECT_EQ(get(), 0);
  EXPECT_STREQ(record.v6Status, "Unconnected ");
  EXPECT_STREQ(record.v6IPAddress, "::");
  EXPECT_STREQ(record.dhsv6_servers, "");
  EXPECT_EQ(record.v6PrefixMode, 0);
  EXPECT_STREQ(record.v6Prefix, "::");
  EXPECT_STREQ(record.PreferLifetime, "0");
  EXPECT_THAT(logs(), HasLogLine({4, "ubus_get_route_if_into",
                                  "No Run Info [IGD.WD1.WCD1.WCPPP1] "
                                  "[2]"}));
  for (const char *line :
       {"the result of ubus_get_route_if_into = -2\n", "the result of ubus_get_dssinto = -1\n",
        "the result of tDssCfg = -7\n", "the result of tPrefixcfg = -7\n"}) {
    EXPECT_THAT(logs(), HasLog(5, line));
  }
}

TEST_F(UplinkInfoTest, FailuresLeaveTheirFieldsEmpty) {
  fail("vcorDbQryView", "DBVIEW_WAN_CONN_DEV", -5);
  fail("vcorDbGetView", "DBVIEW_WAN_PPP_CONN", -6);
  fail("pm_send_msg_2mm", "bandInfo_mgr");
  fail("pm_switch_get_inst_id_by_port", "", -10, 1, 1);
  fail({.call = "pm_eth_get_port_basic_statstics",
        .from = 2,
        .times = 1,
        .answer = -11,
        .workDone = true});
  files().remove("/proc/net/arp");
  EXPECT_EQ(get(), 0);
  EXPECT_STREQ(record.managerMac, "000000000000");
  EXPECT_STREQ(record.GatewayMac, "");
  EXPECT_STREQ(record.pppoeUserName, "");
  EXPECT_STREQ(record.RxRate_rt, "0.000");
  EXPECT_STREQ(record.ipv4Rates.statType, "IFA") << "no samples yet";
  EXPECT_STREQ(record.ipv4Rates.MaxRxRate, "");
  const testing::LogExpectation lines[] = {
      {4, "pm_ubus_get_uplinkinfo", "ubus_get_manger_mac fail = -1 \n", -1},
      {4, "ubus_getPPPOEUserPwd", "[ubus_getPPPOEUserPwd] dbgetview fail(-6)\r\n", -6},
      {4, "ubus_get_rate_rt", "net_json_get_wan_rate_rt CmSendMsg2MM fail,iRet = -1\n", -1},
      {7, "ubus_getGatewayMac", "/proc/net/arp can not open!"},
      {4, "pm_ubus_get_uplinkinfo", "func pm_switch_get_inst_id_by_port fail,iRet=-10\n", -10},
      {5, "pm_ubus_get_uplinkinfo", "si_net_sample_list_statics ifa failed [name uplink] \n", -1},
      {5, "pm_ubus_get_uplinkinfo", "si_net_sample_list_statics if6 failed [name uplink]\n", -1}};
  for (const testing::LogExpectation &line : lines) EXPECT_THAT(logs(), HasLogLine(line));

  fail({.call = "vcorDbGetView",
        .match = "DBVIEW_NETWORKING_DEV_INFO",
        .answer = -8,
        .workDone = true});
  fail("vcorDbLstView", "DBVIEW_WAN_CONN_DEV");
  EXPECT_EQ(get(), 0);
  EXPECT_EQ(record.accessMode, 0);
  EXPECT_THAT(record.ethCounters, Each(0u));
  char user[32] = {};
  char password[32] = {};
  EXPECT_EQ(ubus_getPPPOEUserPwd(user, password), -1);
  EXPECT_EQ(trace().back(), "vcorDbGetView(DBVIEW_WAN_PPP_CONN ) = -6 [fault]");
  const testing::LogExpectation laterLines[] = {
      {4, "pm_ubus_get_uplinkinfo", "DBVIEW_NETWORKING_DEV_INFO get failed! iRet:-8\n", -8},
      {4, "ubus_getPPPOEUserPwd", "DBVIEW_NETWORKING_DEV_INFO get failed! iRet:-8\n", -8},
      {4, "pm_ubus_get_uplinkinfo", "func pm_eth_get_port_basic_statstics fail,iRet=-11\n", -11},
      {4, "pm_ubus_get_uplinkinfo", "func ubus_get_rate_rt fail,iRet=-8\n", -8}};
  for (const testing::LogExpectation &line : laterLines) EXPECT_THAT(logs(), HasLogLine(line));

  fail("pm_upmode_info_get", "", -12);
  EXPECT_EQ(get(), -12);
  EXPECT_EQ(record.rateStatsValid, 0);
  EXPECT_THAT(logs(), HasLogLine({4, "pm_ubus_get_uplinkinfo",
                                  "[pm_ubus_get_uplinkinfo] pm_upmode_info_get error, iret = "
                                  "-12\n",
                                  -12}));
  EXPECT_EQ(pm_ubus_get_uplinkinfo(nullptr), -1);
  EXPECT_THAT(logs(), HasLog(4, "pm_ubus_get_uplinkinfo para is null"));
}

TEST_F(UplinkInfoTest, ManagementMacNeedsOneInternetConnection) {
  uint8_t mac[6] = {};
  EXPECT_EQ(ubus_get_manger_mac(mac), 0);
  EXPECT_EQ(mac[5], 0xa3);
  store()
      .row<WanConnectionView>("IGD.WD1.WCD2.WCIP1")
      .setText(WanConnectionView::serviceList, "INTERNET");
  std::memset(mac, 0x5a, sizeof mac);
  EXPECT_EQ(ubus_get_manger_mac(mac), -2);
  EXPECT_THAT(logs(), HasLogLine({4, "ubus_get_manger_mac", "No Run Info [INTERNET] [2]"}));
  fail({.call = "vcorDbQryView", .match = "WAN_CONN", .times = 1, .count = 0});
  EXPECT_EQ(ubus_get_manger_mac(mac), -2);
  EXPECT_THAT(logs(), HasLog(4, "No Run Info [INTERNET] [0]"));
  forgetCalls();
  fail("vcorDbQryView", "WAN_CONN", -14, 1, 1);
  EXPECT_EQ(ubus_get_manger_mac(mac), -1);
  EXPECT_THAT(logs(), HasLogLine({4, "ubus_get_manger_mac", "No Run Info [INTERNET] [0]", -14}));
  fail({.call = "vcorDbQryView", .match = "WAN_CONN", .times = 1, .count = 1});
  fail("vcorDbGetView", "WAN_CONN", -13);
  EXPECT_EQ(ubus_get_manger_mac(mac), -13);
  EXPECT_THAT(mac, Each(0x5a));
  EXPECT_EQ(ubus_get_manger_mac(nullptr), -1);
}

TEST_F(UplinkInfoTest, CurrentRateIsSumOfAllInSinglePrecision) {
  char rx[64] = {};
  char tx[64] = {};
  auto &interfaces = gateway::traffic().interfaces;
  // 2^24 + 1 is no float; the sum over 1024 shows it.
  interfaces[0] = {"nbif0", {1ull << 24, 0, 0}, {0xffffffffull * 1024, 0, 0}};
  interfaces[1] = {"nbif1", {1, 0, 0}, {512, 0, 0}};
  interfaces[2] = {"nbif2", {0, 0, 0}, {0, 0, 0}};
  EXPECT_EQ(ubus_get_rate_rt(rx, tx), 0);
  EXPECT_STREQ(rx, "4294967296.000");
  EXPECT_STREQ(tx, "16384.000");
  EXPECT_THAT(trace("vcorDbLstView"), ElementsAre("vcorDbLstView(DBVIEW_WAN_CONN_DEV IGD) = 0"));
  EXPECT_THAT(logs(), HasLogLine({5, "ubus_get_rate_rt",
                                  " BandWithInfotmp  tBandwidthTx :1 tBandwidthRx: 512"}));
  EXPECT_THAT(logs(), HasLogLine({5, "ubus_get_rate_rt",
                                  "  tBandwidthTx :16777217 tBandwidthRx: 4398046510592"}));
  interfaces[0].rx = {1536, 0, 0};
  EXPECT_EQ(ubus_get_rate_rt(rx, tx), 0);
  EXPECT_STREQ(rx, "2.000");
  {
    const Habit answersAtLength(&Habits::answersAtLength);
    EXPECT_EQ(ubus_get_rate_rt(rx, tx), 0);
    EXPECT_STREQ(rx, "2.000");
  }
  // The second connection's silence adds the first one's counters once more: 1 + 1 + 2^24.
  fail("pm_send_msg_2mm", "bandInfo_mgr", -3, 2, 1);
  EXPECT_EQ(ubus_get_rate_rt(rx, tx), 0);
  EXPECT_STREQ(tx, "16384.002");
  // So does an answer that brings nothing, whatever it calls its length.
  fail({.call = "pm_send_msg_2mm", .from = 2, .times = 1, .replyLength = uint16_t{8}});
  EXPECT_EQ(ubus_get_rate_rt(rx, tx), 0);
  EXPECT_STREQ(tx, "16384.002");
  for (const int32_t none : {0, -1}) {
    fail({.call = "vcorDbLstView", .match = "WAN_CONN", .times = 1, .count = none});
    EXPECT_EQ(ubus_get_rate_rt(rx, tx), 0);
    EXPECT_STREQ(rx, "0.000");
    EXPECT_STREQ(tx, "0.000");
  }
  fail("vcorDbGetView", "DBVIEW_WAN_CONN_DEV", -3, 1, 1);
  EXPECT_EQ(ubus_get_rate_rt(rx, tx), -8);
  fail("vcorDbLstView", "DBVIEW_WAN_CONN_DEV", -3, 1, 1);
  EXPECT_EQ(ubus_get_rate_rt(rx, tx), -8);
  EXPECT_EQ(ubus_get_rate_rt(nullptr, tx), 1001);
  EXPECT_EQ(ubus_get_rate_rt(rx, nullptr), 1001);
  EXPECT_THAT(logs(), HasLogLine({4, "ubus_get_rate_rt", "RxRate_rt OR TxRate_rt IS null"}));

  loadExample("crowded.json");
  store().create<WanConnectionView>("IGD.WD1.WCD33.WCIP1");
  EXPECT_EQ(ubus_get_rate_rt(rx, tx), 0) << "the list holds 32 connections";
  EXPECT_THAT(trace("pm_send_msg_2mm"), SizeIs(32));
}

TEST_F(UplinkInfoTest, GatewayMacOfAnyTable) {
  const struct {
    std::string table;
    const char *mac;
  } cases[] = {
      {std::string(kArpHeader) + "10.0.0.2 0x1 0x2 aa:00:00:00:00:01 * br0\n"
                                 "10.0.0.1 0x1 0x2 aa:00:00:00:00:02 * nbif3\n"
                                 "10.0.0.3 0x1 0x2 aa:00:00:00:00:03 * nbif0\n",
       "aa:00:00:00:00:02"},
      {std::string(kArpHeader) + "10.0.0.2 0x1 0x2 aa:00:00:00:00:01 * br0\n", ""},
      {kArpHeader, ""},
      {"", ""},
      {"short\n", ""},
      {std::string(kArpHeader) + "10.0.0.1 0x1 0x2 aa:00:00:00:00:02 *", ""},
      {std::string(kArpHeader) + "garbage\n\n%s%n \x01\xff\n10.0.0.1 0x1 0x2 aa:bb * nbif0\n",
       "aa:bb"},
      // A long device name is cut, and spoils no entry behind it.
      {std::string(kArpHeader) + "10.0.0.2 0x1 0x2 aa:01 * wlan0nbif\n"
                                 "10.0.0.1 0x1 0x2 aa:02 * nbif0\n",
       "aa:02"},
      {std::string(kArpHeader) + "10.0.0.2 0x1 0x2 aa:01 * " + std::string(500, 'n') +
           " 10.0.0.9 0x1 0x2 aa:09 * nbif0\n10.0.0.1 0x1 0x2 aa:02 * nbif0",
       "aa:02"},
      {std::string(kArpHeader) + std::string(300, 'z') + " nbif0\n", ""},
      {std::string(kArpHeader) + "10.0.0.1 0x1 0x2 " + std::string(31, 'm') + " * nbif0\n",
       "mmmmmmmmmmmmmmmmmmmmmmmmmmmmmmm"},
  };
  for (const auto &one : cases) {
    files().write("/proc/net/arp", one.table);
    EXPECT_EQ(gatewayMac(), one.mac) << one.table;
    EXPECT_EQ(status, 0);
  }
  EXPECT_GT(files().openStreams(), 0u) << "the table stays open";
  EXPECT_EQ(ubus_getGatewayMac(nullptr), -1);
}

/// What the gateway gives as its ARP table is this machine's `path`.
class ForeignArpTest : public UplinkInfoTest {
 protected:
  void useTable(const std::string &path) {
    const auto table = files().root() / "proc/net/arp";
    std::filesystem::remove(table);
    std::filesystem::create_symlink(path, table);
  }
};

TEST_F(ForeignArpTest, KernelsOwnTableIsReadToItsEnd) {
  useTable("/proc/self/net/arp");
  EXPECT_EQ(gatewayMac(), "");
  EXPECT_EQ(status, 0) << "the kernel's table can be positioned and ends";
}

TEST_F(ForeignArpTest, TableThatCannotBePositionedIsClosed) {
  expectNoLeaks();
  int ends[2];
  ASSERT_EQ(pipe(ends), 0);
  useTable("/proc/self/fd/" + std::to_string(ends[0]));
  EXPECT_EQ(gatewayMac(), "");
  EXPECT_EQ(status, -1);
  close(ends[0]);
  close(ends[1]);
}

TEST_F(UplinkInfoTest, AccountIsCopiedAsFarAsItsFieldsGo) {
  const std::string name(64, 'u');
  store().row<platform::WanPppConnectionView>(kWan).setText(
      platform::WanPppConnectionView::userName, name);
  EXPECT_EQ(get(), 0);
  EXPECT_EQ(record.pppoeUserName, name.substr(0, 31));
  EXPECT_THAT(logs(), HasLog(5, "pUser:" + name.substr(0, 31) + "\n"));
  char text[32] = {};
  EXPECT_EQ(ubus_getPPPOEUserPwd(nullptr, text), -1);
  EXPECT_EQ(ubus_getPPPOEUserPwd(text, nullptr), -1);

  const std::string longPath(40, 'p');
  store().row<NetworkingDeviceView>("IGD").setText(NetworkingDeviceView::wanInstance, longPath);
  EXPECT_EQ(ubus_getPPPOEUserPwd(text, text), -1);
  EXPECT_THAT(trace().back(), HasSubstr("DBVIEW_WAN_PPP_CONN " + longPath + ")"));
  EXPECT_THAT(gateway().takeComplaints(), ElementsAre(HasSubstr("longer than 32")));
}

TEST_F(UplinkInfoTest, ViewsAreWholeOrZeroAndFoundByKeysOfThirtyTwoCharacters) {
  const struct {
    int32_t (*get)(const char *, void *);
    size_t size;
  } getters[] = {{ubus_get_route_if_into, 2208},
                 {ubus_get_dssinto, 4384},
                 {ubus_get_dsscfg, 1224},
                 {ubus_get_prefixcfg, 652}};
  for (const auto &getter : getters) {
    std::vector<uint32_t> view(getter.size / sizeof(uint32_t), 0x5a5a5a5a);
    EXPECT_EQ(getter.get(nullptr, view.data()), -1);
    EXPECT_EQ(getter.get(kWan, nullptr), -1);
    EXPECT_THAT(view, Each(0x5a5a5a5au));
    EXPECT_EQ(getter.get(kWan, view.data()), 0);
    EXPECT_EQ(view[0], getter.size);
    const Fault failures[] = {{.call = "vcorDbQryView", .times = 1},
                              {.call = "vcorDbQryView", .times = 1, .count = 0},
                              {.call = "vcorDbGetView", .times = 1, .workDone = true}};
    for (const Fault &failure : failures) {
      fail(failure);
      EXPECT_EQ(getter.get(kWan, view.data()), failure.count ? -2 : -1);
      EXPECT_THAT(view, Each(0u));
    }
    EXPECT_EQ(getter.get(std::string(33, 'k').c_str(), view.data()), -1) << "sent as invalid";
  }
  const std::string longest(32, 'k');
  store().row<DssConfigView>("IGD.Dss1").setText(DssConfigView::wanInstance, longest);
  std::vector<uint64_t> view(1224 / sizeof(uint64_t));
  EXPECT_EQ(ubus_get_dsscfg(longest.c_str(), view.data()), 0);
  EXPECT_EQ(fieldsOf<DssConfigView>(view.data()).word(DssConfigView::prefixMode), 1u);
}

TEST_F(UplinkInfoTest, SweepOfFaults) {
  beforeEachRun([] { startSampling(); });
  const auto check = [&](const testing::SweepRun &run) {
    EXPECT_EQ(run.status, run.failed == 1 ? -1 : 0);
    EXPECT_EQ(record.rateStatsValid, run.failed == 1 ? 0 : 1);
  };
  EXPECT_GT(sweepFaults([&] { return get(); }, check), 20u);
  loadExample("wifi_repeater.json");
  sweepFaults([&] { return get(); }, check);
}

}  // namespace
}  // namespace gateway
