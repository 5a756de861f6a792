#include "pmapi/basicinfo.h"

#include <cstring>
#include <string>

#include "gateway/mesh.hpp"
#include "gateway/wan.hpp"
#include "platform/device.hpp"
#include "platform/wan.hpp"
#include "tests/support/gateway_test.hpp"

using namespace platform;

namespace gateway {
namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;

constexpr int32_t kPlatformFailure = -77;

class BasicInfoTest : public GatewayTest {
 protected:
  BasicInfoTest() {
    loadExample("home_router.json");
    forgetWan();
  }
  ~BasicInfoTest() override { forgetWan(); }

  static void forgetWan() {
    std::memset(g_wanIPv4Addr, 0, sizeof g_wanIPv4Addr);
    std::memset(g_wanIPv6Addr, 0, sizeof g_wanIPv6Addr);
    std::memset(g_waninst, 0, sizeof g_waninst);
    g_ipmode = 0;
  }

  std::string captureEth() {
    return store().row<GatewayIdentityView>("IGD").text(GatewayIdentityView::captureEth);
  }
};

struct TextGetter {
  const char *name;
  int32_t (*get)(char *);
  const char *entry;
  const char *value;
  const char *label;
  const char *fault;
  const char *failure;
  int32_t failed;
};

constexpr char kGetFailure[] = "dbgetview fail(-77)\r\n";
constexpr char kSetFailure[] = "dbsetview fail(-77)\r\n";

const TextGetter kTextGetters[] = {
    {"ubus_getProductToken", ubus_getProductToken, "now in ubus_getProductToken\n",
     "7QwkvnP4s2HbZeLm", "token:", "IDENTITY", kGetFailure, -1},
    {"ubus_getDeviceType", ubus_getDeviceType, "now in ubus_getDeviceType\n", "Router",
     "type:", "DEVICE_INFO", kGetFailure, -1},
    {"ubus_getdeviceVendor", ubus_getdeviceVendor, "now in ubus_getdeviceVendor\n", "Northfield",
     "vendor:", "DEVICE_INFO", kGetFailure, -1},
    {"ubus_getDeviceModel", ubus_getDeviceModel, "now in ubus_getDeviceModel\n", "NF-6200AX",
     "model:", "DEVICE_INFO", kGetFailure, -1},
    {"ubus_getDeviceSn", ubus_getDeviceSn, "now in ubus_getDeviceSn\n", "NF6200AX2306A00417",
     "sn:", "DEVICE_INFO", kGetFailure, -1},
    {"ubus_getCMEI", ubus_getCMEI, "now in ubus_getCMEI\n", "990012345678901", "cmei:", "IDENTITY",
     kGetFailure, -1},
    {"ubus_getSWVersion", ubus_getSWVersion, "now in ubus_getSWVersion\n", "V2.3.11_B20260418",
     "sw_ver:", "DEVICE_INFO", kGetFailure, -1},
    {"ubus_getFWVersion", ubus_getFWVersion, "now in ubus_getFWVersion\n", "V2.3.11",
     "ver:", "DEVICE_INFO", kGetFailure, -1},
    {"ubus_getAuthID", ubus_getAuthID, "now in ubus_getAuthID\n", "AUTH-00E04C-7731",
     "authid:", "IDENTITY", kGetFailure, -1},
    {"ubus_getDevKey", ubus_getDevKey, "now in ubus_getDevKey\n",
     "f3b1c58a0d2e4796a1b8c7d6e5f40312f3b1c58a0d2e4796a1b8c7d6e5f40312", "devkey:", "IDENTITY",
     kGetFailure, -1},
    {"ubus_getCaptureEth", ubus_getCaptureEth, "now in si_getCaptureEth\n", "nbif0",
     "eth:", "IDENTITY", kSetFailure, kPlatformFailure},
    {"ubus_getPPPOEUser", ubus_getPPPOEUser, "now in ubus_getPPPOEUser\n", "07558823417@home",
     "pUser:", "WCPPP1", kGetFailure, -1},
};

TEST_F(BasicInfoTest, TextGettersCopyWithoutTerminatorAndLogTheValue) {
  for (const TextGetter &getter : kTextGetters) {
    SCOPED_TRACE(getter.name);
    forgetCalls();
    char text[128] = {};
    EXPECT_EQ(getter.get(text), 0);
    EXPECT_STREQ(text, getter.value);
    EXPECT_THAT(logs(), HasLogLine({5, getter.name, getter.entry}));
    EXPECT_THAT(logs(),
                HasLogLine({5, getter.name, getter.label + std::string(getter.value) + "\n"}));

    const size_t length = std::strlen(getter.value);
    std::memset(text, '#', sizeof text - 1);
    forgetCalls();
    getter.get(text);
    EXPECT_EQ(text[length], '#');
    EXPECT_THAT(logs(),
                HasLogLine({5, getter.name, getter.label + std::string(getter.value) + "\n"}))
        << "not what stood behind it";
    EXPECT_EQ(getter.get(nullptr), -1);
  }
}

TEST_F(BasicInfoTest, TextGettersReportAFailedReadAndCopyNothing) {
  for (const TextGetter &getter : kTextGetters) {
    SCOPED_TRACE(getter.name);
    restart();
    fail("vcorDbGetView", getter.fault, kPlatformFailure);
    char text[128] = {};
    EXPECT_EQ(getter.get(text), getter.failed);
    EXPECT_STREQ(text, "");
    EXPECT_THAT(logs(),
                HasLogLine({4, getter.name, "[" + std::string(getter.name) + "] " + getter.failure,
                            kPlatformFailure}));
  }
}

TEST_F(BasicInfoTest, TextsStopOneShortOfTheDestinationAndWithinTheirView) {
  // Without an end: the device key's field is the last of its view.
  for (const auto &[row, field] :
       {std::pair<Row, platform::Field>{store().row<DeviceInfoView>("IGD"),
                                        DeviceInfoView::serialNumber},
        {store().row<GatewayIdentityView>("IGD"), GatewayIdentityView::captureEth},
        {store().row<GatewayIdentityView>("IGD"), GatewayIdentityView::devKey}}) {
    std::memset(row.data() + field.offset, 's', field.width);
  }
  char text[136] = {};
  EXPECT_EQ(ubus_getDeviceSn(text), 0);
  EXPECT_EQ(std::string(text), std::string(31, 's'));
  EXPECT_EQ(ubus_getCaptureEth(text), 0);
  EXPECT_EQ(std::string(text), std::string(31, 's'));
  EXPECT_THAT(logs(), HasLog(5, "eth:" + std::string(31, 's') + "\n"));
  EXPECT_EQ(ubus_getDevKey(text), 0);
  EXPECT_EQ(std::string(text), std::string(127, 's'));
}

TEST_F(BasicInfoTest, DeviceMacIsTwelveLowerCaseDigits) {
  char mac[32] = {};
  EXPECT_EQ(ubus_getDeviceMac(mac), 0);
  EXPECT_STREQ(mac, "00e04c7731a0");
  EXPECT_THAT(logs(), HasLogLine({5, "ubus_getDeviceMac", "now in si_getDeviceMac\n"}));
  EXPECT_EQ(ubus_getDeviceMac(nullptr), -1);
  fail("vcorDbGetView", "LAN_DEVICE", kPlatformFailure);
  EXPECT_EQ(ubus_getDeviceMac(mac), -1);
  EXPECT_THAT(logs(),
              HasLogLine({4, "ubus_getDeviceMac", "[ubus_getDeviceMac] dbsetview fail(-77)\r\n",
                          kPlatformFailure}));
}

TEST_F(BasicInfoTest, UplinkTypeKnowsTwoModesAndHonoursTheLength) {
  const struct {
    uint32_t mode;
    int32_t length;
    const char *text;
  } cases[] = {{512, 31, "WLAN\0####"}, {512, 5, "WLAN\0####"}, {512, 4, "WLAN#####"},
               {1, 31, "Ethernet\0"},   {1, 3, "Eth######"},    {2, 31, "#########"},
               {1, 0, "#########"},     {1, -1, "#########"}};
  for (const auto &one : cases) {
    wan().uplink.mode = one.mode;
    char text[32];
    std::memset(text, '#', sizeof text);
    EXPECT_EQ(ubus_getUplinkType(text, one.length), 0);
    EXPECT_EQ(std::memcmp(text, one.text, 9), 0) << one.mode << " " << one.length;
  }
  EXPECT_THAT(logs(), HasLogLine({5, "ubus_getUplinkType", "now in si_getUplinkType\n"}));
  EXPECT_EQ(ubus_getUplinkType(nullptr, 31), -1);
  fail("pm_upmode_info_get", "", kPlatformFailure);
  char text[32] = {};
  EXPECT_EQ(ubus_getUplinkType(text, 31), kPlatformFailure);
  EXPECT_THAT(logs(), HasLog(4, "[ubus_getUplinkType] pm_upmode_info_get error, iret = -77\n"));
}

TEST_F(BasicInfoTest, WorkingModeSharesTheUplinkTypesEntryLine) {
  uint32_t mode = 99;
  EXPECT_EQ(ubus_getWorkingMode(&mode), 0);
  EXPECT_EQ(mode, 1u);
  EXPECT_THAT(logs(), HasLogLine({5, "ubus_getWorkingMode", "now in si_getUplinkType\n"}));
  EXPECT_EQ(ubus_getWorkingMode(nullptr), -1);
  fail("vcorDbGetView", "NETWORKING", kPlatformFailure);
  mode = 99;
  EXPECT_EQ(ubus_getWorkingMode(&mode), kPlatformFailure);
  EXPECT_EQ(mode, 99u);
  EXPECT_THAT(logs(), HasLogLine({4, "ubus_getWorkingMode",
                                  "vcorDbGetView DBVIEW_NETWORKING_DEV_INFO failed!, iRet = -77\n",
                                  kPlatformFailure}));
}

TEST_F(BasicInfoTest, Radio5OnlyTellsWhetherTheIdentityCanBeRead) {
  EXPECT_EQ(ubus_getRadio5(), 0);
  EXPECT_THAT(logs(), HasLogLine({5, "ubus_getRadio5", "now in ubus_getRadio5\n"}));
  fail("vcorDbGetView", "IDENTITY", kPlatformFailure);
  EXPECT_EQ(ubus_getRadio5(), -1);
  EXPECT_THAT(logs(), HasLogLine({4, "ubus_getRadio5", "[ubus_getRadio5] dbgetview fail(-77)\r\n",
                                  kPlatformFailure}));
}

TEST_F(BasicInfoTest, CardCountTakesNoMoreThanItsWord) {
  uint32_t cards[2] = {0, 7};
  EXPECT_EQ(ubus_wlan_get_card_max(cards), 0);
  EXPECT_EQ(cards[0], 2u);
  EXPECT_EQ(cards[1], 7u);
  EXPECT_EQ(ubus_wlan_get_card_max(nullptr), -1);
  EXPECT_THAT(logs(), HasLog(4, "max_card_num is NULL\n"));

  const struct {
    uint16_t length;
    uint32_t count;
  } replies[] = {{0, 0x11223344}, {2, 0x11220000}, {64, 0}};
  for (const auto &reply : replies) {
    restart();
    fail(Fault{.call = "pm_send_msg_2mm", .replyLength = reply.length});
    cards[0] = 0x11223344;
    EXPECT_EQ(ubus_wlan_get_card_max(cards), 0);
    EXPECT_EQ(cards[0], reply.count) << "bytes that did not come stay";
    EXPECT_EQ(cards[1], 7u);
  }

  restart();
  fail("pm_send_msg_2mm", "", kPlatformFailure);
  EXPECT_EQ(ubus_wlan_get_card_max(cards), kPlatformFailure);
  EXPECT_THAT(logs(), HasLog(4, HasSubstr(") fail=-77\n")));
}

// The cache lives as long as the process, so both sides of it stand in one test.
TEST_F(BasicInfoTest, VersionCodeIsReadUntilItSucceedsAndThenKept) {
  fail("pm_get_version_config_type_int", "", kPlatformFailure, 1, 2);
  const int32_t first = ubus_get_current_version_code();
  if (trace("pm_get_version_config_type_int").empty()) GTEST_SKIP() << "read by an earlier test";
  EXPECT_EQ(first, -1);
  EXPECT_EQ(ubus_get_current_version_code(), -1);
  EXPECT_THAT(logs(), HasLogLine({0, "ubus_get_current_version_code",
                                  "pm_get_version_config_type_int failed: -77!", 6419}));
  EXPECT_EQ(ubus_get_current_version_code(), 2);
  EXPECT_EQ(ubus_get_current_version_code(), 2);
  EXPECT_THAT(trace("pm_get_version_config_type_int"), SizeIs(3));
}

TEST_F(BasicInfoTest, AssemblerFillsEveryField) {
  expectNoLeaks();
  store().row<GatewayIdentityView>("IGD").setText(GatewayIdentityView::productToken, "not this");
  store().row<NetworkingDeviceView>("IGD").setWord(NetworkingDeviceView::workingMode, 3);
  mesh().topology.replace(mesh().topology.find("Controller"), 0, "12 ");
  BasicInfoRecord record = {};
  EXPECT_EQ(pm_ubus_get_basicinfo(&record), 0);
  EXPECT_THAT(logs(), HasLogLine({5, "pm_ubus_get_basicinfo", "now in pm_ubus_get_basicinfo\n"}));
  EXPECT_STREQ(record.productToken, "7QwkvnP4s2HbZeLm");
  const char *const texts[] = {record.deviceType,      record.deviceVendor, record.deviceModel,
                               record.deviceSn,        record.cmei,         record.softwareVersion,
                               record.firmwareVersion, record.authId,       record.devKey,
                               record.captureEth,      record.pppoeUser};
  for (size_t i = 0; i < std::size(texts); ++i) {
    EXPECT_STREQ(texts[i], kTextGetters[i + 1].value);
  }
  EXPECT_STREQ(record.protocolVersion, "1.4.1");
  EXPECT_STREQ(record.reservedText, "");
  EXPECT_EQ(record.versionType, 2);
  EXPECT_STREQ(record.testFlag, "Test");
  EXPECT_STREQ(record.deviceMac, "00E04C7731A0");
  EXPECT_STREQ(record.wanIpv4, "203.0.113.45");
  EXPECT_STREQ(record.wanIpv6, "2001:db8:4c:7731::1");
  EXPECT_EQ(record.meshSupport, 1);
  EXPECT_EQ(record.meshInfoCode, 12);
  EXPECT_STREQ(record.uplinkType, "Ethernet");
  EXPECT_STREQ(record.workingMode, "3");
  EXPECT_EQ(record.dualBand, 1);
  EXPECT_EQ(g_ipmode, 2u);
  EXPECT_THAT(logs(), HasLog(5, "Wlan_Card_Max=2\n"));
}

TEST_F(BasicInfoTest, AssemblerSurvivesAPlatformThatIsAllDown) {
  std::strcpy(g_wanIPv4Addr, "198.51.100.9");
  fail("*", "", kPlatformFailure);
  BasicInfoRecord record = {};
  EXPECT_EQ(pm_ubus_get_basicinfo(&record), 0);
  EXPECT_STREQ(record.productToken, "7QwkvnP4s2HbZeLm");
  EXPECT_STREQ(record.protocolVersion, "1.4.1");
  EXPECT_EQ(record.versionType, 2);
  EXPECT_STREQ(record.testFlag, "Test");
  EXPECT_EQ(record.meshSupport, 1);
  EXPECT_EQ(record.meshInfoCode, 0);
  EXPECT_STREQ(record.workingMode, "0");
  EXPECT_EQ(record.dualBand, 0);
  EXPECT_STREQ(record.wanIpv4, "198.51.100.9");
  for (const char *text : {record.deviceSn, record.deviceMac, record.captureEth, record.wanIpv6,
                           record.uplinkType, record.pppoeUser}) {
    EXPECT_STREQ(text, "");
  }
  EXPECT_THAT(logs(), HasLogLine({4, "pm_ubus_get_basicinfo",
                                  "ubus_get_router_ip_host_ipv46 failed!!\n", kPlatformFailure}));
}

TEST_F(BasicInfoTest, SweepOfFaultsLeavesTheAssemblerAnswering) {
  beforeEachRun(forgetWan);
  BasicInfoRecord record = {};
  sweepFaults(
      [&record] {
        record = {};
        return pm_ubus_get_basicinfo(&record);
      },
      [&record](const testing::SweepRun &run) {
        EXPECT_EQ(run.status, 0);
        EXPECT_STREQ(record.testFlag, "Test");
      });
}

class WanSearchTest : public BasicInfoTest {
 protected:
  struct Route {
    uint32_t mode;
    uint32_t ipv4;
    bool internet = true;
    std::string path = {};
  };

  WanSearchTest() {
    wan().connections.clear();
    store().create<GatewayIdentityView>("IGD").setText(GatewayIdentityView::captureEth, "");
  }

  /// Adds "IGD.WD1.WCD<n>", or another path, with a route and an interface "nbif<n>" behind it.
  std::string addConnection(const Route &route) {
    const std::string number = std::to_string(wan().connections.size() + 10);
    const std::string path = route.path.empty() ? "IGD.WD1.WCD" + number : route.path;
    wan().connections.push_back({path, wan().deviceType});
    const Row row = store().create<RouteInfoRecord>(path);
    row.setWord(RouteInfoRecord::flags, 1);
    row.setWord(RouteInfoRecord::wanType, 5);
    row.setWord(RouteInfoRecord::addressMode, route.mode);
    row.setWord(RouteInfoRecord::isInternet2, route.internet ? 1 : 0);
    row.setWord(RouteInfoRecord::ipv4Address, route.ipv4);
    std::vector<uint8_t> address(16);
    address[0] = 0x20;
    address[1] = 0x01;
    address[15] = 0x09;
    row.setBytes(RouteInfoRecord::ipv6Address, address);
    const Row interface = store().create<InterfaceInfoView>("IGD.IF" + number);
    interface.setText(InterfaceInfoView::interfaceId, path);
    interface.setText(InterfaceInfoView::interfaceName, "nbif" + number);
    return path;
  }

  int32_t search() { return ubus_get_router_ip_host_ipv46(&ipv4, ipv6, ifname, &mode); }

  uint32_t ipv4 = 0;
  uint8_t ipv6[16] = {};
  char ifname[64] = {};
  uint32_t mode = 77;
};

TEST_F(WanSearchTest, PassesOverConnectionsWithoutAnAddress) {
  std::strcpy(g_wanIPv4Addr, "198.51.100.9");
  addConnection({1, 0x0A000001, false});
  addConnection({1, 0});
  const std::string found = addConnection({1, 0x0A000002});
  addConnection({1, 0x0A000003});
  EXPECT_EQ(search(), 0);
  EXPECT_EQ(ipv4, 0x0A000002u);
  EXPECT_EQ(mode, 1u);
  EXPECT_EQ(std::string(g_wanIPv4Addr, 12), "10.0.0.2" + std::string(4, '\0')) << "no old tail";
  EXPECT_STREQ(g_wanIPv6Addr, "");
  EXPECT_EQ(g_waninst, found);
  EXPECT_EQ(ifname, found);
  EXPECT_EQ(captureEth(), "nbif12");
  EXPECT_THAT(trace("vcorDbSetView"), SizeIs(2));
  EXPECT_THAT(logs(), HasLog(7, "tWANDType=1"));
  EXPECT_THAT(logs(), HasLog(7, "tWancList.tGeneralPara.dwCount=4"));
  EXPECT_THAT(logs(), HasLog(7, " this route wanctype is not internet, continue to find\n"));
  EXPECT_THAT(logs(), HasLog(7,
                             "tRouteInfo mod=1. (1:E_IPV4,2:E_IPV6,3:E_BOTH),"
                             "tRouteInfo.WANCType<5>;szInstIdentity=IGD.WD1.WCD12\n"));
  EXPECT_THAT(logs(), HasLog(5, "cannot get wan ipv4, continue to find!!!\n"));
  EXPECT_THAT(logs(), HasLog(5, "host ipv4 : 0A000002   \n"));
  EXPECT_THAT(logs(), HasLog(5, "g_wanIPv4Addr:10.0.0.2\n"));
}

TEST_F(WanSearchTest, ARouteCountsWhenItIsUsableAndOneOfItsInternetFlagsIsOne) {
  const std::string path = addConnection({1, 0x0A000002});
  const struct {
    uint32_t flags, internet1, internet2;
    int32_t status;
  } cases[] = {{1, 1, 0, 0}, {3, 0, 1, 0}, {2, 1, 1, -1}, {1, 2, 0, -1}, {1, 0, 2, -1}};
  for (const auto &one : cases) {
    const Row row = store().row<RouteInfoRecord>(path);
    row.setWord(RouteInfoRecord::flags, one.flags);
    row.setWord(RouteInfoRecord::isInternet1, one.internet1);
    row.setWord(RouteInfoRecord::isInternet2, one.internet2);
    EXPECT_EQ(search(), one.status) << one.flags << one.internet1 << one.internet2;
  }
}

TEST_F(WanSearchTest, ACandidateThatIsPassedOverHasWrittenItsModeAndName) {
  ipv4 = 99;
  addConnection({3, 0, true, "IGD.WD1.WCD10.WCPPP1"});
  EXPECT_EQ(search(), -1);
  EXPECT_EQ(mode, 3u);
  EXPECT_EQ(ipv4, 0u);
  EXPECT_EQ(ipv6[0], 0);
  EXPECT_STREQ(ifname, "IGD.WD1.WCD10.WCPPP1");
  EXPECT_STREQ(g_wanIPv6Addr, "");
  addConnection({2, 0});
  EXPECT_EQ(search(), 0);
  EXPECT_EQ(mode, 2u);
  EXPECT_STREQ(ifname, "IGD.WD1.WCD11.WCPPP1") << "the tail of the longer one";
}

TEST_F(WanSearchTest, DualStackIsReportedAsIpv6WithBothCachesFilled) {
  addConnection({3, 0xC0A80101});
  EXPECT_EQ(search(), 0);
  EXPECT_EQ(mode, 2u);
  EXPECT_EQ(ipv6[15], 9);
  EXPECT_STREQ(g_wanIPv4Addr, "192.168.1.1");
  EXPECT_STREQ(g_wanIPv6Addr, "2001::9");
  EXPECT_THAT(logs(), HasLog(7, "host ipv6 : 2001::9\n"));
}

TEST_F(WanSearchTest, AddressThatThePlatformDoesNotEndEndsWithItsRoom) {
  addConnection({3, 0xC0A80101});
  fail(boundary::Fault{.call = "IPv6ToStr", .count = 1000});
  EXPECT_EQ(search(), 0);
  EXPECT_THAT(logs(), HasLog(7, "host ipv6 : " + std::string(63, 'f') + "\n"));
}

TEST_F(WanSearchTest, Ipv6AloneEndsTheSearchAndKeepsTheTailOfALongerAddress) {
  std::strcpy(g_wanIPv4Addr, "10.1.1.1");
  std::strcpy(g_wanIPv6Addr, "2001:db8:ffff::1");
  addConnection({2, 0x0A000002});
  addConnection({1, 0x0A000003});
  EXPECT_EQ(search(), 0);
  EXPECT_EQ(ipv4, 0u);
  EXPECT_STREQ(g_wanIPv4Addr, "10.1.1.1");
  EXPECT_STREQ(g_waninst, "");
  EXPECT_STREQ(g_wanIPv6Addr, "2001::98:ffff::1");
}

TEST_F(WanSearchTest, FailsWithCachesUntouched) {
  std::strcpy(g_wanIPv4Addr, "10.1.1.1");
  EXPECT_EQ(search(), -1) << "no connection";
  addConnection({1, 0x0A000002, false});
  EXPECT_EQ(search(), -1) << "none to the Internet";
  addConnection({4, 0x0A000002});
  addConnection({1, 0x0A000003});
  EXPECT_EQ(search(), -1) << "an unknown mode ends the search";
  EXPECT_STREQ(g_wanIPv4Addr, "10.1.1.1");
  EXPECT_EQ(ubus_get_router_ip_host_ipv46(nullptr, ipv6, ifname, &mode), -257);
  EXPECT_EQ(ubus_get_router_ip_host_ipv46(&ipv4, nullptr, ifname, &mode), -257);
  EXPECT_EQ(ubus_get_router_ip_host_ipv46(&ipv4, ipv6, nullptr, &mode), -257);
  EXPECT_EQ(ubus_get_router_ip_host_ipv46(&ipv4, ipv6, ifname, nullptr), -257);
  EXPECT_THAT(logs(), HasLog(5, "Para is NULL"));
}

TEST_F(WanSearchTest, ThirtyTwoConnectionsAreTheLimit) {
  for (int i = 0; i < 32; ++i) addConnection({1, 0, false});
  EXPECT_EQ(search(), -1);
  EXPECT_THAT(trace("plib_ifs_get_routeif_info"), SizeIs(32));
  addConnection({1, 0x0A000002});
  forgetCalls();
  EXPECT_EQ(search(), -12);
  for (const int32_t count : {257, -1}) {
    fail(Fault{.call = "pm_e8_wanc_list_all_wanc_by_wand", .times = 1, .count = count});
    EXPECT_EQ(search(), -12) << count;
  }
  EXPECT_THAT(trace("plib_ifs_get_routeif_info"), IsEmpty());
  EXPECT_THAT(logs(),
              HasLogLine({5, "ubus_get_router_ip_host_ipv46", "wanc count=33, WANCID_MAX=32"}));
}

TEST_F(WanSearchTest, PlatformFailuresAreReturnedOrPassedOver) {
  addConnection({1, 0x0A000002});
  const size_t type = fail("pm_e8_wanc_get_current_wandtype", "", -5, 1, 1);
  EXPECT_EQ(search(), -5);
  EXPECT_EQ(gateway().boundary().fault(type).fired, 1u);
  EXPECT_THAT(logs(), HasLog(5, "func pm_e8_wanc_get_current_wandtype fail,iRet=-5"));
  fail("pm_e8_wanc_list_all_wanc_by_wand", "", -6, 1, 1);
  EXPECT_EQ(search(), -6);
  EXPECT_THAT(logs(), HasLog(5, "func CmListAllWANCByWAND fail,iRet=-6"));
  fail("plib_ifs_get_routeif_info", "", -7, 1, 1);
  EXPECT_EQ(search(), -1);
  EXPECT_THAT(logs(),
              HasLog(7, "plib_ifs_get_routeif_info error !,szInstIdentity=IGD.WD1.WCD10\n"));
  fail("vcorDbQryView", "", -8, 1, 1);
  EXPECT_EQ(search(), 0) << "the capture interface is a side effect only";
}

TEST_F(WanSearchTest, InterfaceLookupWantsExactlyOneMatch) {
  const std::string id = addConnection({1, 1});
  EXPECT_EQ(ubus_get_ifname_from_ifid(id.c_str()), 0);
  EXPECT_EQ(captureEth(), "nbif10");
  EXPECT_THAT(logs(),
              HasLogLine({5, "ubus_get_ifname_from_ifid", "now in get_ifname_from_ifid\n"}));
  EXPECT_THAT(logs(), HasLog(5, "CaptureEth:nbif10\n"));
  EXPECT_EQ(ubus_get_ifname_from_ifid("IGD.NONE"), -1);
  EXPECT_THAT(logs(), HasLog(4, "tList.dwCount != 1 !!\n"));

  store().create<InterfaceInfoView>("IGD.IF99").setText(InterfaceInfoView::interfaceId, id);
  ubus_setCaptureEth("kept");
  EXPECT_EQ(ubus_get_ifname_from_ifid(id.c_str()), -1);
  EXPECT_EQ(captureEth(), "kept");
  EXPECT_EQ(ubus_get_ifname_from_ifid(nullptr), -1);
  EXPECT_THAT(logs(), HasLog(4, "if_id is null!!\n"));
}

TEST_F(WanSearchTest, InterfaceLookupReturnsTheFailingStep) {
  const std::string id = addConnection({1, 1});
  const struct {
    const char *call;
    int32_t status;
    int32_t result;
    const char *line;
  } cases[] = {
      {"vcorDbQryView", -4, -4, "vcorDbQryView DBVIEW_INTERFACE_INFO failed!!\n"},
      {"vcorDbGetView", -5, -5, "vcorDbGetView DBVIEW_INTERFACE_INFO failed!!\n"},
      {"vcorDbSetView", -6, -1, "ubus_setCaptureEth failed!!\n"},
  };
  for (const auto &one : cases) {
    fail(one.call, "", one.status, 1, 1);
    EXPECT_EQ(ubus_get_ifname_from_ifid(id.c_str()), one.result);
    EXPECT_THAT(logs(), HasLog(4, one.line));
  }
}

TEST_F(WanSearchTest, InterfaceLookupSendsALongIdAsInvalidAndReadsNoNameBeyondItsView) {
  const std::string id = addConnection({1, 1});
  EXPECT_NE(ubus_get_ifname_from_ifid(std::string(33, 'i').c_str()), 0);
  EXPECT_EQ(captureEth(), "");

  const Row interface = store().row<InterfaceInfoView>("IGD.IF10");
  std::memset(interface.data() + InterfaceInfoView::interfaceName.offset, 'e',
              InterfaceInfoView::kSize - InterfaceInfoView::interfaceName.offset);
  EXPECT_EQ(ubus_get_ifname_from_ifid(id.c_str()), -1) << "too long a name to be set";
  EXPECT_THAT(logs(), HasLog(5, "CaptureEth:" + std::string(131, 'e') + "\n"));
}

TEST_F(WanSearchTest, SetCaptureEthSendsALongNameAsInvalid) {
  EXPECT_EQ(ubus_setCaptureEth(std::string(32, 'e').c_str()), 0);
  EXPECT_EQ(captureEth(), std::string(32, 'e'));
  EXPECT_EQ(ubus_setCaptureEth(std::string(33, 'e').c_str()), -1);
  EXPECT_EQ(captureEth(), std::string(32, 'e'));
  EXPECT_THAT(logs(), HasLog(4, HasSubstr("[ubus_setCaptureEth] dbsetview fail(")));
  EXPECT_EQ(ubus_setCaptureEth(nullptr), -1);
}

}  // namespace
}  // namespace gateway
