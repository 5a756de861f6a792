// What the library says while it works: its log lines and what it prints, as lines on standard
// error.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "records/codec.hpp"

namespace command {

using namespace records;

/// Keeps what is written to standard output out of the command's own, until it is taken.
class OutputCapture {
 public:
  OutputCapture();
  ~OutputCapture();
  OutputCapture(const OutputCapture &) = delete;
  OutputCapture &operator=(const OutputCapture &) = delete;

  /// What was written since the last time, cut into lines.
  std::vector<std::string> take();

 private:
  int output_;
  int capture_;
  long taken_ = 0;
  std::string partial_;
};

class Trail {
 public:
  /// Levels: 0 fault, 4 error, 5 information, 7 detail, 8 verbose; lines above `level` are dropped.
  Trail(int level, bool showSecrets, std::function<void(const std::string &)> print);

  /// Texts that are masked from now on.
  Secrets &secrets() { return secrets_; }
  const Secrets &secrets() const { return secrets_; }

  void log(int level, const std::string &tag, int line, const std::string &function, int code,
           const std::string &text);
  /// What the library printed itself; it counts as information.
  void printed(const std::string &text);
  /// A line of the command's own.
  void note(const std::string &text);

  /// Texts of the last call, whatever their level and with their secrets.
  const std::vector<std::string> &texts() const { return texts_; }
  void forget() { texts_.clear(); }

 private:
  void show(const std::string &prefix, const std::string &text);

  int level_;
  bool showSecrets_;
  std::function<void(const std::string &)> print_;
  Secrets secrets_;
  std::vector<std::string> texts_;
};

/// `line` with every secret in it masked. One of less than four bytes counts as a whole word only.
std::string masked(std::string line, const Secrets &secrets);

}  // namespace command
