#include "pmapi/detection.h"

#include <cstring>
#include <nlohmann/json.hpp>
#include <string>

#include "platform/wan.hpp"
#include "pmapi/pppoe.h"
#include "pmapi/workingmode.h"
#include "tests/support/gateway_test.hpp"

using namespace platform;

namespace gateway {
namespace {

class DetectionTest : public GatewayTest {
 protected:
  DetectionTest() { loadExample("home_router.json"); }

  int32_t start(const std::string &text, uint32_t parameter = 0) {
    alignas(HttpSpeedRequest) char request[260] = {};
    std::memcpy(request + 32, &parameter, sizeof parameter);
    std::memcpy(request, text.data(), text.size());
    return ubus_set_httpspeed_diagnostics(reinterpret_cast<HttpSpeedRequest *>(request));
  }

  /// The result that the proxy answers next: what follows the status, and the call's own result.
  void answer(const std::string &state, uint32_t rate, int32_t callResult) {
    std::vector<uint8_t> payload(272);
    std::memcpy(payload.data() + 8, state.data(), state.size());
    std::memcpy(payload.data() + 268, &rate, sizeof rate);
    fail(Fault{.call = "ctSgw_ssend_to_proxy",
               .match = "RESULT",
               .times = 1,
               .answer = callResult,
               .replyStatus = 0,
               .replyPayload = payload});
  }

  HttpSpeedResult result = {};
};

TEST_F(DetectionTest, SpeedTestRunsAndCompletesWithTheClock) {
  result.reserved[0] = 0x5a;
  EXPECT_NE(ubus_get_httpspeed_result(&result), 0);
  EXPECT_EQ(start("http://speed.example.net/100M.bin"), 0);
  EXPECT_THAT(logs(), HasLog(5, "now in function ubus_set_httpspeed_diagnostics\n"));
  EXPECT_NE(ubus_get_httpspeed_result(&result), 0);
  EXPECT_EQ(result.status, 0);
  EXPECT_STREQ(result.speed, "0Mpbs");
  gateway().clock().advance(15);
  EXPECT_EQ(ubus_get_httpspeed_result(&result), 0);
  EXPECT_EQ(result.status, 1);
  EXPECT_STREQ(result.speed, "920Mpbs");
  EXPECT_EQ(result.reserved[0], 0x5a);
}

TEST_F(DetectionTest, RequestTextOfAnyLengthStaysInsideItsField) {
  for (const size_t length : {31U, 36U, 259U}) {
    EXPECT_EQ(start(std::string(length, 'u')), 0);
    const Json state = gateway().save();
    EXPECT_EQ(state["speedTest"]["request"].get<std::string>(), std::string(length, 'u'));
  }
  const auto parameter = [this] { return gateway().save()["speedTest"]["parameter"]; };
  EXPECT_EQ(parameter().get<uint32_t>(), 0x75757575u) << "a long text fills it";
  EXPECT_EQ(start("http://x", 7), 0);
  EXPECT_EQ(parameter().get<uint32_t>(), 7u);
  EXPECT_EQ(start(""), 0) << "what the reply says is not examined";
  EXPECT_EQ(ubus_set_httpspeed_diagnostics(nullptr), -1);
  EXPECT_THAT(logs(), HasLog(4, "ubus_set_httpspeed_diagnostics para is null"));
}

TEST_F(DetectionTest, FailuresReturnWhatTheLoggerReturns) {
  gateway().setLogResult(42);
  std::memset(&result, 0x33, sizeof result);
  fail("ctSgw_ssend_to_proxy", "RESULT", -5, 1, 1);
  EXPECT_EQ(ubus_get_httpspeed_result(&result), 42);
  EXPECT_THAT(logs(),
              HasLog(5, "CTSGW_EVENT_GET_HTTPDOWNLOAD_DIAGNOSTICSRESULT failed, iRet=-5\n"));
  fail(Fault{.call = "ctSgw_ssend_to_proxy", .match = "RESULT", .times = 1, .replyStatus = 6});
  EXPECT_EQ(ubus_get_httpspeed_result(&result), 42);
  EXPECT_THAT(logs(), HasLog(5,
                             "CTSGW_EVENT_GET_HTTPDOWNLOAD_DIAGNOSTICSRESULT failed, iRet=0, "
                             "pAck->iRet=6\n"));
  fail(Fault{.call = "ctSgw_ssend_to_proxy",
             .match = "RESULT",
             .times = 1,
             .answer = 3,
             .replyStatus = 6});
  EXPECT_EQ(ubus_get_httpspeed_result(&result), 42);
  EXPECT_THAT(logs(), HasLogLine({5, "ubus_get_httpspeed_result",
                                  "CTSGW_EVENT_GET_HTTPDOWNLOAD_DIAGNOSTICSRESULT failed, iRet=3, "
                                  "pAck->iRet=6\n",
                                  6}));
  EXPECT_EQ(result.status, 0x33333333);
  EXPECT_EQ(ubus_get_httpspeed_result(nullptr), -1);
  EXPECT_THAT(logs(), HasLog(4, "ubus_get_httpspeed_result para is null"));
}

TEST_F(DetectionTest, AnyOtherStateThanCompletedIsNotCompleted) {
  const struct {
    std::string state;
    int32_t answer, status;
  } cases[] = {{"Completed", 0, 1},           {"CompletedX", 1, 0},           {"Complete", -1, 0},
               {std::string(260, 'Z'), 1, 0}, {std::string(260, 'A'), -1, 0}, {"", -1, 0}};
  // A positive result of the call is no failure.
  for (const int32_t callResult : {0, 3}) {
    for (const auto &one : cases) {
      answer(one.state, 102400, callResult);
      EXPECT_EQ(ubus_get_httpspeed_result(&result), one.answer) << one.state;
      EXPECT_EQ(result.status, one.status);
      EXPECT_STREQ(result.speed, "100Mpbs");
    }
  }
}

class PppoeTest : public DetectionTest {
 protected:
  int32_t set(const std::string &user, const std::string &password) {
    alignas(UbusPppoe) char record[64 + 68] = {};
    std::memcpy(record, user.data(), user.size());
    std::memcpy(record + 64, password.data(), password.size());
    return pm_ubus_pppoe_set(reinterpret_cast<UbusPppoe *>(record));
  }
  Row ppp() { return store().row<WanPppConnectionView>("IGD.WD1.WCD1.WCPPP1"); }
};

TEST_F(PppoeTest, AccountReachesTheConnectionAndTheLog) {
  EXPECT_EQ(set("user@home", "secret"), 0);
  EXPECT_EQ(ppp().text(WanPppConnectionView::userName), "user@home");
  EXPECT_EQ(ppp().text(WanPppConnectionView::password), "secret");
  EXPECT_THAT(logs(), HasLog(5, "now in function pm_ubus_pppoe_set\n"));
  EXPECT_THAT(logs(), HasLog(5, "ubuspppoe->pppoeUser:user@home, ubuspppoe->pppoePwd:secret\n"));
}

TEST_F(PppoeTest, TextsBeyondSixtyFourCharactersAreSentAsInvalid) {
  EXPECT_EQ(set(std::string(64, 'v'), ""), 0) << "ends with the password's zero";
  EXPECT_EQ(ppp().text(WanPppConnectionView::userName), std::string(64, 'v'));
  EXPECT_EQ(set(std::string(63, 'u'), std::string(64, 'p')), 0);
  EXPECT_NE(set("user", std::string(65, 'p')), 0);
  EXPECT_NE(set(std::string(64, 'u'), "p"), 0) << "runs on into the password";
  EXPECT_EQ(ppp().text(WanPppConnectionView::userName), std::string(63, 'u'));
  EXPECT_EQ(pm_ubus_pppoe_set(nullptr), -257);
  EXPECT_THAT(logs(), HasLog(4, "pm_ubus_pppoe_set para is null"));
  fail("pm_wanc_set_ppp_username_passwd", "", -5);
  EXPECT_EQ(set("user", "p"), -5);
  EXPECT_THAT(logs(), HasLog(4, "call pm_wanc_set_ppp_username_passwd faild,ret=-5\n"));
}

TEST_F(DetectionTest, WorkingModeIsSwitched) {
  const UbusWorkingMode bridge = {3, 1};
  const Row written = store().create<WorkingModeRecord>("IGD");
  std::memset(written.data(), 0x55, WorkingModeRecord::kSize);
  EXPECT_EQ(pm_ubus_workingmode_set(&bridge), 0);
  expectWords(written, {{80, 1},
                        {912, 1},
                        {1072, -1},
                        {1264, 0},
                        {1844, 1492},
                        {2100, 1},
                        {4068, 0},
                        {4100, 1},
                        {4132, 0},
                        {4164, 0},
                        {4564, 1}});
  EXPECT_STREQ(reinterpret_cast<const char *>(written.data() + 784), "INTERNET");
  EXPECT_STREQ(reinterpret_cast<const char *>(written.data() + 4516), "000000000000");
  EXPECT_THAT(logs(), HasLog(5, "now in function pm_ubus_workingmode_set\n"));
  const Row networking = store().row<NetworkingDeviceView>("IGD");
  EXPECT_EQ(networking.word(NetworkingDeviceView::workingMode), 3u);
  EXPECT_EQ(networking.word(NetworkingDeviceView::accessMode), 1u);
  EXPECT_THAT(logs(),
              HasLog(5, "ubusworkingmode->workingMode:3, ubusworkingmode->internetType:1\n"));
  EXPECT_EQ(pm_ubus_workingmode_set(nullptr), -257);
  EXPECT_THAT(logs(), HasLog(4, "pm_ubus_workingmode_set para is null"));
  fail("pm_wanc_change_brg_route_mode", "", -5);
  EXPECT_EQ(pm_ubus_workingmode_set(&bridge), -5);
  EXPECT_THAT(logs(), HasLog(4, "call pm_wanc_change_brg_route_mode faild,ret=-5\n"));
}

TEST_F(PppoeTest, SweepOfFaults) {
  const UbusWorkingMode mode = {1, 2};
  EXPECT_GT(sweepFaults([this] { return start("http://x"); }), 0u);
  EXPECT_GT(sweepFaults([this] { return ubus_get_httpspeed_result(&result); }), 0u);
  EXPECT_GT(sweepFaults([this] { return set("u", "p"); }), 0u);
  EXPECT_GT(sweepFaults([&mode] { return pm_ubus_workingmode_set(&mode); }), 0u);
}

}  // namespace
}  // namespace gateway
