// The item store under any content, against a plain model of its lines.
//
// Input: a byte with the item's length, a byte with the value's, item, value, and the store itself.
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "gateway/gateway.hpp"
#include "pmapi/config.h"

namespace {

constexpr char kPath[] = "/userconfig/nexumd_cfgfile";
constexpr char kTemporary[] = "/userconfig/nexumd_cfgfile.tmp";
constexpr size_t kPiece = 4095;

gateway::Files &files() {
  return gateway::Gateway::current().files();
}

void require(bool held, const char *what) {
  if (held) return;
  std::fprintf(stderr, "the store broke its promise: %s\n", what);
  std::abort();
}

std::vector<std::string> piecesOf(std::string_view content) {
  std::vector<std::string> pieces;
  while (!content.empty()) {
    const size_t lineFeed = content.substr(0, kPiece).find('\n');
    const size_t length =
        lineFeed == std::string_view::npos ? std::min(kPiece, content.size()) : lineFeed + 1;
    pieces.emplace_back(content.substr(0, length));
    content.remove_prefix(length);
  }
  return pieces;
}

/// What a reader sees of a piece: no line feed, and nothing behind a zero byte.
std::string textOf(const std::string &piece) {
  return piece.substr(0, piece.find_first_of(std::string_view("\n\0", 2)));
}

std::string modelAdd(const std::string &content, const std::string &item,
                     const std::string &value) {
  std::string after;
  bool exists = false;
  for (const std::string &piece : piecesOf(content)) {
    std::string line = textOf(piece);
    const size_t at = line.find(item);
    if (at == std::string::npos) {
      after += piece;
      continue;
    }
    exists = true;
    const size_t nameEnd = at + item.size();
    if (line.size() == nameEnd) line += '=';
    after += (line.substr(0, nameEnd + 1) + value).substr(0, kPiece) + '\n';
  }
  if (exists) return after;
  if (!after.empty() && after.back() != '\n') after += '\n';
  return after + (item + "=" + value).substr(0, kPiece - 1) + '\n';
}

std::string modelDelete(const std::string &content, const std::string &item) {
  std::string after;
  for (const std::string &piece : piecesOf(content)) {
    after += textOf(piece).find(item) == std::string::npos ? piece : "\n";
  }
  return after;
}

/// What a read finds; false when no line matches.
bool modelGet(const std::string &content, const std::string &item, std::string *value) {
  for (const std::string &piece : piecesOf(content)) {
    const std::string line = textOf(piece);
    const size_t at = line.find(item);
    if (at == std::string::npos) continue;
    const size_t begin = std::min(line.size(), at + item.size() + 1);
    *value = line.substr(begin);
    return true;
  }
  return false;
}

std::string takeText(std::string_view &input, size_t length) {
  std::string text(input.substr(0, std::min(length, input.size())));
  input.remove_prefix(text.size());
  // A line feed in a name or value is the caller's mistake, and has no meaning to check.
  const auto unfit = [](char c) { return c == '\0' || c == '\n'; };
  text.erase(std::remove_if(text.begin(), text.end(), unfit), text.end());
  return text;
}

void checkGet(const std::string &item, const std::string &content) {
  std::string expected;
  const bool found = modelGet(content, item, &expected);
  // Exactly as large as told, so that the sanitizer sees a byte too many.
  std::vector<char> destination(1 + expected.size() % 64);
  const int32_t status = pm_ubus_config_getitem(item.c_str(), destination.data(),
                                                static_cast<int32_t>(destination.size()), kPath);
  require((status == 0) == found, "a read finds what is there");
  if (!found || item.find("interface") == std::string::npos) return;
  expected.resize(destination.size());
  require(std::equal(expected.begin(), expected.end(), destination.begin()), "the value is read");
}

void checkContent(const std::string &expected, const char *what) {
  require(files().read(kPath) == expected, what);
  require(!files().read(kTemporary).has_value(), "nothing else stays behind");
  require(files().openStreams() == 0, "files are closed");
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int *, char ***) {
  // Every rewrite waits for the disk, unless there is none.
  if (access("/dev/shm", W_OK) == 0) setenv("TMPDIR", "/dev/shm", 1);
  // The library's trace lines would bury the fuzzer's own.
  return std::freopen("/dev/null", "w", stdout) == nullptr ? 1 : 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  if (size < 2) return 0;
  std::string_view input(reinterpret_cast<const char *>(data), size);
  input.remove_prefix(2);
  const std::string item = takeText(input, data[0] % 32);
  const std::string value = takeText(input, data[1] * 17U);
  std::string content(input);
  if (item.empty()) return 0;

  gateway::Gateway::current().boundary().clearCalls();
  gateway::Gateway::current().clearLogs();
  files().write(kPath, content);
  checkGet(item, content);

  std::string record = item;
  record.resize(sizeof(UbusAddItem::item));
  record += value;
  const auto *added = reinterpret_cast<const UbusAddItem *>(record.c_str());
  require(pm_ubus_config_additem(added, kPath, kTemporary) == 0, "an item can be added");
  content = modelAdd(content, item, value);
  checkContent(content, "an added item changes its lines alone");
  checkGet(item, content);

  require(pm_ubus_config_deleteitem(item.c_str(), kPath, kTemporary) == 0, "and deleted");
  content = modelDelete(content, item);
  checkContent(content, "a deleted item blanks its lines alone");
  checkGet(item, content);
  return 0;
}
