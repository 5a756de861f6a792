// Every method of the command's catalogue with every call of the platform failing, once and from
// then on. What each handler answers and leaves behind is its own test's business; here nothing may
// crash, leak or return what no contract names, whatever is reached through whom.
#include <cstdio>
#include <map>
#include <nlohmann/json.hpp>
#include <set>

#include "gateway/host.hpp"
#include "pmapi/uplinkinfo.h"
#include "tests/support/gateway_test.hpp"
#include "tools/catalogue/answer.hpp"
#include "tools/catalogue/catalogue.hpp"

namespace gateway {
namespace {

using command::Direction;
using command::Json;
using command::Method;
using command::Object;
using command::Parameter;

/// What a method is asked for where the simplest arguments would lead nowhere.
const std::map<std::string, const char *> kArguments = {
    {"pm_ubus_config_additem", R"({"item": "reportInterval", "value": "30"})"},
    {"pm_ubus_config_getitem", R"({"item": "reportInterval"})"},
    {"pm_ubus_config_deleteitem", R"({"item": "reportInterval"})"},
    {"pm_ubus_get_portinfo", R"({"portIndex": 0, "instance": "IGD.LD1.ETH1"})"},
    {"ubus_get_ifname_from_ifid", R"({"ifId": "IGD.WD1.WCD1.WCPPP1"})"},
    {"pm_ubus_macfilter_set",
     R"({"macFilterEnable": 1, "macFilterPolicy": 1, "entries": "A1B2C3D4E5F6/phone"})"},
    {"pm_ubus_nexumd_limit_set",
     R"({"records": [{"deviceMac": "A1B2C3D4E5F6", "TxRate": "100", "RxRate": "200",
         "LimitUrl": "a.example,b.example", "LmtMode": 1, "LimitWeek": 127,
         "LimitStartTime": 3600, "LimitEndTime": 7200}]})"},
    {"device_limit_cfg_data", R"({"deviceMac": "A1B2C3D4E5F7", "TxRate": "10", "RxRate": "20"})"},
    {"si_ubus_lmturl_command",
     R"({"mac": "a1:b2:c3:d4:e5:f6", "LimitURL": "a", "operation": "-A"})"},
    {"pm_ubus_nexumd_iptv_set",
     R"({"enable": 1, "vlanId": 85, "ethPorts": [1], "wlanPorts": [2]})"},
    {"pm_ubus_nexumd_qos_set", R"({"qosCommon": 1, "rules": [{"label": "one"}]})"},
    {"pm_ubus_nexumd_wifi_timer_add",
     R"({"taskId": 1, "enable": 1, "weekMask": 62, "Action": 2, "timeOffset": 60})"},
    {"pm_ubus_wifiParameter_set",
     R"({"radio": "2.4G", "index": 1, "enable": 1, "ssid": "home", "securityMode": "WPA2-Personal",
         "encrypt": 1, "pwd": "quiet-harbour"})"},
    {"pm_ubus_radio_set",
     R"({"radio": "5G", "transmitPower": "80", "channel": "44", "bandwidth": 1})"},
    {"pm_ubus_wifi_switch_set", R"({"radio": "5G", "enable": 1})"},
    {"pm_ubus_wifi_wps_set", R"({"radio": "all"})"},
    {"pm_ubus_set_csi_enable", R"({"radio": "All", "enable": 1})"},
    {"pm_ubus_set_csi_mac", R"({"operation": 1, "macList": "A1B2C3D4E5F6,A1B2C3D4E5F7"})"},
    {"pm_ubus_roaming_sta_disconnect", R"({"mac": "f40f24108801"})"},
    {"pm_ubus_roaming_starssi_get", R"({"macAddress": "f40f24108801"})"},
    {"pm_ubus_control_set", R"({"type": 2})"},
    {"pm_ubus_set_devlogstats", R"({"logEnable": 1, "logLevel": 2, "logParam": 3})"},
};

/// These answer with the logger's result or a comparison's, which are no statuses.
const std::set<std::string> kNoStatus = {"ubus_get_httpspeed_result", "pm_ubus_nexumd_iptv_set"};

/// Nodes that these leave in the library's lists stay for the life of the process.
const std::set<std::string> kKeepsNodes = {"pm_ubus_nexumd_limit_set", "device_limit_cfg_data",
                                           "si_sample_list_add", "if_sta_statics",
                                           "if_uplink_statics"};

Json simplest(const Parameter &parameter) {
  if (parameter.type.starts_with("text")) return "IGD.LD1.WLAN1";
  if (parameter.type == "MAC") return "a1:b2:c3:d4:e5:f6";
  if (parameter.type == "character") return "x";
  if (parameter.isRows) return Json::array();
  return parameter.type.find("int") != std::string::npos ? Json(1) : Json::object();
}

Json argumentsOf(const Method &method) {
  const auto known = kArguments.find(method.function);
  if (known != kArguments.end()) return Json::parse(known->second);
  Json arguments = Json::object();
  for (const Parameter &parameter : method.parameters) {
    const bool given =
        parameter.direction == Direction::kOut || parameter.isOptional || parameter.name.empty();
    if (!given) arguments[parameter.name] = simplest(parameter);
  }
  return arguments;
}

/// A platform's own code, or one of those that handlers have for themselves.
bool isDocumented(int32_t status) {
  static const std::set<int32_t> kOwn = {0,   -1,  -2,  -6,   -7,   -8,  -9,
                                         -10, -12, -21, -257, 1001, 1003};
  return kOwn.contains(status) || (status <= -2001 && status >= -2011);
}

class EveryMethodTest : public GatewayTest {
 protected:
  EveryMethodTest() {
    loadExample("home_router.json");
    for (ListLink *head : {&g_net_sta_ifa_list, &g_net_sta_if6_list, &g_net_uplink_ifa_list,
                           &g_net_uplink_if6_list}) {
      if (head->next == nullptr) *head = {head, head};
    }
  }

  static int32_t call(const Object &object, const Method &method, const Json &arguments) {
    command::Secrets secrets;
    const command::Answer answer = command::invoke(object, method, arguments, secrets);
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
    if (!kKeepsNodes.contains(method.function)) {
      EXPECT_EQ(host().blocks.live(), 0u) << method.function;
    }
  }

  uint32_t sweep(const Object &object, const Method &method) {
    const Json arguments = argumentsOf(method);
    return sweepFaults([&] { return call(object, method, arguments); },
                       [&](const testing::SweepRun &run) {
                         if (!kNoStatus.contains(method.function)) {
                           EXPECT_TRUE(isDocumented(run.status))
                               << method.function << " answers " << run.status;
                         }
                         expectNothingLeft(method);
                       });
  }
};

TEST_F(EveryMethodTest, SurvivesEveryFault) {
  uint32_t methods = 0;
  uint32_t calls = 0;
  for (const Object &object : command::catalogue()) {
    for (const Method &method : object.methods) {
      SCOPED_TRACE(object.name + " " + method.name);
      ++methods;
      calls += sweep(object, method);
      gateway().takeComplaints();
    }
  }
  // Every planned fault has fired, or the sweep above has failed.
  std::printf("[   SWEEP  ] %u methods, %u faults planned and fired\n", methods, 2 * calls);
  EXPECT_GT(calls, methods);
}

}  // namespace
}  // namespace gateway
