#include "pmapi/qos.h"

#include <cstring>
#include <string>
#include <vector>

#include "platform/traffic_rules.hpp"
#include "tests/support/gateway_test.hpp"

using namespace platform;

namespace gateway {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;

class QosTest : public GatewayTest {
 protected:
  static constexpr size_t kRules = 30;

  QosTest() : memory_(sizeof(UbusQos) / 4 + kRules * sizeof(UbusQosRule) / 4) {}

  /// The record with room for 30 rules, as the daemon allocates it.
  UbusQos *record() { return reinterpret_cast<UbusQos *>(memory_.data()); }

  UbusQosRule &ask(uint32_t index, const char *label) {
    record()->count = index + 1;
    UbusQosRule &rule = record()->rules[index];
    rule.param1 = 1;
    rule.param2 = -2;
    rule.param3 = 3;
    rule.param4 = 4;
    rule.param5 = 5;
    std::strcpy(rule.ip1, "192.168.1.10");
    std::strcpy(rule.port1, "8080");
    std::strcpy(rule.ip2, "203.0.113.9");
    std::strcpy(rule.port2, "443");
    std::memcpy(rule.label, label, strnlen(label, sizeof rule.label));
    std::strcpy(rule.mac1, "00:11:22:33:44:55");
    std::strcpy(rule.mac2, "66778899aabb");
    return rule;
  }

  Row stored(size_t index) {
    const auto paths = store().paths(layoutOf<QosClassificationView>());
    return store().row<QosClassificationView>(paths.at(index));
  }

  void clearRecord() { std::fill(memory_.begin(), memory_.end(), 0); }

 private:
  std::vector<uint32_t> memory_;
};

TEST_F(QosTest, ParametersReadBackFromOtherPlacesThanTheyWereWrittenTo) {
  ask(0, "games");
  record()->qosCommon = 0x1FF;
  EXPECT_EQ(pm_ubus_nexumd_qos_set(record()), 0);
  const Row row = stored(0);
  EXPECT_EQ(row.word(QosClassificationView::param5), 5u);
  EXPECT_EQ(row.word(QosClassificationView::writtenParam4), 4u);
  EXPECT_EQ(row.word(QosClassificationView::reportedParam2), 0u);
  EXPECT_EQ(printIpv4(row.word(QosClassificationView::ip1)), "192.168.1.10");
  EXPECT_EQ(row.word(QosClassificationView::port2), 443u);
  EXPECT_EQ(printMac(row.mac(QosClassificationView::mac2)), "66:77:88:99:aa:bb");
  row.setWord(QosClassificationView::reportedParam2, 22);
  clearRecord();
  EXPECT_EQ(pm_ubus_nexumd_qos_get(record()), 0);
  EXPECT_EQ(record()->qosCommon, 0xFFu);
  EXPECT_EQ(record()->count, 1u);
  const UbusQosRule &rule = record()->rules[0];
  EXPECT_EQ(rule.param1, 1);
  EXPECT_EQ(rule.param2, 22);
  EXPECT_EQ(rule.param3, 3);
  EXPECT_EQ(rule.param4, -2);
  EXPECT_EQ(rule.param5, 0);
  EXPECT_STREQ(rule.ip1, "192.168.1.10");
  EXPECT_STREQ(rule.port1, "8080");
  EXPECT_STREQ(rule.ip2, "203.0.113.9");
  EXPECT_STREQ(rule.port2, "443");
  EXPECT_STREQ(rule.label, "games");
  EXPECT_STRCASEEQ(rule.mac1, "00:11:22:33:44:55");
  EXPECT_STRCASEEQ(rule.mac2, "66:77:88:99:aa:bb");
  for (const char *line : {"now in pm_ubus_nexumd_qos_set\n", " paraseOK before pm_ubus_nexumd ",
                           "now in pm_ubus_nexumd_qos_get\n", " pm_ubus_nexumd_qos_get success",
                           "vcorDbQryView DBVIEW_QOS_CLASSIFICATION tList.dwCount is 1 \n"}) {
    EXPECT_THAT(logs(), HasLog(5, line));
  }
}

TEST_F(QosTest, LabelsHoldThirtyTwoCharactersAndALongerOneSpoilsTheRulesBehindIt) {
  const std::string full(32, 'x');
  std::memset(ask(0, full.c_str()).mac1, 0, sizeof(UbusQosRule::mac1));
  ask(1, full.c_str());  // runs on into the first MAC
  ask(2, "short");
  EXPECT_EQ(pm_ubus_nexumd_qos_set(record()), 0);
  ASSERT_THAT(store().paths(layoutOf<QosClassificationView>()), SizeIs(1))
      << "what the second left invalid stays invalid for the third";
  EXPECT_EQ(stored(0).text(QosClassificationView::label), full);
  EXPECT_THAT(trace("pm_qos_qc_set_config"), SizeIs(3));
  clearRecord();
  // What the platform fills to the last byte ends with the record's field.
  std::memset(stored(0).data() + QosClassificationView::label.offset, 'y', 36);
  EXPECT_EQ(pm_ubus_nexumd_qos_get(record()), 0);
  EXPECT_EQ(std::string(record()->rules[0].label, 32), std::string(32, 'y'));
  EXPECT_STRCASEEQ(record()->rules[0].mac1, "00:00:00:00:00:00") << "nothing runs into it";
}

TEST_F(QosTest, TextsThatAreNoAddressesLeaveWhatTheRuleBeforeHad) {
  const auto askOddly = [this](uint32_t index) {
    UbusQosRule &rule = ask(index, "odd");
    for (char *text : {rule.ip1, rule.ip2}) std::strcpy(text, "not an address");
    for (char *text : {rule.port1, rule.port2}) std::strcpy(text, "http");
    for (char *text : {rule.mac1, rule.mac2}) std::strcpy(text, "xx");
  };
  askOddly(0);
  ask(1, "even");
  askOddly(2);
  EXPECT_EQ(pm_ubus_nexumd_qos_set(record()), 0);
  for (const auto &field : {QosClassificationView::ip1, QosClassificationView::ip2}) {
    EXPECT_EQ(stored(0).word(field), 0u);
    EXPECT_NE(stored(1).word(field), 0u);
    EXPECT_EQ(stored(2).word(field), stored(1).word(field));
  }
  for (const auto &field : {QosClassificationView::mac1, QosClassificationView::mac2}) {
    EXPECT_EQ(stored(0).mac(field), MacAddress{});
    EXPECT_NE(stored(1).mac(field), MacAddress{});
    EXPECT_EQ(stored(2).mac(field), stored(1).mac(field));
  }
  for (const auto &field : {QosClassificationView::port1, QosClassificationView::port2}) {
    EXPECT_EQ(stored(2).word(field), 0u) << "ports are read anew";
  }
}

TEST_F(QosTest, AtMostThirtyRulesAreSent) {
  for (const auto &[count, sent] : {std::pair(30u, 30u), {31u, 30u}, {UINT32_MAX, 0u}}) {
    forgetCalls();
    record()->count = count;
    EXPECT_EQ(pm_ubus_nexumd_qos_set(record()), 0);
    EXPECT_THAT(trace("pm_qos_qc_set_config"), SizeIs(sent)) << count;
  }
}

TEST_F(QosTest, RuleThatCannotBeReadLeavesItsSlot) {
  for (uint32_t i = 0; i < 3; ++i) ask(i, "rule");
  EXPECT_EQ(pm_ubus_nexumd_qos_set(record()), 0);
  clearRecord();
  record()->count = 10;
  record()->rules[1].param1 = 77;
  fail("vcorDbGetView", "", -5, 2, 1);
  EXPECT_EQ(pm_ubus_nexumd_qos_get(record()), 0);
  EXPECT_EQ(record()->count, 12u);
  EXPECT_EQ(record()->rules[1].param1, 77);
  EXPECT_EQ(record()->rules[2].param1, 1);
  EXPECT_THAT(logs(), HasLogLine({4, "pm_ubus_nexumd_qos_get",
                                  "vcorDbGetView DBVIEW_QOS_CLASSIFICATION failure", -5}));
}

TEST_F(QosTest, AtMostThirtyRulesAreReported) {
  for (int i = 0; i < 45; ++i) {
    store().create<QosClassificationView>("IGD.Q" + std::to_string(i));
  }
  store().row<QosClassificationView>("IGD.Q29").setByte(QosClassificationView::qosCommon, 29);
  EXPECT_EQ(pm_ubus_nexumd_qos_get(record()), 0);
  EXPECT_EQ(record()->count, 30u);
  EXPECT_EQ(record()->qosCommon, 29u) << "the last one read wins";
}

TEST_F(QosTest, ClearingRemovesRulesByTheirNames) {
  for (uint32_t i = 0; i < 4; ++i) ask(i, "rule");
  EXPECT_EQ(pm_ubus_nexumd_qos_set(record()), 0);
  const auto paths = store().paths(layoutOf<QosClassificationView>());
  const std::string &path = paths[0];
  fail("vcorDbGetView", paths[1], -5, 1, 1);
  std::memset(stored(2).data() + QosClassificationView::ruleName.offset, 'n', 36);
  const std::string name = stored(0).text(QosClassificationView::ruleName);
  const std::string printed = printedBy([] { EXPECT_EQ(pm_qc_clear_all(), 0); });
  EXPECT_THAT(printed, HasSubstr("viewname is " + path + " before \nviewname is " + path +
                                 "   qcviername is " + name + " \n"));
  EXPECT_THAT(printed, HasSubstr("viewname is " + paths[1] + "   qcviername is  \n"));
  EXPECT_THAT(trace("pm_qos_qc_del_config"),
              ElementsAre(HasSubstr("(" + name + ")"), HasSubstr("()"),
                          HasSubstr("(" + std::string(35, 'n') + ")"), HasSubstr("(rule4)")));
  EXPECT_THAT(store().paths(layoutOf<QosClassificationView>()), ElementsAre(paths[1], paths[2]))
      << "what cannot be read or found stays";
  EXPECT_THAT(logs(), HasLogLine({5, "pm_qc_clear_all",
                                  "vcorDbQryView DBVIEW_QOS_CLASSIFICATION tList.dwCount is 4 "
                                  "\n"}));
}

TEST_F(QosTest, FailuresOfTheListing) {
  EXPECT_EQ(pm_ubus_nexumd_qos_get(record()), -1) << "no rules";
  EXPECT_EQ(pm_qc_clear_all(), 0);
  fail("vcorDbLstView", "", -6);
  EXPECT_EQ(pm_ubus_nexumd_qos_get(record()), -6);
  EXPECT_EQ(pm_qc_clear_all(), -6);
  EXPECT_THAT(logs(),
              HasLogLine({4, "pm_qc_clear_all",
                          "vcorDbQryView DBVIEW_QOS_CLASSIFICATION failure! iRet = -6.\n", -6}));
  EXPECT_EQ(pm_ubus_nexumd_qos_set(nullptr), -1);
  EXPECT_EQ(pm_ubus_nexumd_qos_get(nullptr), -1);
  EXPECT_THAT(logs(), HasLog(4, "pm_ubus_nexumd_qos_get para is null"));
  EXPECT_THAT(logs(), HasLog(4, "pm_ubus_nexumd_qos_set argument is NULL"));
  EXPECT_EQ(pm_ubus_nexumd_qos_set(record()), 0) << "a count of 0";
  EXPECT_THAT(logs(), HasLog(5, " pm_ubus_nexumd_qos_set success"));
}

TEST_F(QosTest, SweepOfFaults) {
  beforeEachRun([this] {
    store().create<QosClassificationView>("IGD.Q1");
    clearRecord();
    ask(0, "one");
    ask(1, "two");
  });
  sweepFaults([this] { return pm_ubus_nexumd_qos_set(record()); },
              [](const testing::SweepRun &run) { EXPECT_EQ(run.status, 0); });
  sweepFaults([this] { return pm_ubus_nexumd_qos_get(record()); });
  sweepFaults([] { return pm_qc_clear_all(); });
}

}  // namespace
}  // namespace gateway
