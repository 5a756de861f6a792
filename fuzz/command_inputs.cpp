// What a user hands the command, damaged in any way: it is done, or refused with a reason, and the
// gateway that comes of it can be saved.
//
// Input: a scenario, or "OBJECT METHOD" and on the next line the arguments of the call.
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <string_view>

#include "gateway/gateway.hpp"
#include "gateway/profile.hpp"
#include "tools/command/output.hpp"
#include "tools/command/transcript.hpp"
#include "tools/session/session.hpp"

namespace {

using gateway::Gateway;

void require(bool held, const std::string &what) {
  if (held) return;
  std::fprintf(stderr, "the command broke its promise: %s\n", what.c_str());
  std::abort();
}

/// A session that reads no other file than its own profile.
class Sandbox : public command::Session {
 public:
  Sandbox() : Session(small()), profile_(gatewayState()) {
    std::cout.rdbuf(nullptr);
    std::cerr.rdbuf(nullptr);
  }

  void load(const std::string & /*profile*/) override {
    throw records::InputError("gateway", "not here");
  }

  void startOver() { Gateway::current().load(profile_); }

 private:
  /// Every input starts over with it.
  static command::Options small() {
    command::Options options;
    options.gateway = PMAPI_EXAMPLES_DIR "/wifi_repeater.json";
    return options;
  }

  records::Json profile_;
};

std::string takeUpTo(char end, std::string_view &input) {
  const size_t length = std::min(input.find(end), input.size());
  const std::string taken(input.substr(0, length));
  input.remove_prefix(std::min(length + 1, input.size()));
  return taken;
}

void callOnce(Sandbox &sandbox, std::string_view input) {
  const std::string object = takeUpTo(' ', input);
  const std::string method = takeUpTo('\n', input);
  const catalogue::Answer answer = sandbox.call(object, method, records::parseJson(input, "JSON"));
  command::printAnswer(answer.shown, input.size() % 2 == 0);
}

void play(Sandbox &sandbox, std::string_view input) {
  using command::Playing;
  std::istringstream lines{std::string(input)};
  const Playing playing = input.size() % 2 == 0 ? Playing::kRecord : Playing::kCheck;
  playTranscript(lines, "scenario", playing, {}, sandbox);
}

void requireReason(const std::exception &error) {
  const std::string reason = error.what();
  require(!reason.empty() && reason.find("exception") == std::string::npos, "a reason: " + reason);
}

}  // namespace

// Limits that were deleted leave their list without being given back.
extern "C" const char *__asan_default_options() {
  return "detect_leaks=0";
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  static auto *const sandbox = new Sandbox;
  sandbox->startOver();
  const std::string_view input(reinterpret_cast<const char *>(data), size);
  const bool isScenario = input.starts_with('{') || input.starts_with('#');
  try {
    isScenario ? play(*sandbox, input) : callOnce(*sandbox, input);
  } catch (const records::InputError &error) {
    requireReason(error);
  }
  const gateway::Json saved = sandbox->gatewayState();
  Gateway::current().load(gateway::parseProfile(gateway::profileText(Gateway::current()), "state"));
  require(sandbox->gatewayState() == saved, "a saved gateway is the same gateway");
  return 0;
}
