// The search for the upstream gateway's MAC in any ARP table, against a plain model of its words.
//
// Input: the table.
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>

#include "gateway/gateway.hpp"
#include "pmapi/uplinkinfo.h"

namespace {

constexpr size_t kHeader = 78;
constexpr size_t kLongestPiece = 127;
constexpr std::array<size_t, 6> kWidths = {15, 7, 7, 31, 19, 7};
constexpr size_t kMac = 3;
constexpr size_t kDevice = 5;
constexpr std::string_view kBlanks = " \t\n\v\f\r";

void require(bool held, const char *what) {
  if (held) return;
  std::fprintf(stderr, "the ARP reader broke its promise: %s\n", what);
  std::abort();
}

/// The next word, as far as its column goes; what is left of it belongs to the next column.
std::optional<std::string> takeWord(std::string_view &rest, size_t width) {
  const size_t begin = rest.find_first_not_of(kBlanks);
  if (begin == std::string_view::npos) return std::nullopt;
  rest.remove_prefix(begin);
  const std::string_view word = rest.substr(0, std::min(rest.find_first_of(kBlanks), width));
  rest.remove_prefix(word.size());
  return std::string(word);
}

/// What one read of a line gives, a C text that ends at its first zero.
std::optional<std::string_view> takePiece(std::string_view &table) {
  if (table.empty()) return std::nullopt;
  const size_t lineEnd = std::min(table.find('\n'), table.size() - 1) + 1;
  const std::string_view piece = table.substr(0, std::min(lineEnd, kLongestPiece));
  table.remove_prefix(piece.size());
  return piece.substr(0, piece.find('\0'));
}

/// The beginning of the next line; the rest of it is passed over.
std::optional<std::string_view> takeLine(std::string_view &table) {
  const std::optional<std::string_view> line = takePiece(table);
  std::optional<std::string_view> piece = line;
  while (piece && piece->find('\n') == std::string_view::npos) piece = takePiece(table);
  return line;
}

/// The words of a line; nothing when it lacks some.
std::optional<std::array<std::string, kWidths.size()>> wordsOf(std::string_view line) {
  std::array<std::string, kWidths.size()> words;
  for (size_t i = 0; i < words.size(); ++i) {
    const std::optional<std::string> word = takeWord(line, kWidths[i]);
    if (!word) return std::nullopt;
    words[i] = *word;
  }
  return words;
}

std::string expectedMac(std::string_view table) {
  if (table.size() <= kHeader) return {};
  table.remove_prefix(kHeader);
  while (const std::optional<std::string_view> line = takeLine(table)) {
    const auto words = wordsOf(*line);
    if (words && (*words)[kDevice].find("nbif") != std::string::npos) return (*words)[kMac];
  }
  return {};
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int *, char ***) {
  if (access("/dev/shm", W_OK) == 0) setenv("TMPDIR", "/dev/shm", 1);
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  gateway::Gateway &gateway = gateway::Gateway::current();
  gateway.boundary().clearCalls();
  gateway.clearLogs();
  const std::string table(reinterpret_cast<const char *>(data), size);
  gateway.files().write("/proc/net/arp", table);

  // The reader leaves the table open; thousands of runs need its descriptor back.
  const int descriptor = dup(STDERR_FILENO);
  close(descriptor);
  const size_t before = gateway.files().openStreams();
  char mac[32] = {};
  require(ubus_getGatewayMac(mac) == 0, "any table can be searched");
  require(expectedMac(table) == mac, "the first entry of an uplink interface is found");
  require(gateway.files().openStreams() == before + 1, "the table stays open");
  close(descriptor);
  return 0;
}
