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

const std::filesystem::path kHeaders = PMAPI_SOURCE_DIR "/include/pmapi";

std::string textOf(const std::filesystem::path &header) {
  std::ostringstream text;
  text << std::ifstream(header).rdbuf();
  return text.str();
}

/// The library's codes by their names. 0 and 1 are answers, too: of those who say no or yes.
std::map<std::string, int32_t> readCodes() {
  static const std::regex kCode(R"((PM_STATUS_\w+) = (-?\d+))");
  std::map<std::string, int32_t> codes = {{"0", 0}, {"1", 1}};
  const std::string header = textOf(kHeaders / "status.h");
  for (std::sregex_iterator code(header.begin(), header.end(), kCode), end; code != end; ++code) {
    codes[(*code)[1]] = std::stoi((*code)[2]);
  }
  return codes;
}

int32_t codeNamed(const std::string &name) {
  static const std::map<std::string, int32_t> codes = readCodes();
  const auto found = codes.find(name);
  if (found == codes.end()) throw std::runtime_error("status.h names no " + name);
  return found->second;
}

bool saysSomething(const Contract &contract) {
  return contract.handsOn || !contract.named.empty();
}

Contract contractIn(const std::string &comment) {
  static const std::regex kCode(R"(@retval\s+(\S+))");
  Contract contract;
  for (std::sregex_iterator found(comment.begin(), comment.end(), kCode), end; found != end;
       ++found) {
    contract.named.insert(codeNamed((*found)[1]));
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
  for (const auto &entry : std::filesystem::directory_iterator(kHeaders)) {
    read(textOf(entry.path()), contracts);
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
