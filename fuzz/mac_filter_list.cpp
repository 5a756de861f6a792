// The MAC filter's list of devices, against a plain model of it.
//
// Input: a byte for the switch, a byte for the policy, and the list.
#include <algorithm>
#include <cctype>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <utility>
#include <vector>

#include "gateway/gateway.hpp"
#include "platform/firewall.hpp"
#include "pmapi/macfilter.h"

using namespace platform;

namespace {

using Entries = std::vector<std::pair<std::string, std::string>>;

constexpr size_t kLongestList = 2047;
constexpr size_t kLongestName = 15;
constexpr int32_t kMalformed = 1001;

gateway::Gateway &platformGateway() {
  return gateway::Gateway::current();
}

void require(bool held, const char *what) {
  if (held) return;
  std::fprintf(stderr, "the MAC filter broke its promise: %s\n", what);
  std::abort();
}

std::vector<std::string> split(const std::string &list) {
  std::vector<std::string> tokens(1);
  for (const char c : list) {
    if (c == ',') {
      tokens.emplace_back();
    } else {
      tokens.back() += c;
    }
  }
  std::erase(tokens, "");
  return tokens;
}

bool isHex(const std::string &digits) {
  return std::all_of(digits.begin(), digits.end(),
                     [](char c) { return std::isxdigit(static_cast<unsigned char>(c)); });
}

/// The entries that the platform shall have afterwards; false when the list is refused.
bool modelSet(const std::string &list, Entries *entries) {
  for (const std::string &token : split(list)) {
    const size_t slash = token.find('/');
    if (slash != 12 || slash + 1 == token.size()) return false;
    std::string mac = token.substr(0, slash);
    if (!isHex(mac) || mac == "000000000000") continue;
    std::transform(mac.begin(), mac.end(), mac.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    const bool listed = std::any_of(entries->begin(), entries->end(),
                                    [&](const auto &entry) { return entry.first == mac; });
    if (!listed) entries->emplace_back(mac, token.substr(slash + 1, kLongestName));
  }
  return true;
}

Entries table() {
  Entries entries;
  gateway::Store &store = platformGateway().store();
  for (const std::string &path : store.paths(gateway::layoutOf<MacFilterView>())) {
    const gateway::Row row = store.row<MacFilterView>(path);
    std::string mac = gateway::printMac(row.mac(MacFilterView::sourceMac));
    std::erase(mac, ':');
    entries.emplace_back(std::move(mac), row.text(MacFilterView::deviceName));
  }
  return entries;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  if (size < 2) return 0;
  const char *begin = reinterpret_cast<const char *>(data) + 2;
  const std::string list(begin, strnlen(begin, size - 2));
  // Exactly as large as its text, so that the sanitizer sees a byte too many.
  std::vector<uint32_t> bytes((sizeof(UbusMacFilter) + list.size() + sizeof(uint32_t)) / 4);
  auto *record = reinterpret_cast<UbusMacFilter *>(bytes.data());
  record->macFilterEnable = data[0] % 3;
  record->macFilterPolicy = data[1] % 3;
  std::memcpy(record->entries, list.c_str(), list.size() + 1);

  gateway::Gateway &platform = platformGateway();
  platform.clearLogs();
  platform.boundary().clearCalls();
  platform.store().clear();
  platform.store().create<platform::FirewallBaseRecord>("IGD");

  Entries expected;
  const bool accepted = modelSet(list.substr(0, kLongestList), &expected);
  const bool adds = record->macFilterEnable == 1 && record->macFilterPolicy <= 1;
  if (!accepted || !adds) expected.clear();

  const int32_t status = pm_ubus_macfilter_set(record);
  require(status == (accepted ? 0 : kMalformed), "a list is refused when it is malformed");
  require(accepted || platform.boundary().calls().empty(), "a refused list changes nothing");
  require(table() == expected, "the table holds the list's devices");
  require(platform.takeComplaints().empty(), "the platform has nothing to complain of");
  return 0;
}
