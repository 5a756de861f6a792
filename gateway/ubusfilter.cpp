#include "gateway/ubusfilter.hpp"

#include <algorithm>

#include "boundary/boundary.hpp"
#include "gateway/command_line.hpp"
#include "gateway/gateway.hpp"
#include "gateway/host.hpp"
#include "records/addresses.hpp"

PM_RECORD(gateway::FilterRule, PM_FIELD(mac).means("of the device whose packets are meant"),
          PM_FIELD(urlKey).means("a word in the URL"),
          PM_FIELD(target).means("what happens to them: DROP, ACCEPT, RETURN, REJECT; without one "
                                 "they are only counted"));

PM_RECORD(gateway::Ubusfilter, PM_FIELD(ipv4).means("rules for IPv4, the first counts"),
          PM_FIELD(ipv6).means("rules for IPv6, the first counts"));

namespace gateway {

namespace {

using Rules = std::vector<FilterRule>;

// What the programs exit with.
constexpr int32_t kDone = 0;
constexpr int32_t kNoSuchThing = 1;
constexpr int32_t kBadUsage = 2;

constexpr std::string_view kChain = "ubusfilter";
constexpr std::string_view kTargets[] = {"DROP", "ACCEPT", "RETURN", "REJECT"};

SectionOf<Ubusfilter> section{
    "ubusfilter",
    "The firewall's chain of URL rules; it exists when the profile names it",
    {.loaded = [](Ubusfilter &chain, const std::string &) { chain.exists = true; }}};

/// One call of iptables or ip6tables.
class FilterCommand {
 public:
  explicit FilterCommand(std::vector<std::string> words) : words_(std::move(words)) {}

  int32_t run(std::string_view program, Rules &rules) {
    if (words_.empty() || words_[0] != program) {
      throw Refusal(kBadUsage, "the command line does not begin with its program's name");
    }
    for (next_ = 1; next_ < words_.size();) {
      if (const int32_t status = takeOption(); status != kDone) return status;
    }
    if (operation_.empty()) return kBadUsage;
    if (chain_ != kChain || !ubusfilter().exists) return kNoSuchThing;
    return apply(rules);
  }

 private:
  struct Option {
    std::string_view name;
    std::string FilterCommand::*value;
    std::string_view match; /**< the extension that brings the option, which must be named before */
  };
  static const Option kOptions[];

  int32_t takeOption() {
    const std::string &word = words_[next_++];
    if (next_ == words_.size()) return kBadUsage;
    const std::string &value = words_[next_++];
    if (word == "-m") {
      matches_.push_back(value);
      return value == "mac" || value == "urlfilter" ? kDone : kBadUsage;
    }
    if (word == "-A" || word == "-I" || word == "-D") {
      if (!operation_.empty()) return kBadUsage;
      operation_ = word;
      chain_ = value;
      return kDone;
    }
    return setOption(word, value);
  }

  int32_t setOption(std::string_view word, const std::string &value);

  int32_t apply(Rules &rules) {
    const std::optional<MacAddress> mac = parseMac(mac_);
    if (!mac || mac_.find(':') == mac_.npos) return kBadUsage;
    const bool known =
        target_.empty() || std::ranges::find(kTargets, target_) != std::end(kTargets);
    if (!known) return kNoSuchThing;
    FilterRule rule{printMac(*mac), urlKey_, target_};
    if (operation_ == "-D") return remove(rules, rule);
    rules.insert(operation_ == "-A" ? rules.end() : rules.begin(), std::move(rule));
    return kDone;
  }

  static int32_t remove(Rules &rules, const FilterRule &rule) {
    const auto found = std::ranges::find(rules, rule);
    if (found == rules.end()) return kNoSuchThing;
    rules.erase(found);
    return kDone;
  }

  std::vector<std::string> words_;
  size_t next_ = 0;
  std::vector<std::string> matches_;
  std::string operation_;
  std::string chain_;
  std::string mac_;
  std::string urlKey_;
  std::string target_;
};

const FilterCommand::Option FilterCommand::kOptions[] = {
    {"--mac-source", &FilterCommand::mac_, "mac"},
    {"--urlkey", &FilterCommand::urlKey_, "urlfilter"},
    {"-j", &FilterCommand::target_, ""},
};

int32_t FilterCommand::setOption(std::string_view word, const std::string &value) {
  for (const Option &option : kOptions) {
    if (option.name != word) continue;
    const bool brought =
        option.match.empty() || std::ranges::find(matches_, option.match) != matches_.end();
    std::string &field = this->*option.value;
    if (!brought || !field.empty()) return kBadUsage;
    field = value;
    return kDone;
  }
  throw Refusal(kBadUsage, "an argument that no rule is made of: " + std::string(word));
}

int32_t runFilter(std::string_view program, const std::string &commandLine, Rules &rules) {
  const auto words = splitCommandLine(commandLine);
  return words ? FilterCommand(*words).run(program, rules) : kBadUsage;
}

const ProgramHandler kIptables{"iptables", [](Gateway &, const std::string &commandLine) {
                                 return runFilter("iptables", commandLine, ubusfilter().ipv4);
                               }};
const ProgramHandler kIp6tables{"ip6tables", [](Gateway &, const std::string &commandLine) {
                                  return runFilter("ip6tables", commandLine, ubusfilter().ipv6);
                                }};

}  // namespace

Ubusfilter &ubusfilter() {
  return section.state();
}

}  // namespace gateway
