// Requests of the device limit: whatever they hold, the packet filter's programs get the arguments
// of one rule, and rules that were added can be removed.
//
// Input: devices of 8 bytes and their URL keywords, each list ended by "\xff".
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "gateway/command_line.hpp"
#include "gateway/gateway.hpp"
#include "gateway/host.hpp"
#include "gateway/time_policy.hpp"
#include "gateway/ubusfilter.hpp"
#include "platform/host.h"
#include "pmapi/limit.h"

namespace {

constexpr size_t kDeviceBytes = 8;
constexpr size_t kMostDevices = 6;
// Longer than any command; what is beyond only makes the same commands again.
constexpr size_t kMostInput = 600;
constexpr size_t kLongestUrls = sizeof(UbusDeviceLimit::LimitUrl);
constexpr size_t kKeywordPlace = 10;
constexpr size_t kWords = 13;
constexpr size_t kLongestCommand = 255;

void require(bool held, const std::string &what) {
  if (held) return;
  std::fprintf(stderr, "the device limit broke its promise: %s\n", what.c_str());
  std::abort();
}

UbusDeviceLimit takeDevice(std::string_view &input) {
  uint8_t raw[kDeviceBytes] = {};
  std::memcpy(raw, input.data(), std::min(input.size(), sizeof raw));
  input.remove_prefix(std::min(input.size(), sizeof raw));

  UbusDeviceLimit limit = {};
  // Few devices, so that they meet each other; some begin with a zero byte.
  std::snprintf(limit.deviceMac, sizeof limit.deviceMac, "%02X%02XC3D4E5F6", raw[0] % 3,
                raw[1] % 3);
  std::snprintf(limit.TxRate, sizeof limit.TxRate, "%u", raw[2] % 2U);
  std::snprintf(limit.RxRate, sizeof limit.RxRate, "%d", static_cast<int8_t>(raw[3]) / 64);
  limit.LmtMode = raw[4] % 2;
  limit.LimitWeek = raw[5] - 2;
  limit.LimitStartTime = raw[6] * 350U;
  limit.LimitEndTime = raw[7] * 350U;
  const size_t length = std::min({input.find('\xff'), input.size(), kLongestUrls});
  std::memcpy(limit.LimitUrl, input.data(), length);
  input.remove_prefix(std::min(input.size(), length + 1));
  return limit;
}

void collectKeywords(const UbusDeviceLimit &limit, std::set<std::string> *keywords) {
  std::istringstream list(std::string(limit.LimitUrl, strnlen(limit.LimitUrl, kLongestUrls - 1)));
  for (std::string keyword; std::getline(list, keyword, ',');) keywords->insert(keyword);
}

void checkCommand(const std::string &line, const std::set<std::string> &keywords) {
  const auto words = gateway::splitCommandLine(line);
  if (!words) {
    require(line.size() == kLongestCommand, "only a cut command lacks its closing quote: " + line);
    return;
  }
  require(words->size() <= kWords && words->size() > kKeywordPlace,
          "one rule per command: " + line);
  require(keywords.count((*words)[kKeywordPlace]) == 1, "the keyword stays one word: " + line);
}

void forgetLimits() {
  while (g_ubus_lmtUrl_list.next != &g_ubus_lmtUrl_list) {
    ListLink *node = g_ubus_lmtUrl_list.next;
    g_ubus_lmtUrl_list.next = node->next;
    platform::RetUB(node);
  }
  g_ubus_lmtUrl_list.prev = &g_ubus_lmtUrl_list;
  g_ubus_devlmt_list = {&g_ubus_devlmt_list, &g_ubus_devlmt_list};
  g_ubus_devlmt_inst = 0;
}

void startOver(gateway::Gateway &platform) {
  forgetLimits();
  platform.store().clear();
  platform.boundary().clearCalls();
  platform.clearLogs();
  gateway::host().programs.clear();
  gateway::timePolicy() = {};
  gateway::ubusfilter() = {};
  gateway::ubusfilter().exists = true;
}

}  // namespace

// Deleted nodes leave their list without being given back: to look for leaks is to look at those.
extern "C" const char *__asan_default_options() {
  return "detect_leaks=0";
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  gateway::Gateway &platform = gateway::Gateway::current();
  startOver(platform);
  std::string_view input(reinterpret_cast<const char *>(data), std::min(size, kMostInput));
  std::vector<UbusDeviceLimit> limits;
  std::set<std::string> keywords;
  while (!input.empty() && limits.size() < kMostDevices) {
    limits.push_back(takeDevice(input));
    collectKeywords(limits.back(), &keywords);
  }
  const auto count = static_cast<int32_t>(limits.size());
  require(pm_ubus_nexumd_limit_set(limits.data(), count) == 0, "a batch never fails as a whole");
  for (const gateway::StartedProgram &started : gateway::host().programs) {
    checkCommand(started.commandLine, keywords);
  }

  // As many answers as there can be nodes, so that the sanitizer sees one too many.
  std::vector<UbusDeviceLimit> answers(g_ubus_devlmt_inst);
  int32_t listed = -1;
  pm_ubus_nexumd_limit_get(answers.data(), &listed);
  require(listed <= static_cast<int32_t>(g_ubus_devlmt_inst), "no node is listed twice");

  for (UbusDeviceLimit &limit : limits) std::memset(limit.LimitUrl, 0, kLongestUrls);
  pm_ubus_nexumd_limit_set(limits.data(), count);
  require(gateway::ubusfilter().ipv4.empty() && gateway::ubusfilter().ipv6.empty(),
          "without keywords no rule is left");
  require(platform.takeComplaints().empty(), "the platform has nothing to complain of");
  return 0;
}
