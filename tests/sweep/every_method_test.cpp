// Every method of the command's catalogue with every call failing that it makes - of the platform,
// for memory, of files - once and from then on. What each handler makes of a failure is its own
// test's business; here nothing may crash or leak, every block that stays must be in one of the
// library's lists, what is answered must stand in the function's contract, and every line that is
// logged must have the tag, level and code that befit it.
#include <cjson/cJSON.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>
#include <nlohmann/json.hpp>
#include <set>

#include "catalogue/answer.hpp"
#include "catalogue/catalogue.hpp"
#include "catalogue/contract.hpp"
#include "gateway/habits.hpp"
#include "gateway/host.hpp"
#include "gateway/mesh.hpp"
#include "pmapi/limit.h"
#include "pmapi/uplinkinfo.h"
#include "tests/support/gateway_test.hpp"
#include "tests/sweep/line_check.hpp"

namespace gateway {
namespace {

using catalogue::Contract;
using catalogue::Example;
using catalogue::Method;
using catalogue::Object;
using catalogue::Parameter;
using records::Json;

/// No call of the library fails by itself with this: where it comes back, it was handed on.
constexpr int32_t kHandedOn = -77;

/// Refusals of the virtual gateway are a platform's statuses, too.
bool isHandedOn(int32_t status) {
  return status == kHandedOn || status == kNothingChanged ||
         (status >= kWrongPassphrase && status <= kUnknownView);
}

void *giveToCjson(size_t size) {
  return boundary::pointer<void *>("cJSON's malloc", std::to_string(size),
                                   [size] { return std::malloc(size); });
}

size_t nodesIn(const ListLink &head) {
  size_t nodes = 0;
  for (const ListLink *link = head.next; link != nullptr && link != &head; link = link->next) {
    ++nodes;
  }
  return nodes;
}

const auto kRings = {&g_net_sta_ifa_list, &g_net_sta_if6_list, &g_net_uplink_ifa_list,
                     &g_net_uplink_if6_list};
const auto kLimits = {&g_ubus_devlmt_list, &g_ubus_lmtUrl_list};

/// What the daemon finds when it follows the exported lists.
size_t nodesInLists() {
  size_t nodes = 0;
  for (const ListLink *head : kLimits) nodes += nodesIn(*head);
  for (const ListLink *head : kRings) {
    nodes += nodesIn(*head);
    for (const ListLink *link = head->next; link != head; link = link->next) {
      nodes += nodesIn(reinterpret_cast<const si_net_sample_dev *>(link)->samples);
    }
  }
  return nodes;
}

void emptyLists() {
  for (ListLink *head : kLimits) *head = {head, head};
  for (ListLink *head : kRings) *head = {head, head};
}

class EveryMethodTest : public GatewayTest {
 protected:
  EveryMethodTest() {
    loadExample("home_router.json");
    beforeEachRun(emptyLists);
    sweepWith(kHandedOn);
    gateway().boundary().onCall([this](const Call &call) { lines_.called(call); });
    gateway().onLog([this](const LogLine &line) { lines_.logged(line); });
    cJSON_Hooks fallible = {giveToCjson, std::free};
    cJSON_InitHooks(&fallible);
  }

  ~EveryMethodTest() override {
    gateway().boundary().onCall(nullptr);
    gateway().onLog(nullptr);
    cJSON_InitHooks(nullptr);
  }

  static int32_t call(const Object &object, const Method &method, const Example &example) {
    records::Secrets secrets;
    const catalogue::Answer answer =
        catalogue::invoke(object, method, Json::parse(example.arguments), secrets);
    return method.returnsStatus() ? answer.full.at("status").get<int32_t>() : 0;
  }

  /// The ARP reader's stream is the only one that may stay open.
  void expectNothingLeft(const Method &method) {
    const size_t arpReaders = [this] {
      size_t opened = 0;
      for (const Call &made : gateway().boundary().calls()) {
        opened += made.name == "fopen" && made.key.find("/proc/net/arp") != std::string::npos &&
                          made.answer == "ok"
                      ? 1
                      : 0;
      }
      return opened;
    }();
    EXPECT_EQ(files().openStreams(), arpReaders) << method.function;
    EXPECT_EQ(mesh().openHandles, 0u) << method.function;
    EXPECT_EQ(blocks().live(), nodesInLists()) << method.function;
  }

  static void expectNamed(const Method &method, int32_t status) {
    const Contract &contract = catalogue::contractOf(method.function);
    EXPECT_TRUE(contract.codes.contains(status) || (contract.handsOn && isHandedOn(status)))
        << method.function << " answers " << status << ", of which its contract says nothing";
  }

  /// A fresh gateway, as the example finds it.
  static void stage(const Example &example) {
    emptyLists();
    catalogue::prepare(example);
  }

  uint32_t sweep(const Object &object, const Method &method, const Example &example) {
    loadExample(example.profile);
    beforeEachRun([&] { stage(example); });
    return sweepFaults([&] { return call(object, method, example); },
                       [&](const testing::SweepRun &run) {
                         if (method.returnsStatus()) expectNamed(method, run.status);
                         expectNothingLeft(method);
                       });
  }

  uint32_t linesSeen() const { return lines_.lines(); }

 private:
  testing::LineCheck lines_{kHandedOn};
};

TEST_F(EveryMethodTest, SurvivesEveryFault) {
  uint32_t methods = 0;
  uint32_t calls = 0;
  for (const Object &object : catalogue::catalogue()) {
    for (const Method &method : object.methods) {
      SCOPED_TRACE(object.name + " " + method.name);
      ++methods;
      for (const Example &example : method.examples) calls += sweep(object, method, example);
      gateway().takeComplaints();
    }
  }
  // Every planned fault has fired, or the sweep above has failed.
  std::printf("[   SWEEP  ] %u methods, %u faults planned and fired, %u lines\n", methods,
              2 * calls, linesSeen());
  EXPECT_GT(calls, methods);
}

/// Methods that hand a path of the daemon on as it stands, or look for one by such a text.
bool takesAPath(const Method &method) {
  return std::ranges::any_of(method.parameters, [](const Parameter &parameter) {
    return parameter.name == "instance" || parameter.name == "interface";
  });
}

TEST_F(EveryMethodTest, HandsPathsOverInWholeZeroedFields) {
  const Habit copiesWholePaths(&Habits::copiesWholePaths);
  for (const Object &object : catalogue::catalogue()) {
    for (const Method &method : object.methods) {
      if (takesAPath(method)) continue;
      const Example &example = method.examples.front();
      loadExample(example.profile);
      stage(example);
      call(object, method, example);
      for (const std::string &complaint : gateway().takeComplaints()) {
        EXPECT_THAT(complaint, ::testing::Not(::testing::HasSubstr("zeroed bytes")))
            << method.function;
      }
    }
  }
}

TEST_F(EveryMethodTest, UnlinkedLimitsAreTheOnlyBlocksThatNobodyFinds) {
  UbusDeviceLimit wanted = {};
  std::strcpy(wanted.deviceMac, "A1B2C3D4E5F6");
  std::strcpy(wanted.LimitUrl, "games");
  size_t unlinked = 0;
  const auto limitAndFree = [&] {
    std::strcpy(wanted.TxRate, "100");
    pm_ubus_nexumd_limit_set(&wanted, 1);
    const size_t limited = nodesIn(g_ubus_devlmt_list);
    std::strcpy(wanted.TxRate, "0");
    const int32_t status = pm_ubus_nexumd_limit_set(&wanted, 1);
    unlinked = limited - nodesIn(g_ubus_devlmt_list);
    return status;
  };
  size_t most = 0;
  sweepFaults(limitAndFree, [&](const testing::SweepRun &) {
    most = std::max(most, unlinked);
    EXPECT_EQ(blocks().live(), nodesInLists() + unlinked);
  });
  EXPECT_EQ(most, 1u);
}

}  // namespace
}  // namespace gateway
