#include "pmapi/stainfo.h"

#include <algorithm>
#include <cstring>

#include "gateway/stations.hpp"
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
#include "tests/support/gateway_test.hpp"

using namespace platform;

namespace gateway {
namespace {

using ::testing::HasSubstr;

constexpr int32_t kLaptop = 3;   // 5 GHz
constexpr int32_t kPad = 0;      // 2.4 GHz
constexpr int32_t kStorage = 7;  // on the wire
constexpr int32_t kPrinter = 8;  // on the wire, not counted by the hardware
constexpr int32_t kGone = 9;

constexpr char kHandler[] = "pm_ubus_get_sta_info";

class StaInfoTest : public GatewayTest {
 protected:
  StaInfoTest() { loadExample("home_router.json"); }

  /// The handler prints a line that would disturb the test's own.
  int32_t get(int32_t index) {
    record = {};
    int32_t status = 0;
    printed = printedBy([&] { status = pm_ubus_get_sta_info(index, &record); });
    return status;
  }

  int32_t config(int32_t index) {
    result = {};
    int32_t status = 0;
    printed = printedBy([&] { status = ubus_get_sta_config(index, &result); });
    return status;
  }

  /// The description of a device, which a faulty reply brings.
  std::vector<uint8_t> describe(int32_t index, std::string_view interfaceName) {
    std::vector<uint8_t> bytes(DeviceRecord::kSize, 0xff);
    const Row row = fieldsOf<DeviceRecord>(bytes.data());
    row.setMac(DeviceRecord::mac, station(index).mac);
    std::ranges::copy(interfaceName, bytes.begin() + DeviceRecord::interfaceName.offset);
    return bytes;
  }
  void answerDevice(int32_t status, std::vector<uint8_t> description,
                    std::optional<uint16_t> length = {}) {
    fail(Fault{.call = "ctSgw_ssend_to_proxy",
               .match = "ADEV",
               .times = 1,
               .replyStatus = status,
               .replyPayload = std::move(description),
               .replyLength = length});
  }

  Station &station(int32_t index) { return stations().all[static_cast<size_t>(index)]; }
  Row association(int32_t index) {
    return store().row<AssociatedDeviceView>(stations().associationPathOf(station(index)));
  }

  StaInfoRecord record = {};
  StaConfigResult result = {};
  std::string printed;
};

TEST_F(StaInfoTest, FillsTheRecordOfAWirelessStation) {
  gateway().clock().advance(10);
  store()
      .row<AccessDeviceView>("IGD.LD1.Hosts.Adev4")
      .setWord(AccessDeviceView::adevValue, static_cast<uint32_t>(-4711));
  EXPECT_EQ(get(kLaptop), 0);
  EXPECT_STREQ(record.ipAddress, "192.168.1.104");
  EXPECT_STREQ(record.ipv6Address, "fe80::3e22:fbff:fe91:a04,2001:db8:4c:7732:3e22:fbff:fe91:a04");
  EXPECT_STREQ(record.hostName, "office-laptop");
  EXPECT_STREQ(record.vendor, "Apple");
  EXPECT_STREQ(record.macAddress, "3c22fb910a04");
  EXPECT_STREQ(record.staType, "pc");
  EXPECT_STREQ(record.onlineTime, "28810");
  EXPECT_STREQ(record.accessTime, "2026-05-28 12:26:40");
  EXPECT_EQ(record.staConfigValid, 1);
  EXPECT_EQ(record.adevValue, -4711);
  EXPECT_STREQ(record.band, "5G");
  EXPECT_STREQ(record.wlanName, "Northfield-7731");
  EXPECT_STREQ(record.rssi, "-47");
  EXPECT_STREQ(record.radioValue, "44");
  EXPECT_STREQ(record.linkRate, "866");
  EXPECT_STREQ(record.linkRate2, "780");
  EXPECT_STREQ(record.txRate, "256.000");
  EXPECT_STREQ(record.rxRate, "40.000");
  EXPECT_EQ(record.totalBytesSent, 5368709120u + 2621440u);
  EXPECT_EQ(record.totalBytesReceived, 943718400u + 409600u);
  EXPECT_EQ(record.totalPacketsSent, 5368709120u / 1180 + 10 * (262144 / 1180));
  EXPECT_EQ(record.totalPacketsReceived, 943718400u / 240 + 10 * (40960 / 240));
  EXPECT_EQ(printed, "===================pmapi end========================");
  EXPECT_THAT(trace("vcorDbGetView")[0], HasSubstr("DBVIEW_ACCESS_DEV IGD.LD1.Hosts.Adev4"));
  const std::string sent = std::to_string(record.totalPacketsSent);
  const std::string received = std::to_string(record.totalBytesReceived);
  const testing::LogExpectation lines[] = {
      {5, kHandler, "enter pm_ubus_get_sta_info"},
      {5, kHandler, "szViewName=IGD.LD1.Hosts.Adev4\n"},
      {8, kHandler, " get DBVIEW_ACCESS_DEV succ"},
      {5, kHandler, "tVendor=Apple\n"},
      {5, kHandler, "tIPV6Address=" + std::string(record.ipv6Address) + "\n"},
      {5, kHandler, "tLastConnection=2026-05-28 12:26:40\n"},
      {5, kHandler, "p_ubus_sta_info -> accessTime=2026-05-28 12:26:40\n"},
      {5, kHandler, "out pm_bw_get_hard_stats"},
      {5, kHandler,
       "[pm_ubus_get_sta_info] p_ubus_sta_info -> totalBytesReceived: " + received + "\n"},
      {5, kHandler, "[pm_ubus_get_sta_info] tBwstats.ttotalPacketsSent: " + sent + "\n"},
      {5, "ubus_getUptime", "uptime:28810\n"},
      {5, "ubus_get_sta_config", "now in ubus_get_sta_config\n"},
      {4, "ubus_get_sta_config", "staconfig -> rssi=-47\n"}};
  for (const auto &line : lines) EXPECT_THAT(logs(), HasLogLine(line));
}

TEST_F(StaInfoTest, FillsTheRecordOfAWiredStation) {
  EXPECT_EQ(get(kStorage), 0);
  EXPECT_STREQ(record.band, "");
  EXPECT_STREQ(record.rssi, "");
  EXPECT_STREQ(record.linkRate, "1000");
  EXPECT_STREQ(record.linkRate2, "1000");
  EXPECT_STREQ(record.txRate, "512.000");
  EXPECT_EQ(record.staConfigValid, 1);
}

TEST_F(StaInfoTest, StationThatHasLeftKeepsItsPlace) {
  EXPECT_EQ(get(kGone), 0);
  EXPECT_STREQ(record.hostName, "guest-phone");
  EXPECT_EQ(record.staConfigValid, 0) << "it has no association";
  EXPECT_EQ(record.totalBytesSent, 104857600u);
}

TEST_F(StaInfoTest, KindsOfStation) {
  const char *const kinds[] = {"other", "phone", "pad", "pc", "stb", "ap", "iot", "other"};
  for (uint32_t kind = 0; kind < 8; ++kind) {
    station(kPad).kind = kind;
    char text[32] = {};
    EXPECT_EQ(ubus_getStatype(kPad, text), 0);
    EXPECT_STREQ(text, kinds[kind]);
  }
  EXPECT_THAT(logs(), HasLogLine({5, "ubus_getStatype", "statype:iot\n"}));
}

TEST_F(StaInfoTest, OnlineTimeSurvivesOneWrapOfTheUptime) {
  const struct {
    uint32_t connected;
    int64_t now;
    const char *online;
  } cases[] = {{100, 40, "4294967235"}, {40, 100, "60"}, {7, 7, "0"}, {0xffffffff, 5, "5"}};
  for (const auto &one : cases) {
    station(kPad).connectedAt = one.connected;
    gateway().clock().set(one.now, 0);
    char text[32] = {};
    EXPECT_EQ(ubus_getUptime(kPad, text), 0);
    EXPECT_STREQ(text, one.online);
  }
}

TEST_F(StaInfoTest, GettersWriteNoTerminatorAndNothingAfterAFailure) {
  const struct {
    int32_t (*getter)(int32_t, char *);
    const char *name;
    const char *text;
  } cases[] = {{ubus_getIpAddress, "ubus_getIpAddress", "192.168.1.101###"},
               {ubus_getHostName, "ubus_getHostName", "Annes-iPad######"},
               {ubus_getMacAddress, "ubus_getMacAddress", "f40f24108801####"},
               {ubus_getStatype, "ubus_getStatype", "pad#############"},
               {ubus_getUptime, "ubus_getUptime", nullptr}};
  for (const auto &one : cases) {
    char text[33] = "################################";
    if (one.text != nullptr) {
      EXPECT_EQ(one.getter(kPad, text), 0);
      EXPECT_EQ(std::string(text, 16), one.text);
    }
    std::memset(text, '#', 32);
    EXPECT_EQ(one.getter(kPad, nullptr), -1);
    fail("plib_adev_list_view_all", "", -4, 1, 1);
    EXPECT_EQ(one.getter(kPad, text), 1001);
    fail("ctSgw_ssend_to_proxy", "ADEV", -5, 1, 1);
    EXPECT_EQ(one.getter(kPad, text), -5);
    fail({.call = "ctSgw_ssend_to_proxy", .match = "ADEV", .times = 1, .replyStatus = 6});
    EXPECT_EQ(one.getter(kPad, text), 6) << "the reply's status, when the call succeeded";
    EXPECT_STREQ(text, "################################");
    EXPECT_THAT(
        logs(),
        HasLogLine({4, one.name, "ctSgw_ssend_to_proxy CTSGW_EVENT_QUERY_ADEV_PARAM error!\n", 6}));
  }
}

TEST_F(StaInfoTest, PositionsBeyondTheListReadAnEmptyPath) {
  for (const int32_t index : {12, 127, 128, -1, INT32_MAX, INT32_MIN}) {
    char text[32] = {};
    EXPECT_EQ(ubus_getIpAddress(index, text), kUnknownInstance) << index;
    EXPECT_EQ(get(index), -8) << index;
    EXPECT_STREQ(record.hostName, "");
  }
}

TEST_F(StaInfoTest, LongNamesAreCutToTheirFields) {
  station(kPad).hostName = std::string(63, 'h');
  const Row view = store().row<AccessDeviceView>("IGD.LD1.Hosts.Adev1");
  std::memset(view.data() + AccessDeviceView::ipv6Address.offset, 'v', 1024);
  std::memset(view.data() + AccessDeviceView::vendor.offset, 'v', 68);
  EXPECT_EQ(get(kPad), 0);
  EXPECT_EQ(record.hostName, std::string(31, 'h'));
  std::string name(32, '#');
  EXPECT_EQ(ubus_getHostName(kPad, name.data()), 0);
  EXPECT_EQ(name, std::string(31, 'h') + "#");
  EXPECT_EQ(record.ipv6Address, std::string(1023, 'v'));
  EXPECT_EQ(record.vendor, std::string(63, 'v'));
  EXPECT_STREQ(record.macAddress, "f40f24108801");
}

TEST_F(StaInfoTest, ViewAndCountersEndTheHandler) {
  fail("vcorDbGetView", "DBVIEW_ACCESS_DEV", -5, 1, 1);
  EXPECT_EQ(get(kPad), -8);
  EXPECT_STREQ(record.ipAddress, "192.168.1.101");
  EXPECT_STREQ(record.vendor, "");
  EXPECT_THAT(logs(), HasLogLine({4, "pm_ubus_get_sta_info",
                                  "get DBVIEW_ACCESS_DEV failed, iRet=-5\n", -5}));
  fail("pm_bw_get_hard_stats", "", -5, 1, 1);
  EXPECT_EQ(get(kPad), -8);
  EXPECT_STREQ(record.vendor, "Apple");
  EXPECT_STREQ(record.hostName, "");
  EXPECT_EQ(pm_ubus_get_sta_info(0, nullptr), -1);
  EXPECT_THAT(logs(), HasLogLine({4, kHandler, "pm_ubus_get_sta_info para is null"}));
  EXPECT_EQ(ubus_get_sta_config(0, nullptr), -1);
  EXPECT_THAT(logs(), HasLogLine({4, "ubus_get_sta_config", "ubus_get_sta_config para is null"}));
}

TEST_F(StaInfoTest, WiredSpeeds) {
  const struct {
    const char *speed;
    const char *rate;
  } cases[] = {{"10Mbps", "10"},
               {"100Mbps", "100"},
               {"1000Mbps", "1000"},
               {"100Mbps full", "100"},
               {"2500Mbps", ""},
               {"10", ""},
               {"", ""}};
  for (const auto &one : cases) {
    store().row<LanInfoView>("IGD.LD1.ETH1").setText(LanInfoView::speed, one.speed);
    EXPECT_EQ(config(kStorage), 0);
    EXPECT_STREQ(result.linkRate, one.rate);
    EXPECT_STREQ(result.linkRate2, one.rate);
    EXPECT_EQ(result.valid, 1);
  }
}

TEST_F(StaInfoTest, MeasuredTrafficStandsInForMissingRegisters) {
  EXPECT_EQ(config(kPrinter), 0);
  EXPECT_STREQ(result.txRate, "0.125");
  EXPECT_STREQ(result.rxRate, "0.250");
  EXPECT_EQ(printed, "pm_bw_get_hard_stats not enough register, use olt func\n");
  fail("ctSgw_ssend_to_proxy", "BW_STATS", -5, 1, 1);
  EXPECT_EQ(config(kPrinter), -1);
  EXPECT_EQ(result.valid, 0);
  EXPECT_STREQ(result.linkRate, "100");
}

TEST_F(StaInfoTest, BandsAndRatesAreConvertedAsTheyCome) {
  association(kPad).setWord(AssociatedDeviceView::linkRate, 4294967295);
  association(kPad).setWord(AssociatedDeviceView::rssi, 0);
  station(kPad).bytesSent.perSecond = 0x80000001;
  const Row ssid = store().row<WlanConfigRecord>("IGD.LD1.WLAN1");
  std::memset(ssid.data() + WlanConfigRecord::ssid.offset, 's', 36);
  const char *const bands[] = {"2.4G", "5G", ""};
  for (uint32_t band = 0; band < 3; ++band) {
    ssid.setWord(WlanConfigRecord::band, band);
    EXPECT_EQ(config(kPad), 0);
    EXPECT_STREQ(result.band, bands[band]);
  }
  EXPECT_STREQ(result.linkRate, "4294967");
  EXPECT_STREQ(result.rssi, "0");
  EXPECT_STREQ(result.txRate, "-2097152.000") << "signed, in single precision";
  EXPECT_EQ(result.wlanName, std::string(31, 's'));
}

TEST_F(StaInfoTest, ConfigurationFailsWithTheStepThatFailed) {
  const struct {
    int32_t index;
    Fault fault;
    int32_t status;
    const char *line;
    const char *print;
  } cases[] = {
      {kPad, {.call = "plib_adev_list_view_all", .answer = -3}, 1001, nullptr, ""},
      {kPad,
       {.call = "vcorDbQryView", .match = "DBVIEW_WLAN_AD", .answer = -5},
       -5,
       "qry DBVIEW_WLAN_AD error, iret=-5\n",
       ""},
      {kPad,
       {.call = "vcorDbGetView", .match = "DBVIEW_WLAN_AD", .answer = -6},
       -6,
       "qry DBVIEW_WLAN_AD error, iret=-6\n",
       ""},
      {kPad,
       {.call = "pm_wlan_get_config", .answer = -7},
       -7,
       nullptr,
       "pm_wlan_get_config fail=-7\n"},
      {kPad,
       {.call = "ctSgw_ssend_to_proxy", .match = "BW_STATS"},
       -1,
       "ctSgw_ssend_to_proxy CTSGW_EVENT_GET_BW_STATS error!\n",
       ""},
      {kStorage,
       {.call = "vcorDbQryView", .match = "LANINFO", .answer = -8},
       -1,
       nullptr,
       "[net_get_laninfo_by_ifname]vcorDbQryView  DBVIEW_LANINFO  -8 \n"},
      {kStorage,
       {.call = "vcorDbQryView", .match = "LANINFO", .count = 0},
       -1,
       nullptr,
       "[net_get_laninfo_by_ifname]tList.dwCount = 0\n"},
      {kStorage,
       {.call = "vcorDbGetView", .match = "LANINFO"},
       -1,
       nullptr,
       "[net_get_laninfo_by_ifname]vcorDbGetView   DBVIEW_LAN_INFO  IGD.LD1.ETH1  failed \n"},
      {kStorage,
       {.call = "ctSgw_ssend_to_proxy", .match = "HARD_STATS"},
       -1,
       "ctSgw_ssend_to_proxy CTSGW_EVENT_GET_HARD_STATS error!\n",
       ""},
      // Nothing is known of the device, so nothing is filled.
      {kPad,
       {.call = "ctSgw_ssend_to_proxy", .match = "ADEV"},
       0,
       "ctSgw_ssend_to_proxy CTSGW_EVENT_QUERY_ADEV_PARAM error!\n",
       ""},
  };
  for (const auto &one : cases) {
    restart();
    fail(one.fault);
    const int32_t code = one.fault.answer.value_or(kFailed);
    EXPECT_EQ(config(one.index), one.status);
    EXPECT_EQ(printed, one.print);
    EXPECT_EQ(result.valid, 0);
    if (one.line != nullptr) {
      EXPECT_THAT(logs(), HasLogLine({4, "ubus_get_sta_config", one.line, code}));
    }
  }
}

TEST_F(StaInfoTest, AssociationMustBeTheOnlyOne) {
  const Row twin = store().create<AssociatedDeviceView>("IGD.LD1.WLAN2.AD1");
  twin.setMac(AssociatedDeviceView::mac, station(kPad).mac);
  EXPECT_EQ(config(kPad), -1);
  EXPECT_THAT(logs(), HasLogLine({4, "ubus_get_sta_config", "tAdList.dwCount=2\n"}));
  station(kPad).interfaceName = "usb0";
  EXPECT_EQ(config(kPad), 0) << "neither Wi-Fi nor wired";
  EXPECT_EQ(result.valid, 0);
}

TEST_F(StaInfoTest, ShortDescriptionsLeaveTheRestEmpty) {
  constexpr uint32_t kMacRead = DeviceRecord::mac.offset + 3;
  constexpr uint32_t kInterfaceRead = DeviceRecord::interfaceName.offset + 4;
  const struct {
    uint16_t length;
    const char *mac;
    int32_t valid;
  } cases[] = {{0, "000000000000", 0},
               {3, "000000000000", 0},
               {4, "000000000000", 0},
               {9, "000000000000", 0},
               {4 + kMacRead, "f40f24000000", 0},
               {4 + kInterfaceRead, "f40f24108801", 1},
               {65535, "f40f24108801", 1}};
  for (const auto &one : cases) {
    char text[32] = {};
    answerDevice(0, describe(kPad, "wlan0"), one.length);
    EXPECT_EQ(ubus_getMacAddress(kPad, text), 0);
    EXPECT_STREQ(text, one.mac) << one.length;
    answerDevice(0, describe(kPad, "wlan0"), one.length);
    EXPECT_EQ(config(kPad), 0);
    EXPECT_EQ(result.valid, one.valid) << one.length;
  }
}

TEST_F(StaInfoTest, InterfaceNameMayFillItsField) {
  const std::string name = "eth-of-16-bytes.";
  ASSERT_EQ(name.size(), DeviceRecord::interfaceName.width);
  store().row<LanInfoView>("IGD.LD1.ETH1").setText(LanInfoView::interfaceName, name);
  answerDevice(0, describe(kStorage, name));
  EXPECT_EQ(config(kStorage), 0);
  EXPECT_STREQ(result.linkRate, "1000");
}

TEST_F(StaInfoTest, DescriptionOfAFailedQueryIsUsedForTheConnection) {
  answerDevice(6, describe(kLaptop, "wlan5"));
  EXPECT_EQ(config(kPad), 0);
  EXPECT_THAT(logs(),
              HasLogLine({4, "ubus_get_sta_config",
                          "ctSgw_ssend_to_proxy CTSGW_EVENT_QUERY_ADEV_PARAM error!\n", 6}));
  EXPECT_STREQ(result.rssi, "-47");
  EXPECT_EQ(result.valid, 1);
}

TEST_F(StaInfoTest, EveryDeviceOfACrowdIsDescribed) {
  loadExample("crowded.json");
  for (int32_t index = 0; index < 128; ++index) {
    EXPECT_EQ(get(index), 0) << index;
    EXPECT_EQ(record.staConfigValid, 1) << index;
    EXPECT_THAT(record.hostName, ::testing::StartsWith("device-"));
  }
}

TEST_F(StaInfoTest, SweepOfFaults) {
  expectNoLeaks();
  const auto check = [&](const testing::SweepRun &run) {
    EXPECT_TRUE(run.status == 0 || run.status == -8) << run.status;
    if (run.status == -8) {
      EXPECT_STREQ(record.hostName, "");
    }
  };
  for (const int32_t index : {kPad, kPrinter}) {
    EXPECT_GT(sweepFaults([&] { return get(index); }, check), 15u);
  }
}

}  // namespace
}  // namespace gateway
