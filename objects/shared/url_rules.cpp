#include "objects/shared/url_rules.hpp"

#include <cstdio>
#include <cstring>
#include <string_view>

#include "frame/parse.hpp"
#include "platform/host.h"

namespace pm {

namespace {

constexpr size_t kCommandSize = 256;
constexpr size_t kMacLength = sizeof LmtUrlCfg::mac - 1;
constexpr char kCommandFormat[] =
    "%s %s ubusfilter -m mac --mac-source %.31s -m urlfilter --urlkey \"%.*s\" -j DROP ";

bool isControl(char character) {
  const auto code = static_cast<uint8_t>(character);
  return code < 0x20 || code == 0x7F;
}

/// Keywords are written by others, and a command line is read by a shell or by something like it.
/// Between the quotes only what ends or expands a quoted text is unsafe.
bool isSafeKeyword(std::string_view keyword) {
  for (const char character : keyword) {
    if (isControl(character) || strchr("\"\\$`", character) != nullptr) return false;
  }
  return true;
}

bool isLetterOrDigit(char character) {
  const char lower = static_cast<char>(character | 0x20);
  return (lower >= 'a' && lower <= 'z') || (character >= '0' && character <= '9');
}

/// The MAC stands without quotes.
bool isSafeMac(std::string_view mac) {
  for (const char character : mac) {
    if (!isLetterOrDigit(character) && strchr(":-._", character) == nullptr) return false;
  }
  return true;
}

int32_t runRule(const char *program, const char *operation, const char *mac,
                std::string_view keyword, char (&command)[kCommandSize]) {
  snprintf(command, kCommandSize, kCommandFormat, program, operation, mac,
           static_cast<int>(keyword.size()), keyword.data());
  return PcStartProgram(program, command, 0, 0);
}

}  // namespace

void runUrlRules(const Trail &log, const LmtUrlCfg &config, const char *operation) {
  if (const std::string_view mac(config.mac, strnlen(config.mac, kMacLength)); !isSafeMac(mac)) {
    PM_LOG(log, kError, 0, "[%s] mac %.*s is refused\n", log.function, static_cast<int>(mac.size()),
           mac.data());
    return;
  }
  char command[kCommandSize];
  const char *rest = config.LimitURL;
  std::string_view keyword;
  while (nextListItem(rest, keyword)) {
    if (!isSafeKeyword(keyword)) {
      PM_LOG(log, kError, 0, "[%s] url keyword %.*s is refused\n", log.function,
             static_cast<int>(keyword.size()), keyword.data());
      continue;
    }
    const int32_t status = runRule("iptables", operation, config.mac, keyword, command);
    PM_LOG(log, kInfo, 0, "Execute Cmd:%s iRet:%d\n", command, status);
    runRule("ip6tables", operation, config.mac, keyword, command);
  }
}

}  // namespace pm
