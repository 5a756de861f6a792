#include "catalogue/contract.hpp"

#include <map>
#include <string_view>

namespace catalogue {
namespace {

/// A sentence that goes on behind a semicolon ends there.
std::string sentence(std::string_view text) {
  std::string ended(text);
  if (ended.ends_with(';')) ended.back() = '.';
  return ended;
}

/// One line of the table that is made from the headers.
struct Entry {
  enum { kSummary, kCode, kHandsOn } kind;
  const char *function;
  const char *text = "";
  int32_t code = 0;
};

constexpr Entry kEntries[] = {
#define CONTRACT(function, sentence) {Entry::kSummary, function, sentence},
#define RETURNS(function, code) {Entry::kCode, function, "", code},
#define HANDS_ON(function) {Entry::kHandsOn, function},
#include "generated/contracts.inc"
#undef CONTRACT
#undef RETURNS
#undef HANDS_ON
};

std::map<std::string, Contract> collected() {
  std::map<std::string, Contract> contracts;
  for (const Entry &entry : kEntries) {
    Contract &contract = contracts[entry.function];
    switch (entry.kind) {
      case Entry::kSummary:
        contract.summary = sentence(entry.text);
        break;
      case Entry::kCode:
        contract.codes.insert(entry.code);
        break;
      case Entry::kHandsOn:
        contract.handsOn = true;
        break;
    }
  }
  return contracts;
}

}  // namespace

const Contract &contractOf(const std::string &function) {
  static const std::map<std::string, Contract> contracts = collected();
  static const Contract kNone;
  const auto found = contracts.find(function);
  return found == contracts.end() ? kNone : found->second;
}

}  // namespace catalogue
