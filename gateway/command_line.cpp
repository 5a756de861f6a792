#include "gateway/command_line.hpp"

#include "boundary/boundary.hpp"

namespace gateway {

using namespace boundary;

namespace {

constexpr std::string_view kBlanks = " \t";
constexpr std::string_view kActsUnquoted = "$`;&|<>()*?[]{}#~\n\r";
constexpr std::string_view kActsInDoubleQuotes = "$`";
constexpr std::string_view kEscapedInDoubleQuotes = "$`\"\\\n";

class Splitter {
 public:
  explicit Splitter(std::string_view line) : rest_(line) {}

  std::optional<std::vector<std::string>> split() {
    while (!rest_.empty()) {
      const char next = take();
      if (kBlanks.find(next) != kBlanks.npos) {
        endWord();
      } else if (next == '\'') {
        if (!singleQuoted()) return std::nullopt;
      } else if (next == '"') {
        if (!doubleQuoted()) return std::nullopt;
      } else if (next == '\\') {
        if (rest_.empty()) return std::nullopt;
        append(take());
      } else {
        refuseIn(kActsUnquoted, next);
        append(next);
      }
    }
    endWord();
    return words_;
  }

 private:
  char take() {
    const char next = rest_.front();
    rest_.remove_prefix(1);
    return next;
  }

  void append(char character) {
    inWord_ = true;
    word_ += character;
  }

  void endWord() {
    if (!inWord_) return;
    words_.push_back(std::move(word_));
    word_.clear();
    inWord_ = false;
  }

  bool singleQuoted() {
    inWord_ = true;
    while (!rest_.empty()) {
      const char next = take();
      if (next == '\'') return true;
      append(next);
    }
    return false;
  }

  bool doubleQuoted() {
    inWord_ = true;
    while (!rest_.empty()) {
      const char next = take();
      if (next == '"') return true;
      if (next == '\\' && !rest_.empty() &&
          kEscapedInDoubleQuotes.find(rest_.front()) != rest_.npos) {
        append(take());
        continue;
      }
      refuseIn(kActsInDoubleQuotes, next);
      append(next);
    }
    return false;
  }

  static void refuseIn(std::string_view acting, char character) {
    if (acting.find(character) == acting.npos) return;
    throw Refusal(kBadRequest,
                  std::string("a shell would act on '") + character + "' in the command line");
  }

  std::string_view rest_;
  std::vector<std::string> words_;
  std::string word_;
  bool inWord_ = false;
};

}  // namespace

std::optional<std::vector<std::string>> splitCommandLine(std::string_view line) {
  return Splitter(line).split();
}

}  // namespace gateway
