#include "tools/command/fault.hpp"

#include <charconv>
#include <limits>
#include <string_view>

#include "tools/catalogue/json.hpp"

namespace command {
namespace {

template <class Integer>
Integer number(const std::string &rule, std::string_view digits) {
  Integer value{};
  const char *end = digits.data() + digits.size();
  const auto [rest, error] = std::from_chars(digits.data(), end, value);
  if (digits.empty() || error != std::errc{} || rest != end) {
    throw UsageError("--fail " + rule, "\"" + std::string(digits) + "\" is no number that fits");
  }
  return value;
}

// Cuts what follows the last `mark` off `text`; empty when there is none.
std::string_view cutAfter(std::string_view &text, char mark) {
  const size_t at = text.rfind(mark);
  if (at == std::string_view::npos) return {};
  const std::string_view tail = text.substr(at + 1);
  text = text.substr(0, at);
  return tail;
}

void readAnswer(const std::string &rule, std::string_view answer, gateway::Fault &fault) {
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

gateway::Fault parseFault(const std::string &rule) {
  gateway::Fault fault;
  std::string_view rest = rule;
  if (rest.find('=') != std::string_view::npos) readAnswer(rule, cutAfter(rest, '='), fault);
  if (rest.find('@') != std::string_view::npos) {
    std::string_view when = cutAfter(rest, '@');
    if (when.find('x') != std::string_view::npos) {
      fault.times = number<uint32_t>(rule, cutAfter(when, 'x'));
    }
    fault.from = number<uint32_t>(rule, when);
  }
  const size_t slash = rest.find('/');
  fault.call = rest.substr(0, slash);
  if (slash != std::string_view::npos) fault.match = rest.substr(slash + 1);
  if (fault.call.empty()) throw UsageError("--fail " + rule, "no call is named");
  return fault;
}

}  // namespace command
