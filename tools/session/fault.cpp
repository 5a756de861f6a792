#include "tools/session/fault.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <string_view>

#include "boundary/names.hpp"
#include "records/json.hpp"

namespace command {
namespace {

template <class Integer>
Integer number(const std::string &rule, std::string_view digits) {
  Integer value{};
  const char *end = digits.data() + digits.size();
  const auto [rest, error] = std::from_chars(digits.data(), end, value);
  if (digits.empty() || error != std::errc{} || rest != end) {
    throw InputError("--fail " + rule, "\"" + std::string(digits) + "\" is no number that fits");
  }
  return value;
}

uint32_t count(const std::string &rule, std::string_view digits) {
  const auto value = number<uint32_t>(rule, digits);
  if (value == 0) throw InputError("--fail " + rule, "calls are counted from 1");
  return value;
}

/// What the library calls in libc may fail as well.
bool isCall(const std::string &name) {
  static constexpr std::array kLibc = {"*",     "calloc", "fclose", "fopen",   "fsync",
                                       "read",  "rename", "unlink", "sysinfo", "write",
                                       "lstat", "fcntl",  "fdopen"};
  return std::ranges::find(kLibc, name) != kLibc.end() || boundary::isPlatformCall(name);
}

/// The calls that answer with a number of entries.
bool isList(const std::string &name) {
  static constexpr std::array kLists = {"ctSgw_wlanGetHostInfo",
                                        "plib_adev_list_view",
                                        "pm_app_wake_up_control_get",
                                        "pm_e8_wanc_list_all_wanc_by_wand",
                                        "pm_mac_filterlist",
                                        "pm_wlan_list_ad",
                                        "pm_wlan_list_csi_mac",
                                        "vcorDbLstView",
                                        "vcorDbQryView"};
  return std::ranges::find(kLists, name) != kLists.end();
}

// Cuts what follows the last `mark` off `text`; empty when there is none.
std::string_view cutAfter(std::string_view &text, char mark) {
  const size_t at = text.rfind(mark);
  if (at == std::string_view::npos) return {};
  const std::string_view tail = text.substr(at + 1);
  text = text.substr(0, at);
  return tail;
}

void readAnswer(const std::string &rule, std::string_view answer, boundary::Fault &fault) {
  constexpr std::string_view kReply = "reply:";
  constexpr std::string_view kLength = "length:";
  constexpr std::string_view kCount = "count:";
  if (answer.starts_with(kReply)) {
    fault.replyStatus = number<int32_t>(rule, answer.substr(kReply.size()));
  } else if (answer.starts_with(kLength)) {
    fault.replyLength = number<uint16_t>(rule, answer.substr(kLength.size()));
  } else if (answer.starts_with(kCount)) {
    fault.count = number<int32_t>(rule, answer.substr(kCount.size()));
  } else {
    fault.answer = number<int32_t>(rule, answer);
  }
}

}  // namespace

boundary::Fault parseFault(const std::string &rule) {
  boundary::Fault fault;
  std::string_view rest = rule;
  if (rest.find('=') != std::string_view::npos) readAnswer(rule, cutAfter(rest, '='), fault);
  if (rest.find('@') != std::string_view::npos) {
    std::string_view when = cutAfter(rest, '@');
    if (when.find('x') != std::string_view::npos) {
      fault.times = count(rule, cutAfter(when, 'x'));
    }
    fault.from = count(rule, when);
  }
  const size_t slash = rest.find('/');
  fault.call = rest.substr(0, slash);
  if (slash != std::string_view::npos) fault.match = rest.substr(slash + 1);
  if (fault.call.empty()) throw InputError("--fail " + rule, "no call is named");
  if (!isCall(fault.call)) {
    throw InputError("--fail " + rule, "\"" + fault.call + "\" is no call of the library");
  }
  if (fault.count && !isList(fault.call)) {
    throw InputError("--fail " + rule, "\"" + fault.call + "\" lists nothing");
  }
  return fault;
}

}  // namespace command
