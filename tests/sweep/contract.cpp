#include "tests/sweep/contract.hpp"

#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <sstream>
#include <stdexcept>

namespace gateway::testing {

namespace {

using Contracts = std::map<std::string, Contract>;

bool saysSomething(const Contract &contract) {
  return contract.handsOn || !contract.named.empty();
}

Contract contractIn(const std::string &comment) {
  static const std::regex kNumber(R"(@retval\s+(-?(?:0x)?[0-9A-Fa-f]+))");
  Contract contract;
  for (std::sregex_iterator found(comment.begin(), comment.end(), kNumber), end; found != end;
       ++found) {
    contract.named.insert(static_cast<int32_t>(std::stoll((*found)[1], nullptr, 0)));
  }
  const size_t other = comment.find("@return");
  if (other != std::string::npos) {
    // "@return always 0" and "@return 0 or the status of ...".
    const std::string words = comment.substr(other, comment.find_first_of(".;\n", other) - other);
    if (std::regex_search(words, std::regex(R"(\b0\b)"))) contract.named.insert(0);
    contract.handsOn = words.find("always") == std::string::npos;
  }
  return contract;
}

/// What a group says holds for each function in it.
Contract joined(Contract own, const Contract &group) {
  own.named.insert(group.named.begin(), group.named.end());
  own.handsOn |= group.handsOn;
  return own;
}

void read(const std::string &header, Contracts &contracts) {
  static const std::regex kPart(R"(/\*\*([^*]|\*(?!/))*\*/|PMAPI_EXPORT\s[^;(]*?(\w+)\()");
  Contract group;
  Contract own;
  for (std::sregex_iterator part(header.begin(), header.end(), kPart), end; part != end; ++part) {
    const std::string text = part->str();
    if (!text.starts_with("/**")) {
      Contract &contract = contracts[(*part)[2]] = joined(own, group);
      // The command shows a 0 for it.
      if (text.starts_with("PMAPI_EXPORT void ")) contract.named.insert(0);
      own = {};
    } else if (text.find("@{") != std::string::npos) {
      group = contractIn(text);
    } else if (text.find("@}") != std::string::npos) {
      group = {};
    } else {
      own = contractIn(text);
    }
  }
}

Contracts readAll() {
  Contracts contracts;
  for (const auto &entry : std::filesystem::directory_iterator(PMAPI_SOURCE_DIR "/include/pmapi")) {
    std::ostringstream text;
    text << std::ifstream(entry.path()).rdbuf();
    read(text.str(), contracts);
  }
  return contracts;
}

}  // namespace

const Contract &contractOf(const std::string &function) {
  static const Contracts contracts = readAll();
  const auto found = contracts.find(function);
  if (found == contracts.end() || !saysSomething(found->second)) {
    throw std::runtime_error("no header says what " + function + " returns");
  }
  return found->second;
}

}  // namespace gateway::testing
