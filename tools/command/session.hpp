// The daemon's place: a virtual gateway, the library on top of it, and everything they say.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "tools/catalogue/answer.hpp"
#include "tools/catalogue/catalogue.hpp"
#include "tools/command/trail.hpp"

namespace command {

struct Options {
  std::string gateway;  ///< profile; empty: the home router beside the examples
  std::string state;
  std::string root;
  std::vector<std::string> faults;
  bool trace = false;
  int logLevel = 4;
  bool realTime = false;
  bool table = false;
  bool showSecrets = false;
};

class Session {
 public:
  /// Starts the gateway; throws UsageError.
  explicit Session(const Options &options);
  ~Session();
  Session(const Session &) = delete;
  Session &operator=(const Session &) = delete;

  Answer call(const std::string &object, const std::string &method, const Json &arguments);

  /// `value` as it may be printed: secrets that the gateway or the user gave are masked in it.
  Json shown(const Json &value) const;

  void load(const std::string &profile);
  void planFault(const std::string &rule);
  void advance(int64_t seconds);
  void writeFile(const std::string &path, const std::vector<std::string> &lines);
  /// Nothing when there is no such file.
  std::optional<std::vector<std::string>> readFile(const std::string &path);
  Json gatewayState();

  const Trail &trail() const { return trail_; }

  /// Keeps the state; false when a planned fault never fired.
  bool close();

 private:
  void start();
  void collectSecrets();
  void reportUnfired();
  void drain();

  Options options_;
  Trail trail_;
  OutputCapture *capture_ = nullptr;
  bool everyFaultFired_ = true;
};

/// Keeps texts of members that hold passwords or keys, wherever they are in `value`.
void collectSecrets(const Json &value, Secrets &secrets);

}  // namespace command
