#include "boundary/boundary.hpp"

#include "boundary/status.hpp"
#include "gateway/host.hpp"
#include "platform/device.h"
#include "platform/ports.hpp"
#include "platform/proxy.h"
#include "platform/wan.h"
#include "tests/support/gateway_test.hpp"

using namespace platform;

namespace gateway {
namespace {

using ::testing::ElementsAre;
using ::testing::SizeIs;

class BoundaryTest : public GatewayTest {
 protected:
  static int32_t call(const char *key, int32_t answer = 0) {
    return boundary::status("some_call", key, [&]() { return answer; });
  }
};

TEST_F(BoundaryTest, FaultFiresFromTheNthMatchingCallAsOftenAsItSays) {
  fail("some_call", "b", -77, 2, 2);
  std::vector<int32_t> answers;
  for (const char *key : {"ab", "a", "ab", "cb", "b"}) answers.push_back(call(key));
  EXPECT_THAT(answers, ElementsAre(0, 0, -77, -77, 0));
  EXPECT_THAT(trace(),
              ElementsAre("some_call(ab) = 0", "some_call(a) = 0", "some_call(ab) = -77 [fault]",
                          "some_call(cb) = -77 [fault]", "some_call(b) = 0"));
}

TEST_F(BoundaryTest, FaultWithoutAnAnswerFailsEachCallItsOwnWay) {
  fail("*");
  uint8_t mac[6] = {};
  uint32_t size = 5;
  EXPECT_EQ(GetUB(8), nullptr);
  EXPECT_EQ(StrToMAC("00:1a:2b:3c:4d:5e", mac), 0);
  EXPECT_EQ(GetRamSizeTotal(&size), kFailed);
  EXPECT_EQ(size, 0x5a5a5a5au) << "rubbish, so that nobody relies on it";
  EXPECT_EQ(gateway().boundary().fallibleCalls(), 3u);
}

TEST_F(BoundaryTest, FaultThatNeverFiresIsReported) {
  gateway().boundary().addFault({"some_call", "", 3});
  call("x");
  const std::vector<Fault> unfired = gateway().boundary().unfiredFaults();
  ASSERT_THAT(unfired, SizeIs(1));
  EXPECT_EQ(toString(unfired[0]), "some_call from call 3 (met 1)");
  call("x");
  call("x");
  EXPECT_THAT(gateway().boundary().unfiredFaults(), SizeIs(0));
}

TEST_F(BoundaryTest, WhatTheBodyThrowsIsComplainedOfAndFails) {
  expectComplaint("some_call(key): broken");
  EXPECT_EQ(
      boundary::status("some_call", "key", []() -> int32_t { throw std::runtime_error("broken"); }),
      kFailed);
  expectComplaint("some_call(key): refused");
  EXPECT_EQ(boundary::status("some_call", "key",
                             []() -> int32_t { throw Refusal(kTableFull, "refused"); }),
            kTableFull);
  EXPECT_THAT(trace(), ElementsAre("some_call(key) = -1", "some_call(key) = -2006"));
}

TEST_F(BoundaryTest, WhatIsMissingSaysSo) {
  expectComplaint("not there yet in the virtual gateway");
  uint32_t reply = 0;
  uint16_t length = sizeof reply;
  EXPECT_EQ(ctSgw_ssend_to_proxy(9999, nullptr, 0, &reply, &length), kNotThereYet);
  EXPECT_EQ(length, sizeof reply);
}

TEST_F(BoundaryTest, ProxyFaultsAnswerThroughTheReplyToo) {
  int32_t reply[2] = {11, 22};
  uint16_t length = sizeof reply;
  Fault refused{"ctSgw_ssend_to_proxy", "SET_LOCK", 1, 1};
  refused.replyStatus = 5;
  fail(refused);
  EXPECT_EQ(ctSgw_ssend_to_proxy(CTSGW_EVENT_SET_LOCK, nullptr, 0, reply, &length), 0);
  EXPECT_EQ(length, 4);
  EXPECT_THAT(reply, ElementsAre(5, 22));

  Fault longer{"ctSgw_ssend_to_proxy", "SET_LOCK", 1, 1};
  longer.replyLength = 3000;
  fail(longer);
  length = 2048;
  EXPECT_EQ(ctSgw_ssend_to_proxy(CTSGW_EVENT_SET_LOCK, nullptr, 0, reply, &length), 0);
  EXPECT_EQ(length, 3000);

  length = sizeof reply;
  Fault torn{"ctSgw_ssend_to_proxy", "SET_LOCK", 1, 1};
  torn.replyStatus = 6;
  torn.replyPayload = {7, 0};
  fail(torn);
  EXPECT_EQ(ctSgw_ssend_to_proxy(CTSGW_EVENT_SET_LOCK, nullptr, 0, reply, &length), 0);
  EXPECT_EQ(length, 6);
  EXPECT_THAT(reply, ElementsAre(6, 7));
}

TEST_F(BoundaryTest, ListsMayCountMoreOrLessThanTheyHold) {
  store().create<platform::LanInfoView>("IGD.LD1.ETH1");
  char paths[2][PLATFORM_INSTANCE_SIZE] = {};
  InstanceList list{PLATFORM_BLOCK_MARKER, 2, 0, paths};
  Fault falsified{"vcorDbLstView", "DBVIEW_LANINFO", 1, 1};
  falsified.count = -3;
  fail(falsified);
  EXPECT_EQ(vcorDbLstView(DBVIEW_LANINFO, "IGD", &list, 2), 0);
  EXPECT_EQ(static_cast<int32_t>(list.dwCount), -3);
  EXPECT_STREQ(paths[0], "IGD.LD1.ETH1");
  EXPECT_EQ(vcorDbLstView(DBVIEW_LANINFO, "IGD", &list, 2), 0);
  EXPECT_EQ(list.dwCount, 1u);
}

TEST_F(BoundaryTest, CountThatNobodyIsToldNeverFires) {
  Gateway::current().boundary().addFault({.call = "pm_dev_restart", .count = 2});
  EXPECT_EQ(pm_dev_restart(1), 0);
  EXPECT_EQ(Gateway::current().boundary().unfiredFaults().size(), 1u);
  Gateway::current().boundary().reset();
}

TEST_F(BoundaryTest, CallMayHaveDoneItsWorkWhenItFails) {
  int32_t done = 0;
  for (const bool workDone : {false, true}) {
    fail({.call = "some_call", .times = 1, .answer = -7, .workDone = workDone});
    EXPECT_EQ(boundary::status("some_call", "", [&]() { return ++done; }), -7);
    EXPECT_EQ(done, workDone ? 1 : 0);
  }
}

TEST_F(BoundaryTest, SweepFailsEveryCallOnceAndOnward) {
  std::vector<std::string> runs;
  const auto handler = [&] { return call("1") + call("2") + call("3"); };
  const uint32_t calls = sweepFaults(handler, [&](const testing::SweepRun &run) {
    runs.push_back(std::to_string(run.failed) + (run.once ? " once " : " on ") +
                   std::to_string(run.status));
  });
  EXPECT_EQ(calls, 3u);
  EXPECT_THAT(runs,
              ElementsAre("1 once -1", "2 once -1", "3 once -1", "1 on -3", "2 on -2", "3 on -1"));
}

}  // namespace
}  // namespace gateway
