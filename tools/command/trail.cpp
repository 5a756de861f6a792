#include "tools/command/trail.hpp"

#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <cerrno>
#include <cstdio>
#include <system_error>
#include <utility>

namespace command {
namespace {

constexpr int kInformation = 5;
constexpr size_t kUsualText = 31;
constexpr size_t kShortSecret = 4;

// Log texts end their lines in several ways, and some begin with one.
std::string oneLine(std::string_view text) {
  const auto isEnd = [](char c) { return c == '\n' || c == '\r'; };
  while (!text.empty() && isEnd(text.back())) text.remove_suffix(1);
  std::string line;
  for (const char c : text) {
    if (c == '\n') {
      line += "\\n";
    } else if (c == '\r') {
      line += "\\r";
    } else if (static_cast<unsigned char>(c) < ' ' && c != '\t') {
      line += '?';
    } else {
      line += c;
    }
  }
  return printable(line);
}

bool isWordCharacter(char c) {
  return std::isalnum(static_cast<unsigned char>(c)) != 0;
}

bool standsAlone(const std::string &line, size_t begin, size_t end) {
  return (begin == 0 || !isWordCharacter(line[begin - 1])) &&
         (end == line.size() || !isWordCharacter(line[end]));
}

}  // namespace

OutputCapture::OutputCapture() : output_(dup(STDOUT_FILENO)), capture_(memfd_create("stdout", 0)) {
  if (output_ < 0 || capture_ < 0) {
    throw std::system_error(errno, std::generic_category(), "standard output");
  }
  std::fflush(stdout);
  dup2(capture_, STDOUT_FILENO);
}

OutputCapture::~OutputCapture() {
  std::fflush(stdout);
  dup2(output_, STDOUT_FILENO);
  close(output_);
  close(capture_);
}

std::vector<std::string> OutputCapture::take() {
  std::fflush(stdout);
  std::array<char, 4096> block;
  ssize_t length;
  while ((length = pread(capture_, block.data(), block.size(), taken_)) > 0) {
    partial_.append(block.data(), static_cast<size_t>(length));
    taken_ += length;
  }
  std::vector<std::string> lines;
  size_t end;
  while ((end = partial_.find('\n')) != std::string::npos) {
    lines.push_back(partial_.substr(0, end));
    partial_.erase(0, end + 1);
  }
  if (!partial_.empty()) lines.push_back(std::exchange(partial_, {}));
  return lines;
}

Trail::Trail(int level, bool showSecrets, std::function<void(const std::string &)> print)
    : level_(level), showSecrets_(showSecrets), print_(std::move(print)) {}

void Trail::log(int level, const std::string &tag, int line, const std::string &function, int code,
                const std::string &text) {
  texts_.push_back(text);
  if (level > level_) return;
  const std::string place = tag + ":" + std::to_string(line) + " " + function;
  const std::string status = code == 0 ? "" : " (" + std::to_string(code) + ")";
  show(std::to_string(level) + " " + place + status + ": ", text);
}

void Trail::printed(const std::string &text) {
  texts_.push_back(text);
  if (level_ >= kInformation) show("- ", text);
}

void Trail::note(const std::string &text) {
  show("", text);
}

void Trail::show(const std::string &prefix, const std::string &text) {
  print_(prefix + oneLine(showSecrets_ ? text : masked(text, secrets_)));
}

std::string masked(std::string line, const Secrets &secrets) {
  std::vector<std::string> patterns(secrets.begin(), secrets.end());
  // Most records keep no more of a text than this.
  for (const std::string &secret : secrets) patterns.push_back(secret.substr(0, kUsualText));
  // A secret may begin with another one.
  std::sort(patterns.begin(), patterns.end(),
            [](const std::string &a, const std::string &b) { return a.size() > b.size(); });
  for (const std::string &pattern : patterns) {
    if (pattern.empty()) continue;
    const bool isShort = pattern.size() < kShortSecret;
    size_t at = 0;
    while ((at = line.find(pattern, at)) != std::string::npos) {
      if (isShort && !standsAlone(line, at, at + pattern.size())) {
        ++at;
        continue;
      }
      line.replace(at, pattern.size(), kMask);
      at += kMask.size();
    }
  }
  return line;
}

}  // namespace command
