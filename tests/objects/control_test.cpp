#include "pmapi/control.h"

#include <cstring>

#include "boundary/status.hpp"
#include "gateway/device.hpp"
#include "gateway/habits.hpp"
#include "gateway/manager.hpp"
#include "gateway/radios.hpp"
#include "platform/device.hpp"
#include "platform/firewall.hpp"
#include "platform/proxy.h"
#include "platform/wan.hpp"
#include "platform/wlan.hpp"
#include "tests/support/gateway_test.hpp"

using namespace platform;

namespace gateway {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;

constexpr char kPpp[] = "IGD.WD1.WCD1.WCPPP1";
constexpr char kIp[] = "IGD.WD1.WCD2.WCIP1";

class ControlTest : public GatewayTest {
 protected:
  ControlTest() {
    loadExample("home_router.json");
    for (const char *ssid : {"IGD.LD1.WLAN1", "IGD.LD1.WLAN5"}) {
      store().create<WlanConfigRecord>(ssid);
      store().create<WlanConfigView>(ssid);
    }
  }

  Row networking() { return store().row<NetworkingDeviceView>("IGD"); }
};

TEST_F(ControlTest, RestartsTheGatewayOrOneRadio) {
  EXPECT_EQ(pm_ubus_control_set(1), 0);
  EXPECT_THAT(device().restarts, ElementsAre(11));
  EXPECT_EQ(gateway().clock().uptime(), 0);
  EXPECT_EQ(pm_ubus_control_set(3), 0);
  EXPECT_EQ(radios().restarts.of[kBand24G], 0u);
  EXPECT_EQ(radios().restarts.of[kBand5G], 1u);
  EXPECT_EQ(pm_ubus_control_set(2), 0);
  EXPECT_EQ(radios().restarts.of[kBand24G], 1u);
  EXPECT_THAT(logs(), IsEmpty()) << "the handler has no entry line";

  for (const int32_t type : {0, 4, -1}) EXPECT_EQ(pm_ubus_control_set(type), -1) << type;
  EXPECT_THAT(logs(), HasLog(4, "reboot controlType is not 1 2 or 3\n"));
}

TEST_F(ControlTest, RestartFailuresAreReportedButNotAnUnchangedRadio) {
  fail("pm_dev_restart", "", -31, 1, 1);
  EXPECT_EQ(pm_ubus_control_set(1), -31);
  fail("pm_wlan_set_config", "WLAN1", -9, 1, 1);
  EXPECT_EQ(pm_ubus_control_set(2), 0);
  fail("pm_wlan_set_config", "WLAN5", -31, 1, 1);
  EXPECT_EQ(pm_ubus_control_set(3), -1);
  EXPECT_THAT(logs(), HasLogLine({4, "pm_ubus_control_set",
                                  "wifi channel restart failed,iRet = -31 \n", -31}));
}

struct ControlEvent {
  const char *function;
  int32_t (*send)();
  const char *event;
};

const ControlEvent kControlEvents[] = {
    {"pm_ubus_set_locknet", [] { return pm_ubus_set_locknet(3); }, "CTSGW_EVENT_SET_LOCK"},
    {"pm_ubus_set_kernelcount", [] { return pm_ubus_set_kernelcount(99); },
     "CTSGW_EVENT_SET_KERNELCOUNT"},
    {"pm_ubus_set_hwnetClean", [] { return pm_ubus_set_hwnetClean(); }, "CTSGW_EVENT_CLEAN_HWNAT"},
};

TEST_F(ControlTest, EventsReachTheProxy) {
  for (const ControlEvent &one : kControlEvents) {
    EXPECT_EQ(one.send(), 0) << one.function;
    EXPECT_THAT(logs(),
                HasLogLine({5, one.function, "now in " + std::string(one.function) + "\n"}));
  }
  uint32_t lock = 0;
  EXPECT_EQ(pm_ubus_lockstatus_get(&lock), 0);
  EXPECT_EQ(lock, 3u);
  EXPECT_EQ(device().hwnatCleanings, 1u);
  int32_t count = 0;
  EXPECT_EQ(pm_ubus_get_kernelcount(&count), 0);
  EXPECT_EQ(count, 99);
}

TEST_F(ControlTest, EventFailuresAreLoggedButOnlyThoseOfTheCallReturned) {
  for (const ControlEvent &one : kControlEvents) {
    SCOPED_TRACE(one.function);
    const std::string line = "ctSgw_ssend_to_proxy " + std::string(one.event) + " error!\n";
    fail("ctSgw_ssend_to_proxy", one.event, -6, 1, 1);
    EXPECT_EQ(one.send(), -6);
    EXPECT_THAT(logs(), HasLogLine({4, one.function, line, -6}));
    forgetCalls();
    fail(Fault{.call = "ctSgw_ssend_to_proxy", .match = one.event, .times = 1, .replyStatus = 5});
    EXPECT_EQ(one.send(), 0);
    EXPECT_THAT(logs(), HasLogLine({4, one.function, line, 5}));
  }
}

TEST_F(ControlTest, PmfIsSetOnBothRadiosInTurn) {
  const uint32_t two = 2;
  EXPECT_EQ(pm_ubus_set_pmfctrl(&two), 0);
  uint32_t read = 77;
  EXPECT_EQ(pm_ubus_get_pmfctrl(&read), 0);
  EXPECT_EQ(read, 2u);
  for (const char *line : {"now in pm_ubus_set_pmfctrl\n", "Set pmfctrl:2\n",
                           "now in pm_ubus_get_pmfctrl\n", "Get pmfctrl:77\n"}) {
    EXPECT_THAT(logs(), HasLog(5, line));
  }

  const uint32_t one = 1;
  fail("pm_wlan_set_pmf", "WLAN1", -3, 1, 1);
  EXPECT_EQ(pm_ubus_set_pmfctrl(&one), -1);
  EXPECT_THAT(logs(), HasLog(4, "call pm_wlan_set_pmf 2G faild,iRet=-3\n"));
  EXPECT_EQ(store().row<WlanConfigView>("IGD.LD1.WLAN5").word(WlanConfigView::pmf), 2u);

  fail("pm_wlan_set_pmf", "WLAN5", -4, 1, 1);
  EXPECT_EQ(pm_ubus_set_pmfctrl(&one), -1);
  EXPECT_THAT(logs(), HasLog(4, "call pm_wlan_set_pmf 5G faild,iRet=-4\n"));
  read = 77;
  EXPECT_EQ(pm_ubus_get_pmfctrl(&read), 0);
  EXPECT_EQ(read, 77u) << "the radios differ now";
  EXPECT_THAT(logs(), HasLog(4, "WLAN1 and WLAN5 not same !\n"));
}

TEST_F(ControlTest, PmfHandlersReportNullAndFailedReads) {
  EXPECT_EQ(pm_ubus_set_pmfctrl(nullptr), -257);
  EXPECT_EQ(pm_ubus_get_pmfctrl(nullptr), -257);
  EXPECT_THAT(logs(), HasLog(4, "pm_ubus_set_pmfctrl para is null"));
  EXPECT_THAT(logs(), HasLog(4, "pm_ubus_get_pmfctrl para is null"));
  uint32_t value = 0;
  for (const char *ssid : {"WLAN1", "WLAN5"}) {
    forgetCalls();
    fail("vcorDbGetView", ssid, -5, 1, 1);
    EXPECT_EQ(pm_ubus_get_pmfctrl(&value), -5);
    EXPECT_THAT(logs(), HasLog(4, HasSubstr("vcorDbGetView failed!\n")));
  }
}

TEST_F(ControlTest, KernelCounterFollowsItsTwoFiles) {
  const struct {
    const char *enable;
    const char *skip;
    int32_t status;
    int32_t count;
  } cases[] = {
      {"1\n", "15\n", 0, 15},        {"0\n", "15\n", 0, -1},           {"2\n", "15\n", -1, 7},
      {"", "15\n", 0, -1},           {"x\n", "15\n", 0, -1},           {"1\n", "", 0, 0},
      {"1", "12345678", 0, 1234567}, {"1 and more text", "-4", 0, -4},
  };
  for (const auto &one : cases) {
    SCOPED_TRACE(one.enable);
    files().write("/proc/ffe/hff_enable", one.enable);
    files().write("/proc/ffe/hff_skip_num", one.skip);
    int32_t count = 7;
    EXPECT_EQ(pm_ubus_get_kernelcount(&count), one.status);
    EXPECT_EQ(count, one.count);
  }
  for (const char *file : {"hff_enable", "hff_skip_num"}) {
    EXPECT_THAT(logs(), HasLogLine({4, "GetStrFromFile",
                                    "fgets /proc/ffe/" + std::string(file) + " fail\n"}));
  }
  EXPECT_THAT(logs(), HasLog(4, "hff_enable parameter error!\n"));
  EXPECT_EQ(files().openStreams(), 0u);
}

TEST_F(ControlTest, KernelCounterNeedsBothFiles) {
  int32_t count = 7;
  EXPECT_EQ(pm_ubus_get_kernelcount(nullptr), -1);
  files().remove("/proc/ffe/hff_skip_num");
  EXPECT_EQ(pm_ubus_get_kernelcount(&count), -1);
  EXPECT_THAT(logs(), HasLogLine({4, "GetStrFromFile", "Open /proc/ffe/hff_skip_num fail\n"}));
  EXPECT_THAT(logs(), HasLog(4, "GetStrFromProcFile error!\n"));
  files().remove("/proc/ffe/hff_enable");
  EXPECT_EQ(pm_ubus_get_kernelcount(&count), -1);
  EXPECT_EQ(count, 7);
}

TEST_F(ControlTest, SilentHandlersPassTheirWordsOn) {
  EXPECT_EQ(pm_ubus_led_control(2, 1, 8, 9), 0);
  EXPECT_EQ(pm_ubus_led_get(2, 3, 4, 5), 1);
  EXPECT_THAT(trace(),
              ElementsAre("pm_pdt_ctl_leds(2 1 8 9) = 0", "pm_pdt_get_leds_status(2 3 4 5) = 1"));
  EXPECT_EQ(pm_ubus_dev_restore_special(77, 1, 2, 3), 0);
  ASSERT_THAT(device().restores, SizeIs(1));
  EXPECT_EQ(device().restores[0].kind, 5u);
  EXPECT_EQ(device().restores[0].a, 1u);
  EXPECT_EQ(device().restores[0].b, 2u);
  EXPECT_EQ(device().restores[0].c, 3u);
  uint32_t lock = 9;
  fail("vcorDbGetView", "FW_BASE", -12345);
  EXPECT_EQ(pm_ubus_lockstatus_get(&lock), -12345);
  EXPECT_EQ(lock, 9u);
  EXPECT_THAT(logs(), IsEmpty());
}

using Words = std::vector<std::pair<uint32_t, int32_t>>;

constexpr int32_t kUntouched = 0x55555555;

/// The record that a rewriting writes, with something in every field.
template <class Record>
Row filled(Store &store, const std::string &path) {
  const Row row = store.create<Record>(path);
  std::memset(row.data(), 0x55, Record::kSize);
  return row;
}

TEST_F(ControlTest, EnablingIpv6RewritesThePppConnection) {
  const Row ppp = store().row<WanPppConnectionView>(kPpp);
  ppp.setWord(WanPppConnectionView::setting324, 324);
  ppp.setWord(WanPppConnectionView::setting484, 484);
  ppp.setWord(WanPppConnectionView::setting1220, 1220);
  networking().setWord(NetworkingDeviceView::ipv6Enable, 0);
  const Row ext = filled<WanPppExtRecord>(store(), kPpp);
  EXPECT_EQ(pm_ubus_ipv6enable_set(1), 0);
  EXPECT_THAT(logs(), HasLog(5, "now in pm_ubus_ipv6enable_set\n"));
  uint32_t enable = 0;
  EXPECT_EQ(pm_ubus_ipv6enable_get(&enable), 0);
  EXPECT_EQ(enable, 1u);

  expectWords(ext,
              {{28, 1},      {860, 1},  {1020, -1}, {1212, 0}, {1920, 484}, {1984, 0}, {2016, 324},
               {2144, 1220}, {3784, 3}, {3848, 7},  {3880, 1}, {4140, 7},   {4304, 7}, {4412, 1},
               {4444, 3},    {5476, 0}, {5508, 1},  {5540, 0}, {5572, 0},   {5972, 1}});
  EXPECT_EQ(ext.text(WanPppExtRecord::serviceList), "INTERNET");
  EXPECT_EQ(ext.text(WanPppExtRecord::userName), "07558823417@home");
  EXPECT_EQ(ext.text(WanPppExtRecord::password), "s8Lq2vXd");
  EXPECT_EQ(ext.text(WanPppExtRecord::text5924), "000000000000");
}

TEST_F(ControlTest, Ipv6IsWrittenWithAFreshHeader) {
  const Habit spoilsHeaders(&Habits::spoilsHeaders);
  networking().setWord(NetworkingDeviceView::ipv6Enable, 0);
  EXPECT_EQ(pm_ubus_ipv6enable_set(1), 0);
  EXPECT_EQ(networking().word(NetworkingDeviceView::ipv6Enable), 1u);
}

TEST_F(ControlTest, EnablingIpv6RewritesTheIpConnectionAndItsStaticAddressing) {
  networking().setText(NetworkingDeviceView::wanInstance, kIp);
  const Row ip = store().row<WanIpConnectionView>(kIp);
  for (const platform::Field &field : records::layoutOf<WanIpConnectionView>().fields) {
    if (field.kind == platform::FieldKind::kWord) ip.setWord(field, field.offset);
  }
  const Words always = {{28, 1},   {860, 1},  {1020, -1}, {1212, 0}, {1760, 196}, {1792, 388},
                        {2048, 3}, {2464, 7}, {2496, 1},  {2756, 7}, {2920, 7},   {3028, 1},
                        {3060, 3}, {4016, 0}, {4048, 1},  {4080, 0}, {4112, 0},   {4512, 1}};
  const struct {
    uint32_t kind;
    Words addressing;
  } cases[] = {{0,
                {{1244, kUntouched},
                 {1276, kUntouched},
                 {1308, kUntouched},
                 {1340, kUntouched},
                 {1372, kUntouched},
                 {1404, kUntouched}}},
               {1, {{1244, 100}, {1276, 132}, {1308, 164}, {1340, 228}, {1372, 260}, {1404, 292}}}};
  for (const auto &one : cases) {
    networking().setWord(NetworkingDeviceView::accessMode, one.kind);
    const Row ext = filled<WanIpExtRecord>(store(), kIp);
    EXPECT_EQ(pm_ubus_ipv6enable_set(1), 0);
    expectWords(ext, always);
    expectWords(ext, one.addressing);
    EXPECT_EQ(ext.text(WanIpExtRecord::serviceList), "INTERNET");
    EXPECT_EQ(ext.text(WanIpExtRecord::text4464), "000000000000");
  }
}

TEST_F(ControlTest, TextsOfTheConnectionEndInsideTheirFields) {
  const Row ppp = store().row<WanPppConnectionView>(kPpp);
  std::memset(ppp.data() + WanPppConnectionView::userName.offset, 'u', 68);
  std::memset(ppp.data() + WanPppConnectionView::password.offset, 'p', 68);
  EXPECT_EQ(pm_ubus_ipv6enable_set(1), 0);
  const Row ext = store().row<WanPppExtRecord>(kPpp);
  EXPECT_EQ(ext.text(WanPppExtRecord::userName), std::string(67, 'u'));
  EXPECT_EQ(ext.text(WanPppExtRecord::password), std::string(67, 'p'));

  std::memset(networking().data() + NetworkingDeviceView::wanInstance.offset, 'w', 132);
  expectComplaint("longer than 32");
  EXPECT_EQ(pm_ubus_ipv6enable_set(1), kPathTooLong);
  EXPECT_THAT(trace("vcorDbGetView").back(),
              HasSubstr("WAN_CONN_DEV " + std::string(127, 'w') + ")"));
}

TEST_F(ControlTest, OnlyEnablingInRouterModeTouchesTheConnection) {
  EXPECT_EQ(pm_ubus_ipv6enable_set(0), 0);
  EXPECT_EQ(networking().word(NetworkingDeviceView::ipv6Enable), 0u);
  networking().setWord(NetworkingDeviceView::workingMode, 2);
  EXPECT_EQ(pm_ubus_ipv6enable_set(1), 0);
  EXPECT_EQ(networking().word(NetworkingDeviceView::ipv6Enable), 1u);
  EXPECT_THAT(trace("si_ifsadapt_clear_wanc"), IsEmpty());
}

TEST_F(ControlTest, Ipv6FailuresNameTheirStep) {
  store().row<NetworkingDeviceView>("IGD");
  const struct {
    uint32_t kind;
    const char *call;
    const char *match;
    int32_t result;
    const char *line;
  } cases[] = {
      {2, "vcorDbGetView", "NETWORKING", -40, "getdbview networkingdevinfo error, iRet is -40\n"},
      {2, "vcorDbGetView", "WAN_CONN_DEV", -40, "getdbview wanc error, iRet is -40\n"},
      {2, "vcorDbGetView", "WAN_PPP_CONN", -40, "getdbview wancppp error, iRet is -40\n"},
      {0, "vcorDbGetView", "WAN_IP_CONN", -40, "getdbview wancip error, iRet is -40\n"},
      {2, "si_ifsadapt_clear_wanc", "", -1,
       "[pm_ubus_ipv6enable_set] si_ifsadapt_clear_wanc iRet=-40\n"},
      {0, "si_ifsadapt_clear_wanc", "", -1,
       "[pm_ubus_ipv6enable_set] si_ifsadapt_clear_wanc iRet=-40\n"},
      {2, "pm_e8_wanc_set_comm_ppp_ext", "", -40,
       "[pm_ubus_ipv6enable_set] pm_e8_wanc_set_comm_ppp_ext failed! iret:-40\n"},
      {0, "pm_e8_wanc_set_comm_ip_ext", "", -40,
       "[pm_ubus_ipv6enable_set] pm_e8_wanc_set_comm_ip_ext failed! iRet:-40\n"},
      {2, "vcorDbSetView", "NETWORKING", -40, "setdbview networkingdevinfo error, iRet is -40\n"},
  };
  for (const auto &one : cases) {
    SCOPED_TRACE(one.line);
    forgetCalls();
    networking().setWord(NetworkingDeviceView::accessMode, one.kind);
    networking().setText(NetworkingDeviceView::wanInstance, one.kind == 2 ? kPpp : kIp);
    fail(one.call, one.match, -40, 1, 1);
    EXPECT_EQ(pm_ubus_ipv6enable_set(1), one.result);
    EXPECT_THAT(logs(), HasLogLine({4, "pm_ubus_ipv6enable_set", one.line, -40}));
  }
  fail("vcorDbGetView", "NETWORKING", -40, 1, 1);
  uint32_t enable = 9;
  EXPECT_EQ(pm_ubus_ipv6enable_get(&enable), -40);
  EXPECT_EQ(enable, 9u);
  EXPECT_THAT(logs(), HasLogLine({4, "pm_ubus_ipv6enable_get",
                                  "getdbview networkingdevinfo error, iRet is -40\n", -40}));
  for (const char *call : {"pm_e8_wanc_set_comm_ppp_ext", "pm_e8_wanc_set_comm_ip_ext"}) {
    const bool ppp = std::strstr(call, "ppp") != nullptr;
    networking().setWord(NetworkingDeviceView::accessMode, ppp ? 2 : 0);
    networking().setText(NetworkingDeviceView::wanInstance, ppp ? kPpp : kIp);
    networking().setWord(NetworkingDeviceView::ipv6Enable, 0);
    fail(call, "", -9, 1, 1);
    EXPECT_EQ(pm_ubus_ipv6enable_set(1), 0) << "nothing changed is good enough";
    EXPECT_EQ(networking().word(NetworkingDeviceView::ipv6Enable), 1u);
  }
}

TEST_F(ControlTest, LogLevelsAreStoredAndReadThroughTwoTables) {
  const struct {
    uint32_t index;
    uint32_t stored;
    uint32_t readBack;
  } cases[] = {{1, 6, 1}, {0, 7, 3}, {2, 3, 2}, {3, 7, 3}, {5, 4, UINT32_MAX}};
  uint32_t logParam = 100;
  for (const auto &one : cases) {
    const DevLogStats asked = {1, one.index, ++logParam};
    EXPECT_EQ(pm_ubus_set_devlogstats(&asked), 0) << one.index;
    EXPECT_EQ(store().row<LogConfigRecord>("IGD").word(LogConfigRecord::logLevel), one.stored);
    DevLogStats read = {};
    EXPECT_EQ(pm_ubus_logstats_get(&read), 0);
    EXPECT_EQ(read.logLevel, one.readBack);
    EXPECT_EQ(read.logParam, logParam);
  }
  const DevLogStats untouched = {2, 1, 0};
  EXPECT_EQ(pm_ubus_set_devlogstats(&untouched), 0);
  EXPECT_EQ(store().row<LogConfigRecord>("IGD").word(LogConfigRecord::logEnable), 1u);
  ASSERT_THAT(receivedMessages(), SizeIs(6));
  EXPECT_EQ(receivedMessages().front().id, uint32_t{LOG_MGR_SET_LOGDISABLE});
  EXPECT_EQ(receivedMessages().front().data, bytesOf(uint32_t{101}));
  EXPECT_THAT(receivedMessages().back().data, IsEmpty());
  EXPECT_THAT(logs(), HasLog(5, "now in pm_ubus_set_devlogstats\n"));
  EXPECT_THAT(logs(), HasLog(5, "now in pm_ubus_logstats_get\n"));
  EXPECT_EQ(receivedMessages().back().id, uint32_t{LOG_MGR_CHANGE_LOGSIZE});
}

TEST_F(ControlTest, LogSettingFailures) {
  const DevLogStats asked = {1, 1, 512};
  EXPECT_EQ(pm_ubus_set_devlogstats(&asked), -9) << "the profile holds just these";
  EXPECT_THAT(logs(), HasLog(4, "LogParameter is not change!\n"));
  EXPECT_THAT(logs(), HasLog(4, "set pm_log_set_config error,iRet = -9!\n"));

  const DevLogStats sized = {1, 1, 0};
  fail("ASEND", "", -21, 1, 1);
  EXPECT_EQ(pm_ubus_set_devlogstats(&sized), -21);
  EXPECT_THAT(logs(), HasLog(4, "ASEND change logsize error!\n"));
  fail("ASEND", "", -22, 1, 1);
  EXPECT_EQ(pm_ubus_set_devlogstats(&asked), -22);
  EXPECT_THAT(logs(), HasLog(4, "ASEND set logdisable error!\n"));

  fail("pm_log_get_config", "", -23, 1, 1);
  DevLogStats read = {7, 7, 7};
  EXPECT_EQ(pm_ubus_logstats_get(&read), -1);
  EXPECT_EQ(read.logParam, 7u);
  EXPECT_THAT(logs(), HasLog(4, "pm_log_get_config failed!\n"));
  EXPECT_EQ(pm_ubus_set_devlogstats(nullptr), -1);
  EXPECT_EQ(pm_ubus_logstats_get(nullptr), -1);
  EXPECT_THAT(logs(), HasLog(4, "devlogstats is NULL!\n"));
}

TEST_F(ControlTest, SweepOfFaults) {
  expectNoLeaks();
  beforeEachRun([this] {
    for (const char *ssid : {"IGD.LD1.WLAN1", "IGD.LD1.WLAN5"}) {
      store().create<WlanConfigRecord>(ssid);
      store().create<WlanConfigView>(ssid);
    }
  });
  uint32_t word = 1;
  int32_t count = 0;
  DevLogStats logSettings = {1, 2, 3};
  const std::function<int32_t()> handlers[] = {
      [] { return pm_ubus_control_set(1); },
      [] { return pm_ubus_control_set(2); },
      [] { return pm_ubus_control_set(3); },
      [] { return pm_ubus_set_locknet(1); },
      [] { return pm_ubus_set_kernelcount(1); },
      [] { return pm_ubus_set_hwnetClean(); },
      [&word] { return pm_ubus_set_pmfctrl(&word); },
      [&word] { return pm_ubus_get_pmfctrl(&word); },
      [&count] { return pm_ubus_get_kernelcount(&count); },
      [&word] { return pm_ubus_lockstatus_get(&word); },
      [] { return pm_ubus_dev_restore_special(1, 2, 3, 4); },
      [] { return pm_ubus_led_control(1, 1, 0, 0); },
      [] { return pm_ubus_led_get(3, 0, 0, 0); },
      [&word] { return pm_ubus_ipv6enable_get(&word); },
      [] { return pm_ubus_ipv6enable_set(1); },
      [&logSettings] { return pm_ubus_set_devlogstats(&logSettings); },
      [&logSettings] { return pm_ubus_logstats_get(&logSettings); },
  };
  for (const auto &handler : handlers) EXPECT_GT(sweepFaults(handler), 0u);
}

}  // namespace
}  // namespace gateway
