#include "pmapi/limit.h"

#include <algorithm>
#include <cstring>

#include "gateway/command_line.hpp"
#include "gateway/habits.hpp"
#include "gateway/host.hpp"
#include "gateway/manager.hpp"
#include "gateway/time_policy.hpp"
#include "gateway/ubusfilter.hpp"
#include "platform/limits.hpp"
#include "tests/support/gateway_test.hpp"

using namespace platform;

namespace {

using ::testing::AllOf;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;
using ::testing::StartsWith;

using boundary::Fault;
using gateway::Bytes;
using gateway::FilterRule;
using gateway::layoutOf;
using gateway::Row;
using gateway::timePolicy;
using gateway::ubusfilter;

constexpr char kTag[] = "object_nexumd_limit_pmapi.c";
constexpr char kProfile[] = R"({"ubusfilter": {}})";
constexpr char kTablet[] = "A1B2C3D4E5F6";
constexpr char kTabletPairs[] = "a1:b2:c3:d4:e5:f6";
// Up to here the quoted keyword ends inside both commands, behind it the cut takes its quote away.
constexpr size_t kLongestQuoted = 169;
constexpr size_t kWordsToKeyword = 11;

struct Period {
  int32_t week = 0;
  uint32_t start = 0, end = 0;
};

UbusDeviceLimit limitOf(const std::string &mac, const std::string &tx, const std::string &rx,
                        const std::string &urls = "") {
  UbusDeviceLimit limit = {};
  std::strcpy(limit.deviceMac, mac.c_str());
  std::strcpy(limit.TxRate, tx.c_str());
  std::strcpy(limit.RxRate, rx.c_str());
  std::strcpy(limit.LimitUrl, urls.c_str());
  return limit;
}

UbusDeviceLimit timedLimit(const std::string &mac, const std::string &tx, const std::string &rx,
                           const Period &period) {
  UbusDeviceLimit limit = limitOf(mac, tx, rx);
  limit.LmtMode = 1;
  limit.LimitWeek = period.week;
  limit.LimitStartTime = period.start;
  limit.LimitEndTime = period.end;
  return limit;
}

/// Names of the fields that the policy in a message to its manager marks as written.
std::vector<std::string> writtenFields(std::vector<uint8_t> message) {
  const Row policy = gateway::fieldsOf<TimePolicyView>(message.data() + sizeof(uint32_t));
  std::vector<std::string> names;
  for (const platform::Field &field : records::layoutOf<TimePolicyView>().fields) {
    if (policy.mark(field) == 1) names.emplace_back(field.name);
  }
  return names;
}

void forgetLimits() {
  g_ubus_devlmt_list = {&g_ubus_devlmt_list, &g_ubus_devlmt_list};
  g_ubus_lmtUrl_list = {&g_ubus_lmtUrl_list, &g_ubus_lmtUrl_list};
  g_ubus_devlmt_inst = 0;
  g_ubus_RecentdwApp = 0;
}

std::vector<UbusDeviceLimit> listed() {
  std::vector<UbusDeviceLimit> records(20);
  int32_t count = -1;
  EXPECT_EQ(pm_ubus_nexumd_limit_get(records.data(), &count), 0);
  records.resize(static_cast<size_t>(count));
  return records;
}

std::vector<std::string> listedMacs() {
  std::vector<std::string> macs;
  for (const UbusDeviceLimit &limit : listed()) macs.emplace_back(limit.deviceMac);
  return macs;
}

std::vector<std::string> commands() {
  std::vector<std::string> lines;
  for (const gateway::StartedProgram &started : gateway::host().programs) {
    EXPECT_THAT(started.commandLine, StartsWith(started.program + " "));
    lines.push_back(started.commandLine);
  }
  return lines;
}

class LimitTest : public GatewayTest {
 protected:
  LimitTest() {
    beforeEachRun(forgetLimits);
    loadProfile(kProfile);
    forgetLimits();
  }

  static int32_t set(const UbusDeviceLimit &limit) { return device_limit_cfg_data(&limit); }
  static int32_t remove(const std::string &mac) { return set(limitOf(mac, "0", "0")); }

  /// "IDENTITY MAC tx rx" for each device that the proxy limits.
  std::vector<std::string> rates() {
    std::vector<std::string> lines;
    for (const std::string &path : store().paths(layoutOf<DeviceLimitView>())) {
      const Row row = store().row<DeviceLimitView>(path);
      lines.push_back(path + " " + gateway::printMac(row.mac(DeviceLimitView::mac)) + " " +
                      std::to_string(row.word(DeviceLimitView::txRate)) + " " +
                      std::to_string(row.word(DeviceLimitView::rxRate)));
    }
    return lines;
  }

  /// "instance week start-end" for each time policy.
  std::vector<std::string> policies() {
    std::vector<std::string> lines;
    for (const std::string &path : store().paths(layoutOf<TimePolicyView>())) {
      const Row row = store().row<TimePolicyView>(path);
      EXPECT_EQ(row.word(TimePolicyView::setting132), 0u);
      EXPECT_EQ(row.word(TimePolicyView::setting260), 1u);
      lines.push_back(std::to_string(row.word(TimePolicyView::instance)) + " " +
                      row.text(TimePolicyView::week) + " " +
                      std::to_string(row.word(TimePolicyView::startTime)) + "-" +
                      std::to_string(row.word(TimePolicyView::endTime)));
    }
    return lines;
  }
};

using PmUbusNexumdLimitSet = LimitTest;
using PmUbusNexumdLimitGet = LimitTest;
using DeviceLimitCfgData = LimitTest;
using SiUbusLmturlCommand = LimitTest;
using UrlKeyword = LimitTest;

TEST_F(DeviceLimitCfgData, RateIsSetKeptAndDeletedAtTheProxy) {
  EXPECT_EQ(set(limitOf("a1b2c3d4e5f6", "100", "2000x")), 0);
  EXPECT_THAT(rates(), ElementsAre("IGD.DevLimit1 a1:b2:c3:d4:e5:f6 102400 2048000"));
  EXPECT_EQ(logs()[0].tag, kTag);
  EXPECT_THAT(
      logs(),
      HasLogLine({5, "device_limit_cfg_data",
                  "mac=a1b2c3d4e5f6 RxRate=2000 TxRate=100 LmtMode=0 LimitWeek=0 LimitStartTime=0 "
                  "LimitEndTime=0 \n"}));
  EXPECT_THAT(logs(), HasLogLine({5, "device_limit_cfg_data", "LimitUrl= \n"}));
  EXPECT_THAT(logs(), HasLogLine({5, "device_limit_cfg_data", "bIsDel=0\n"}));

  EXPECT_EQ(set(limitOf(kTablet, "1", "0")), 0);
  EXPECT_THAT(rates(), ElementsAre("IGD.DevLimit1 a1:b2:c3:d4:e5:f6 1024 0"));
  EXPECT_THAT(logs(), HasLogLine({5, "device_limit_cfg_data",
                                  "[device_limit_cfg_data] set/del device limit: IGD.DevLimit1 "
                                  "!\n"}));
  EXPECT_EQ(remove(kTablet), 0);
  EXPECT_THAT(logs(), HasLogLine({5, "device_limit_cfg_data", "bIsDel=1\n"}));
  EXPECT_THAT(rates(), IsEmpty());
  EXPECT_THAT(listed(), IsEmpty());
  EXPECT_THAT(gateway::host().programs, IsEmpty());

  EXPECT_EQ(set(limitOf(kTablet, "4194304", "-1")), 0);
  EXPECT_THAT(rates(), ElementsAre("IGD.DevLimit1 a1:b2:c3:d4:e5:f6 0 4294966272"))
      << "the platform's rate has 32 bits";
}

TEST_F(DeviceLimitCfgData, UnknownDeviceIsStillDeletedAtTheProxy) {
  EXPECT_EQ(remove(kTablet), 0) << "the proxy refuses in its reply only";
  EXPECT_THAT(logs(), HasLogLine({4, "si_ubus_deal_devlmt_list",
                                  "[si_ubus_deal_devlmt_list] data is not record \n"}));
  EXPECT_THAT(trace("ctSgw_ssend_to_proxy"),
              ElementsAre("ctSgw_ssend_to_proxy(CTSGW_EVENT_DEL_BW) = 0"));
  EXPECT_THAT(logs(), HasLogLine({4, "device_limit_cfg_data",
                                  "ctSgw_ssend_to_proxy CTSGW_EVENT_DEL_BW error",
                                  boundary::kUnknownInstance}));
}

TEST_F(DeviceLimitCfgData, ValidPeriodCarriesTheLimitInsteadOfTheProxy) {
  EXPECT_EQ(set(timedLimit(kTablet, "10", "20", {65, 3600, 7200})), 0);
  EXPECT_THAT(policies(), ElementsAre("1792 65 3600-7200"));
  EXPECT_THAT(trace("ctSgw_ssend_to_proxy"), IsEmpty());
  EXPECT_EQ(g_ubus_RecentdwApp, 1792u);
  ASSERT_THAT(timePolicy().registrations, SizeIs(1));
  EXPECT_EQ(timePolicy().registrations[0].instance, 1792u);
  EXPECT_EQ(timePolicy().registrations[0].limitMode, 1u);
  EXPECT_EQ(timePolicy().registrations[0].signal, "nexumd_signal");
  EXPECT_EQ(timePolicy().registrations[0].signalNumber, 44695u);
  ASSERT_THAT(timePolicy().notices, SizeIs(1));
  EXPECT_EQ(timePolicy().notices[0].week, "65");
  EXPECT_EQ(timePolicy().notices[0].endTime, 7200u);
  EXPECT_THAT(logs(), HasLogLine({5, "device_limit_cfg_data",
                                  "[device_limit_cfg_data] have set time policy return\n"}));

  EXPECT_EQ(set(timedLimit(kTablet, "10", "20", {127, 0, 86400})), 0);
  const Bytes changed = gateway::receivedMessages().back().data;
  EXPECT_EQ(set(timedLimit("B1B2C3D4E5F6", "10", "20", {1, 5, 5})), 0);
  EXPECT_THAT(policies(), ElementsAre("1792 127 0-86400", "1793 1 5-5"));
  EXPECT_EQ(g_ubus_RecentdwApp, 1793u);
  // The key and the settings of a policy are written once; the message carries the record as it
  // was.
  const Bytes created = gateway::receivedMessages().back().data;
  using View = TimePolicyView;
  EXPECT_THAT(writtenFields(created),
              ElementsAre(View::instance.name, View::setting132.name, View::setting260.name,
                          View::week.name, View::startTime.name, View::endTime.name));
  EXPECT_THAT(writtenFields(changed),
              ElementsAre(View::week.name, View::startTime.name, View::endTime.name));

  forgetCalls();
  EXPECT_EQ(set(timedLimit(kTablet, "0", "0", {127, 0, 86400})), 0);
  EXPECT_THAT(policies(), ElementsAre("1793 1 5-5"));
  EXPECT_THAT(trace("ASEND"), ElementsAre("ASEND(0x8101 time_policy) = 0"));
  EXPECT_THAT(logs(),
              HasLogLine({5, "device_limit_cfg_data",
                          "[device_limit_cfg_data] deal timepolicy wrong or del time policy\n"}));
}

TEST_F(DeviceLimitCfgData, PolicyThatWasReadIsWrittenWithAFreshHeader) {
  const gateway::Habit spoilsHeaders(&gateway::Habits::spoilsHeaders);
  EXPECT_EQ(set(timedLimit(kTablet, "10", "20", {65, 3600, 7200})), 0);
  EXPECT_EQ(set(timedLimit(kTablet, "10", "20", {66, 3600, 7200})), 0);
  EXPECT_THAT(policies(), ElementsAre("1792 66 3600-7200"));
}

TEST_F(DeviceLimitCfgData, PolicyManagerThatTakesNothingChangesNothing) {
  fail("ASEND", "", -5, 1, 2);
  EXPECT_EQ(set(timedLimit(kTablet, "10", "20", {65, 3600, 7200})), 0);
  EXPECT_THAT(policies(), SizeIs(1));
  EXPECT_EQ(g_ubus_RecentdwApp, 1792u);
  EXPECT_THAT(trace("ctSgw_ssend_to_proxy"), IsEmpty());
}

TEST_F(DeviceLimitCfgData, FirstOfManyMatchesCounts) {
  for (int i = 1; i <= 17; ++i) {
    const Row row = store().create<TimePolicyView>("IGD.P" + std::to_string(i));
    row.setWord(TimePolicyView::instance, 1792);
    row.setWord(TimePolicyView::setting260, 1);
  }
  EXPECT_EQ(set(timedLimit(kTablet, "1", "1", {1, 2, 3})), 0);
  EXPECT_THAT(policies(), SizeIs(17)) << "none was added";
  EXPECT_EQ(policies()[0], "1792 1 2-3");
  EXPECT_EQ(policies()[1], "1792  0-0");

  set(limitOf(kTablet, "1", "1"));
  uint8_t known[6] = {0xa1, 0xb2, 0xc3, 0xd4, 0xe5, 0xf6};
  char identity[32] = "";
  for (const auto &[counted, found] : {std::pair(17, 1), {-1, 0}, {0, 0}}) {
    fail(Fault{.call = "vcorDbQryView", .match = "DEV_LIMIT", .times = 1, .count = counted});
    EXPECT_EQ(is_mac_exist(known, identity), found) << counted;
  }
}

TEST_F(DeviceLimitCfgData, PeriodOutOfItsRangeLeavesThePlainRate) {
  const struct {
    Period period;
    const char *message;
  } cases[] = {
      {{128, 0, 1}, "Cycle week out of range"},
      {{-1, 0, 1}, "Cycle week out of range"},
      {{1270000000, 0, 1}, "Cycle week out of range"},
      {{127, 0, 86401}, "Cycle time out of range"},
      {{127, UINT32_MAX, 1}, "Cycle time out of range"},
      {{127, 3601, 3600}, "Cycle start time is larger then end time"},
  };
  for (const auto &one : cases) {
    SCOPED_TRACE(std::to_string(one.period.week) + " " + std::to_string(one.period.start));
    forgetCalls();
    EXPECT_EQ(set(timedLimit(kTablet, "1", "1", one.period)), 0);
    EXPECT_THAT(logs(),
                HasLogLine({4, "si_ubus_check_timepolicy_data",
                            std::string("[si_ubus_check_timepolicy_data] ") + one.message + "\n"}));
    EXPECT_THAT(
        logs(),
        HasLogLine({4, "device_limit_cfg_data",
                    "[device_limit_cfg_data] Cycle time is wrong , not set time policy\n"}));
    EXPECT_THAT(rates(), SizeIs(1));
    EXPECT_THAT(policies(), IsEmpty());
  }
}

TEST_F(DeviceLimitCfgData, FailedPolicyStepFallsBackToTheProxy) {
  const std::string wrong = "[device_limit_cfg_data] deal timepolicy wrong or del time policy\n";
  const struct {
    const char *call, *match, *message;
    bool isKnown, isDel;
  } cases[] = {
      {"vcorDbQryView", "DBVIEW_TIME_POLICY", "[si_deal_timepolicy_data] vcorDbQryView error",
       false, false},
      {"vcorDbAddView", "", "[si_ubus_deal_timepolicy_data]  vcorDbSetView error\n", false, false},
      {"vcorDbSetView", "", "[si_ubus_deal_timepolicy_data] vcorDbSetView error\n", false, false},
      {"vcorDbGetView", "", "[si_ubus_deal_timepolicy_data] vcorDbGetView error\n", true, false},
      {"vcorDbDelView", "", "[si_ubus_deal_timepolicy_data] vcorDbDelView error\n", true, true},
  };
  const UbusDeviceLimit limit = timedLimit(kTablet, "1", "1", {1, 2, 3});
  for (const auto &one : cases) {
    SCOPED_TRACE(one.message);
    restart();
    forgetLimits();
    if (one.isKnown) set(limit);
    forgetCalls();
    fail(one.call, one.match, -7);
    EXPECT_EQ(one.isDel ? set(timedLimit(kTablet, "0", "0", {1, 2, 3})) : set(limit), 0);
    EXPECT_THAT(logs(), HasLogLine({4, "si_ubus_deal_timepolicy_data", one.message, -7}));
    EXPECT_THAT(logs(), HasLogLine({5, "device_limit_cfg_data", wrong}));
    EXPECT_THAT(trace("ctSgw_ssend_to_proxy"), SizeIs(1));
  }
  EXPECT_EQ(set(limitOf(kTablet, "1", "1")), 0);
  store().remove(layoutOf<TimePolicyView>(), "IGD.TimePolicy1");
  set(timedLimit(kTablet, "0", "0", {1, 2, 3}));
  EXPECT_THAT(logs(), HasLogLine({4, "si_ubus_deal_timepolicy_data",
                                  "[si_ubus_deal_timepolicy_data] have not time policy\n"}));
}

TEST_F(DeviceLimitCfgData, RefusesWhatIsNoMac) {
  for (const char *mac : {"", "A1B2C3D4E5F", "A1B2C3D4E5FG", "a1:b2:c3:d4:e5:f6", " A1B2C3D4E5F"}) {
    SCOPED_TRACE(mac);
    forgetCalls();
    EXPECT_EQ(set(limitOf(mac, "1", "1", "a.com")), -1);
    EXPECT_THAT(logs(), HasLogLine({4, "device_limit_cfg_data",
                                    "[device_limit_cfg_data] StrToMAC Error !\n"}));
    EXPECT_THAT(trace(), IsEmpty());
  }
  EXPECT_EQ(device_limit_cfg_data(nullptr), -1);
  EXPECT_THAT(logs(), HasLog(4, "[device_limit_cfg_data] input para is NULL\n"));
  EXPECT_EQ(set(limitOf("A1B2C3D4E5F6 and more", "1", "1")), 0) << "twelve characters are read";
}

TEST_F(DeviceLimitCfgData, TextsThatFillTheirFieldsStayInside) {
  UbusDeviceLimit limit;
  std::memset(&limit, '1', sizeof limit);
  EXPECT_EQ(set(limit), 0);
  EXPECT_THAT(rates(), ElementsAre(HasSubstr("11:11:11:11:11:11 ")));
  EXPECT_STREQ(listed()[0].LimitUrl, std::string(1599, '1').c_str());
}

TEST_F(DeviceLimitCfgData, WithoutMemoryTheProxyStillGetsTheRate) {
  fail("GetUB");
  EXPECT_EQ(set(limitOf(kTablet, "1", "1", "a.com")), 0);
  EXPECT_THAT(rates(), SizeIs(1));
  EXPECT_THAT(logs(), HasLogLine({0, "si_ubus_deal_limiturl_data",
                                  "[si_ubus_deal_limiturl_data] GetUB error", 1544}));
  EXPECT_THAT(logs(), HasLogLine({4, "device_limit_cfg_data",
                                  "[device_limit_cfg_data] set URL config failed \n"}));
  EXPECT_THAT(logs(), HasLogLine({0, "si_ubus_deal_devlmt_list",
                                  "[si_ubus_deal_devlmt_list] GetUB error", 1544}));
  EXPECT_THAT(commands(), IsEmpty());
  EXPECT_THAT(listed(), IsEmpty());
  EXPECT_EQ(g_ubus_devlmt_inst, 0u);

  restart();
  fail("GetUB", "", 0, 1, 1);
  EXPECT_EQ(set(limitOf(kTablet, "0", "1", "a.com")), 0) << "a limit of one direction";
  ASSERT_THAT(listed(), SizeIs(1));
  EXPECT_STREQ(listed()[0].LimitUrl, "");

  restart();
  forgetLimits();
  fail("GetUB", "", 0, 2, 1);
  EXPECT_EQ(set(timedLimit(kTablet, "1", "1", {1, 2, 3})), 0);
  EXPECT_THAT(policies(), IsEmpty()) << "a policy needs the node's number";
  EXPECT_THAT(rates(), SizeIs(1));
  EXPECT_NE(g_ubus_lmtUrl_list.next, &g_ubus_lmtUrl_list);
}

TEST_F(DeviceLimitCfgData, ProxyFailureIsReturnedAndUndoesNothing) {
  fail("ctSgw_ssend_to_proxy", "CTSGW_EVENT_SET_BW", -31, 1, 1);
  EXPECT_EQ(set(limitOf(kTablet, "1", "1", "a.com")), -31);
  EXPECT_THAT(logs(), HasLogLine({4, "device_limit_cfg_data",
                                  "ctSgw_ssend_to_proxy CTSGW_EVENT_SET_BW error", -31}));
  EXPECT_THAT(ubusfilter().ipv6, SizeIs(1));
  EXPECT_THAT(listedMacs(), ElementsAre(kTablet));

  fail(Fault{.call = "ctSgw_ssend_to_proxy", .match = "SET_BW", .times = 1, .replyStatus = 5});
  EXPECT_EQ(set(limitOf(kTablet, "1", "1")), 0);
  EXPECT_THAT(logs(), HasLogLine({4, "device_limit_cfg_data",
                                  "ctSgw_ssend_to_proxy CTSGW_EVENT_SET_BW error", 5}));
  fail("ctSgw_ssend_to_proxy", "CTSGW_EVENT_DEL_BW", -32);
  EXPECT_EQ(remove(kTablet), -32);
  EXPECT_THAT(logs(), HasLogLine({4, "device_limit_cfg_data",
                                  "ctSgw_ssend_to_proxy CTSGW_EVENT_DEL_BW error", -32}));
  EXPECT_THAT(listedMacs(), IsEmpty());
}

TEST_F(PmUbusNexumdLimitSet, GoesOnAfterAFailedDevice) {
  const UbusDeviceLimit limits[] = {limitOf("nonsense", "1", "1"), limitOf(kTablet, "1", "1")};
  EXPECT_EQ(pm_ubus_nexumd_limit_set(limits, 2), 0);
  EXPECT_THAT(logs(),
              HasLogLine({5, "pm_ubus_nexumd_limit_set", "now in pm_ubus_nexumd_limit_set\n"}));
  EXPECT_THAT(logs(), HasLogLine({4, "pm_ubus_nexumd_limit_set",
                                  "[pm_ubus_nexumd_limit_set] set device limit data error\n", -1}));
  EXPECT_THAT(listedMacs(), ElementsAre(kTablet));
}

TEST_F(PmUbusNexumdLimitSet, NothingIsDoneWithoutRecords) {
  const UbusDeviceLimit limit = limitOf(kTablet, "1", "1");
  int32_t count = 5;
  EXPECT_EQ(pm_ubus_nexumd_limit_set(nullptr, 1), 0);
  EXPECT_EQ(pm_ubus_nexumd_limit_set(&limit, -1), 0);
  EXPECT_EQ(pm_ubus_nexumd_limit_get(nullptr, &count), 0);
  EXPECT_EQ(count, 5);
  UbusDeviceLimit answer;
  EXPECT_EQ(pm_ubus_nexumd_limit_get(&answer, nullptr), 0);
  EXPECT_THAT(trace(), IsEmpty());
}

TEST_F(PmUbusNexumdLimitGet, DescribesTheDeviceWithTheUrlsOfItsMaker) {
  UbusDeviceLimit limit = timedLimit(kTablet, "-5", "7", {127, 60, 120});
  std::strcpy(limit.LimitUrl, "a.com,b.com");
  set(limit);
  set(limitOf("A1B2FFFFFFFF", "1", "1", "c.com"));
  set(limitOf("A1B3FFFFFFFF", "1", "1"));
  const std::vector<UbusDeviceLimit> limits = listed();
  ASSERT_THAT(limits, SizeIs(3));
  EXPECT_STREQ(limits[0].deviceMac, kTablet);
  EXPECT_STREQ(limits[0].TxRate, "-5");
  EXPECT_STREQ(limits[0].RxRate, "7");
  EXPECT_EQ(limits[0].LmtMode, 1);
  EXPECT_EQ(limits[0].LimitWeek, 127);
  EXPECT_EQ(limits[0].LimitStartTime, 60u);
  EXPECT_EQ(limits[0].LimitEndTime, 120u);
  EXPECT_STREQ(limits[0].LimitUrl, "a.com,b.com");
  EXPECT_STREQ(limits[1].LimitUrl, "a.com,b.com") << "two octets alike: the first list is shown";
  EXPECT_STREQ(limits[2].LimitUrl, "");
}

TEST_F(PmUbusNexumdLimitGet, UpdateCutsTheListBehindItsNode) {
  for (const char *mac : {"A10000000001", "B10000000001", "C10000000001"})
    set(limitOf(mac, "1", "1"));
  set(limitOf("B10000000001", "2", "2"));
  EXPECT_THAT(listedMacs(), ElementsAre("A10000000001", "B10000000001"));
  EXPECT_EQ(g_ubus_devlmt_inst, 3u) << "an update keeps its number";

  set(limitOf("C10000000001", "3", "3"));
  EXPECT_EQ(g_ubus_devlmt_inst, 4u) << "the device behind the cut gets a second node";
  EXPECT_THAT(listedMacs(), ElementsAre("A10000000001", "B10000000001"));

  remove("B10000000001");
  EXPECT_THAT(listedMacs(), ElementsAre("A10000000001"));
  set(limitOf("D10000000001", "1", "1"));
  EXPECT_THAT(listedMacs(), ElementsAre("A10000000001", "D10000000001"))
      << "the node before the deleted one became the tail";

  set(limitOf("D10000000001", "2", "2"));
  set(limitOf("E10000000001", "1", "1"));
  EXPECT_THAT(listedMacs(), ElementsAre("A10000000001", "D10000000001", "E10000000001"))
      << "an appended node is linked behind an updated tail again";
}

TEST_F(PmUbusNexumdLimitGet, DeletionTakesNodesOutWhereverTheyStand) {
  for (const char *last : {"A1", "B1", "C1"}) {
    forgetLimits();
    std::vector<std::string> left;
    for (const char *first : {"A1", "B1", "C1"}) {
      const std::string mac = std::string(first) + "0000000001";
      set(limitOf(mac, "1", "1"));
      if (std::strcmp(first, last) != 0) left.push_back(mac);
    }
    remove(std::string(last) + "0000000001");
    EXPECT_EQ(listedMacs(), left);
    set(limitOf("D10000000001", "1", "1"));
    left.emplace_back("D10000000001");
    EXPECT_EQ(listedMacs(), left);
  }
  forgetLimits();
  set(limitOf(kTablet, "1", "1"));
  set(limitOf(kTablet, "2", "2"));
  remove(kTablet);
  EXPECT_EQ(g_ubus_devlmt_list.next, &g_ubus_devlmt_list);
  EXPECT_EQ(g_ubus_devlmt_list.prev, &g_ubus_devlmt_list);
}

TEST_F(PmUbusNexumdLimitGet, MacsAreComparedUpToTheirFirstZero) {
  set(limitOf("00B2C3D4E5F6", "1", "1"));
  set(limitOf("00B2C3D4E5F6", "2", "2"));
  EXPECT_EQ(g_ubus_devlmt_inst, 2u) << "a MAC that begins with 00 is never found again";
  EXPECT_THAT(listed(), IsEmpty());

  set(limitOf("A100C3D4E5F6", "1", "1"));
  set(limitOf("A100000000FF", "2", "2"));
  EXPECT_EQ(g_ubus_devlmt_inst, 3u);
  EXPECT_THAT(listedMacs(), ElementsAre("A100000000FF"));
}

TEST_F(UrlKeyword, RulesFollowTheListOfTheDevice) {
  set(limitOf(kTablet, "1", "1", "a.com,,b.com,"));
  const std::string rule = std::string(" -m mac --mac-source ") + kTabletPairs;
  const auto command = [&](const std::string &program, const std::string &operation,
                           const std::string &keyword) {
    return program + " " + operation + " ubusfilter" + rule + " -m urlfilter --urlkey \"" +
           keyword + "\" -j DROP ";
  };
  const auto both = [&](const std::string &operation, const std::string &keyword) {
    return std::vector{command("iptables", operation, keyword),
                       command("ip6tables", operation, keyword)};
  };
  std::vector<std::string> expected = both("-A", "a.com");
  std::ranges::copy(both("-A", "b.com"), std::back_inserter(expected));
  EXPECT_EQ(commands(), expected);
  EXPECT_THAT(logs(), HasLogLine({5, "si_ubus_deal_limiturl_data",
                                  "the url that list saved is a.com,,b.com,\n"}));
  EXPECT_THAT(logs(), HasLogLine({5, "si_ubus_lmturl_command",
                                  "Execute Cmd:" + expected[0] + " iRet:0\n"}));
  EXPECT_THAT(logs(), Not(HasLog(5, HasSubstr("Cmd:ip6tables"))));

  gateway::host().programs.clear();
  set(limitOf(kTablet, "1", "1", "b.com,c.com"));
  expected.clear();
  for (const auto &[operation, keyword] :
       {std::pair("-D", "a.com"), {"-D", "b.com"}, {"-A", "b.com"}, {"-A", "c.com"}}) {
    std::ranges::copy(both(operation, keyword), std::back_inserter(expected));
  }
  EXPECT_EQ(commands(), expected);
  EXPECT_THAT(logs(), HasLogLine({5, "si_ubus_deal_limiturl_data",
                                  "the url ptLmtUrlCfgtmp->LimitURL is a.com,,b.com,\n"}));
  EXPECT_THAT(logs(), HasLogLine({5, "si_ubus_deal_limiturl_data",
                                  "the url ptLmtUrlCfg->LimitURL is b.com,c.com\n"}));
  const std::vector<FilterRule> left = {{kTabletPairs, "b.com", "DROP"},
                                        {kTabletPairs, "c.com", "DROP"}};
  EXPECT_EQ(ubusfilter().ipv4, left);
  EXPECT_EQ(ubusfilter().ipv6, left);

  set(limitOf(kTablet, "0", "0"));
  EXPECT_THAT(ubusfilter().ipv4, IsEmpty());
  EXPECT_THAT(ubusfilter().ipv6, IsEmpty());
}

TEST_F(UrlKeyword, WhatIsUnsafeOnACommandLineIsPassedOver) {
  const std::string keywords[] = {
      "a\"b",  "\"",   "\" -j ACCEPT \"", "\"; reboot; \"", "a\\",
      "a\\\\", "a$b",  "$(reboot)",       "${IFS}",         "`reboot`",
      "a\nb",  "a\tb", "a\x01",           "a\x7f",          "a\r",
  };
  for (const std::string &keyword : keywords) {
    SCOPED_TRACE(keyword);
    forgetCalls();
    gateway::host().programs.clear();
    forgetLimits();
    EXPECT_EQ(set(limitOf(kTablet, "1", "1", keyword + ",safe.com")), 0);
    EXPECT_THAT(commands(), AllOf(SizeIs(2), Each(HasSubstr("\"safe.com\""))));
    EXPECT_THAT(logs(),
                HasLogLine({4, "si_ubus_lmturl_command",
                            "[si_ubus_lmturl_command] url keyword " + keyword + " is refused\n"}));
  }
}

TEST_F(UrlKeyword, StaysOneArgumentOfOneCommand) {
  const std::string keywords[] = {
      "-j",
      "--urlkey",
      "-j ACCEPT",
      " ",
      "a b",
      "; reboot",
      "&& reboot",
      "| sh",
      "> /tmp/x",
      "'",
      "' '",
      "#",
      "!",
      "*?[a]",
      "{a}",
      "~root",
      "(a)",
      "%s%n",
      "\xe4\xb8\xad\xe6\x96\x87",
      "-A INPUT -j ACCEPT",
      std::string(kLongestQuoted - 1, 'a') + ' ',
  };
  for (const std::string &keyword : keywords) {
    SCOPED_TRACE(keyword);
    gateway::host().programs.clear();
    forgetLimits();
    set(limitOf(kTablet, "1", "1", keyword));
    const std::vector<std::string> lines = commands();
    ASSERT_THAT(lines, SizeIs(2));
    for (const std::string &line : lines) {
      const auto words = gateway::splitCommandLine(line);
      ASSERT_TRUE(words.has_value());
      EXPECT_EQ(words->at(kWordsToKeyword - 1), keyword);
      EXPECT_EQ(words->at(1), "-A");
    }
    EXPECT_EQ(ubusfilter().ipv4.back().urlKey, keyword);
  }
}

TEST_F(UrlKeyword, CutCommandLosesItsEndAndGainsNothing) {
  const struct {
    size_t length;
    bool addsIpv4, addsIpv6;
    const char *target;
  } cases[] = {
      {kLongestQuoted - 8, true, true, "DROP"},  // the last blank is lost
      {kLongestQuoted - 7, true, false, "DROP"},
      {kLongestQuoted - 6, false, false, ""},  // "-j DRO" is no target
      {kLongestQuoted - 2, false, false, ""},
      {kLongestQuoted, true, true, ""},       // a rule that only counts
      {kLongestQuoted + 1, true, false, ""},  // ip6tables loses the closing quote
      {1599, false, false, ""},
  };
  for (const auto &one : cases) {
    SCOPED_TRACE(one.length);
    restart();
    forgetLimits();
    const std::string keyword(one.length, 'k');
    EXPECT_EQ(set(limitOf(kTablet, "1", "1", keyword)), 0);
    const std::string whole = std::string("ip6tables -A ubusfilter -m mac --mac-source ") +
                              kTabletPairs + " -m urlfilter --urlkey \"" + keyword + "\" -j DROP ";
    ASSERT_THAT(commands(), SizeIs(2));
    EXPECT_EQ(commands()[1], whole.substr(0, 255));
    using Rules = std::vector<FilterRule>;
    const FilterRule rule{kTabletPairs, keyword, one.target};
    EXPECT_EQ(ubusfilter().ipv4, one.addsIpv4 ? Rules{rule} : Rules{});
    EXPECT_EQ(ubusfilter().ipv6, one.addsIpv6 ? Rules{rule} : Rules{});
  }
  restart();
  forgetLimits();
  const std::string tail(200, 'k');
  const std::string keywords = "x -j ACCEPT " + tail + ",;reboot;" + tail + ",'x" + tail;
  EXPECT_EQ(set(limitOf(kTablet, "1", "1", keywords)), 0);
  EXPECT_THAT(commands(), AllOf(SizeIs(6), Each(SizeIs(255))));
  EXPECT_THAT(ubusfilter().ipv4, IsEmpty()) << "a quote that is not closed makes no rule";
  EXPECT_THAT(ubusfilter().ipv6, IsEmpty());
}

TEST_F(SiUbusLmturlCommand, ConsumesTheTextForTheOperationsItKnows) {
  LmtUrlCfg config = {};
  std::strcpy(config.mac, kTabletPairs);
  std::strcpy(config.LimitURL, "a.com,b.com");
  for (const char *unknown : {"", "-X", "-AA", "A"}) si_ubus_lmturl_command(&config, unknown);
  EXPECT_THAT(trace(), IsEmpty());
  EXPECT_STREQ(config.LimitURL, "a.com,b.com");

  si_ubus_lmturl_command(&config, "-A");
  EXPECT_STREQ(config.LimitURL, "a.com");
  std::strcpy(config.LimitURL, "first.com");
  si_ubus_lmturl_command(&config, "-I");
  std::strcpy(config.LimitURL, "a.com");
  si_ubus_lmturl_command(&config, "-D");
  const std::vector<FilterRule> left = {{kTabletPairs, "first.com", "DROP"},
                                        {kTabletPairs, "b.com", "DROP"}};
  EXPECT_EQ(ubusfilter().ipv4, left);

  forgetCalls();
  si_ubus_lmturl_command(nullptr, "-X");
  EXPECT_THAT(logs(), IsEmpty());
  si_ubus_lmturl_command(nullptr, "-A");
  EXPECT_THAT(logs(), HasLogLine({4, "si_ubus_lmturl_command", "tDevLmtCfg is NULL \n"}));
}

TEST_F(LimitTest, MacThatIsMoreThanOneWordRunsNothing) {
  LmtUrlCfg config = {};
  for (const char *mac : {"1;touch pwned;#", "a b", "a\n", "$(reboot)", "`reboot`", "a|b", "\"",
                          "\\", "*", "\xc3\xa9"}) {
    forgetCalls();
    std::strcpy(config.mac, mac);
    std::strcpy(config.LimitURL, "a.com");
    si_ubus_lmturl_command(&config, "-A");
    EXPECT_THAT(commands(), IsEmpty()) << mac;
    const std::string line = "[si_ubus_lmturl_command] mac " + std::string(mac) + " is refused\n";
    EXPECT_THAT(logs(), HasLogLine({4, "si_ubus_lmturl_command", line}));
  }
  std::strcpy(config.mac, "aZ09:-._");
  std::strcpy(config.LimitURL, "a.com");
  si_ubus_lmturl_command(&config, "-A");
  EXPECT_THAT(commands(), Each(HasSubstr("--mac-source aZ09:-._ ")));
  EXPECT_THAT(commands(), SizeIs(2));
}

TEST_F(LimitTest, FailedProgramIsOnlyLogged) {
  fail("PcStartProgram", "iptables", 9);
  EXPECT_EQ(set(limitOf(kTablet, "1", "1", "a.com,b.com")), 0);
  EXPECT_THAT(logs(), HasLog(5, HasSubstr("\"b.com\" -j DROP  iRet:9\n")));
  EXPECT_THAT(rates(), SizeIs(1));
}

TEST_F(LimitTest, DeviceIsFoundAmongThosePlatformLimits) {
  set(limitOf(kTablet, "1", "1"));
  const uint8_t known[6] = {0xa1, 0xb2, 0xc3, 0xd4, 0xe5, 0xf6};
  const uint8_t unknown[6] = {0xa1, 0xb2, 0xc3, 0xd4, 0xe5, 0xf7};
  char identity[32] = "";
  EXPECT_EQ(is_mac_exist(unknown, identity), 0);
  EXPECT_STREQ(identity, "");
  EXPECT_EQ(is_mac_exist(known, identity), 1);
  EXPECT_STREQ(identity, "IGD.DevLimit1");
  fail("vcorDbQryView");
  EXPECT_EQ(is_mac_exist(known, identity), 0);
}

TEST_F(LimitTest, SurvivesEveryFault) {
  const auto day = [] {
    UbusDeviceLimit evening = timedLimit(kTablet, "1", "1", {127, 1, 2});
    std::strcpy(evening.LimitUrl, "a.com,b.com");
    const UbusDeviceLimit limits[] = {limitOf("B10000000001", "5", "5", "a.com"), evening, evening,
                                      timedLimit(kTablet, "0", "0", {127, 1, 2}),
                                      limitOf("B10000000001", "0", "0")};
    EXPECT_THAT(listed(), IsEmpty());
    return pm_ubus_nexumd_limit_set(limits, 5);
  };
  sweepFaults(day, [&](const gateway::testing::SweepRun &run) {
    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(listedMacs(), SizeIs(::testing::Le(1)));
  });
}

}  // namespace
