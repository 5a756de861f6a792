// The daemon's place: a virtual gateway, the library on top of it, and everything they say.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "gateway/text_file.hpp"
#include "tools/command/stage.hpp"

namespace command {

using namespace catalogue;
using namespace records;

struct Options : Printing {
  std::string gateway;  ///< profile; empty: the home router beside the examples
  std::string state;
  std::string root;
  std::vector<std::string> faults;
  bool trace = false;
  int logLevel = 4;
  bool realTime = false;
};

class Session : public Stage {
 public:
  /// Starts the gateway; throws InputError.
  explicit Session(const Options &options);
  ~Session() override;
  Session(const Session &) = delete;
  Session &operator=(const Session &) = delete;

  Answer call(const std::string &object, const std::string &method, const Json &arguments) override;

  Json shown(const Json &value) const override;

  void load(const std::string &profile) override;
  void planFault(const std::string &rule) override;
  void advance(int64_t seconds) override;
  void writeFile(const std::string &path, const std::vector<std::string> &lines) override;
  std::optional<std::vector<std::string>> readFile(const std::string &path) override;
  Json gatewayState() override;

  const Trail &trail() const override { return trail_; }

  /// Keeps the state; false when a planned fault never fired.
  bool close();

 private:
  void start();
  void collectSecrets();
  void reportUnfired();
  void drain();

  Options options_;
  std::optional<gateway::OwnedFile> state_;
  Trail trail_;
  OutputCapture *capture_ = nullptr;
  bool everyFaultFired_ = true;
};

/// Keeps texts of members that hold passwords or keys, wherever they are in `value`.
void collectSecrets(const Json &value, Secrets &secrets);

}  // namespace command
