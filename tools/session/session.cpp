#include "tools/session/session.hpp"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <filesystem>
#include <iostream>
#include <sstream>

#include "gateway/gateway.hpp"
#include "gateway/library_calls.hpp"
#include "gateway/profile.hpp"
#include "tools/session/fault.hpp"

namespace command {
namespace {

namespace fs = std::filesystem;

constexpr const char *kHomeRouter = "home_router.json";
constexpr const char *kItemStore = "/userconfig/nexumd_cfgfile";
// Where the examples lie, seen from the command: installed, and in a build tree.
constexpr std::array kExamples = {"../share/pmapi/examples", "../../../examples"};

std::string defaultProfile() {
  const fs::path command = fs::read_symlink("/proc/self/exe").parent_path();
  for (const char *examples : kExamples) {
    const fs::path profile = command / examples / kHomeRouter;
    if (fs::exists(profile)) return profile.lexically_normal().string();
  }
  throw InputError("no gateway profile beside the command: name one with --gateway FILE");
}

bool holdsSecret(std::string name) {
  static constexpr std::array kNames = {"password",    "passwd", "pwd",    "passphrase",
                                        "pass-phrase", "psk",    "wepkey", "presharedkey"};
  std::transform(name.begin(), name.end(), name.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return std::any_of(kNames.begin(), kNames.end(),
                     [&](const char *part) { return name.find(part) != std::string::npos; });
}

std::vector<std::string> linesOf(const std::string &content) {
  std::vector<std::string> lines;
  std::istringstream stream(content);
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

void tellOfWaiting(const std::string &fileName) {
  std::cerr << "pmapi: " << fileName << ": waiting for another command that uses it\n";
}

void printTrail(const std::string &line) {
  std::cerr << line << '\n';
}

}  // namespace

void collectSecrets(const Json &value, Secrets &secrets) {
  if (!value.is_structured()) return;
  for (const auto &[name, element] : value.items()) {
    if (value.is_object() && element.is_string() && holdsSecret(name)) {
      secrets.insert(element.get<std::string>());
    } else {
      collectSecrets(element, secrets);
    }
  }
}

Session::Session(const Options &options)
    : options_(options), trail_(options.logLevel, options.showSecrets, printTrail) {
  if (!options_.state.empty()) state_.emplace(options_.state, tellOfWaiting);
  start();
  load(fs::exists(options_.state) ? options_.state
       : options_.gateway.empty() ? defaultProfile()
                                  : options_.gateway);
}

void Session::start() {
  gateway::Gateway &gateway = gateway::Gateway::current();
  if (!gateway::takeOverLibraryCalls()) throw InputError("the library is not loaded");
  gateway.onLog([this](const gateway::LogLine &line) {
    drain();
    trail_.log(line.level, line.tag, line.line, line.function, line.code, line.text);
  });
  gateway.onComplaint([this](const std::string &text) { trail_.note("gateway: " + text); });
  if (options_.trace) {
    gateway.boundary().onCall(
        [this](const boundary::Call &call) { trail_.note("> " + boundary::toString(call)); });
  }
  gateway.clock().useRealTime(options_.realTime);
  if (options_.realTime && isatty(STDERR_FILENO) != 0) {
    gateway.clock().onSleep([this](uint32_t seconds) {
      trail_.note("pmapi: the library sleeps, " + std::to_string(seconds) + " s to wait");
    });
  }
  if (!options_.root.empty()) gateway.files().useRoot(options_.root);
}

Session::~Session() {
  gateway::Gateway &gateway = gateway::Gateway::current();
  gateway.onLog({});
  gateway.onComplaint({});
  gateway.boundary().onCall({});
  gateway.clock().onSleep({});
}

void Session::load(const std::string &profile) {
  gateway::Gateway &gateway = gateway::Gateway::current();
  // Another gateway starts without the faults of the one before.
  reportUnfired();
  try {
    gateway.loadFile(profile);
  } catch (const records::InputError &error) {
    const std::string reason = error.what();
    throw InputError(reason.starts_with(profile) ? reason : profile + ": " + reason);
  }
  collectSecrets();
  for (const std::string &rule : options_.faults) planFault(rule);
}

void Session::collectSecrets() {
  command::collectSecrets(gatewayState(), trail_.secrets());
  for (const std::string &line : readFile(kItemStore).value_or(std::vector<std::string>{})) {
    const size_t equals = line.find('=');
    if (equals != std::string::npos && holdsSecret(line.substr(0, equals))) {
      trail_.secrets().insert(line.substr(equals + 1));
    }
  }
}

void Session::drain() {
  if (capture_ == nullptr) return;
  for (const std::string &line : capture_->take()) trail_.printed(line);
}

Answer Session::call(const std::string &objectName, const std::string &methodName,
                     const Json &arguments) {
  const Object &object = findObject(objectName);
  const Method &method = findMethod(object, methodName);
  trail_.forget();
  std::cout.flush();
  OutputCapture capture;
  capture_ = &capture;
  try {
    Answer answer = invoke(object, method, arguments, trail_.secrets());
    drain();
    capture_ = nullptr;
    answer.shown = shown(answer.shown);
    return answer;
  } catch (...) {
    capture_ = nullptr;
    throw;
  }
}

Json Session::shown(const Json &value) const {
  if (options_.showSecrets) return value;
  // A secret may be the half of a character.
  if (value.is_string()) return printable(masked(value.get<std::string>(), trail_.secrets()));
  Json copy = value;
  if (value.is_structured()) {
    for (Json &element : copy) element = shown(element);
  }
  return copy;
}

void Session::planFault(const std::string &rule) {
  gateway::Gateway::current().boundary().addFault(parseFault(rule));
}

void Session::advance(int64_t seconds) {
  gateway::Gateway::current().clock().advance(seconds);
}

void Session::writeFile(const std::string &path, const std::vector<std::string> &lines) {
  std::string content;
  for (const std::string &line : lines) content += line + "\n";
  try {
    gateway::Gateway::current().files().write(path, content);
  } catch (const std::invalid_argument &error) {
    throw InputError(path, error.what());
  }
  collectSecrets();
}

std::optional<std::vector<std::string>> Session::readFile(const std::string &path) {
  try {
    const std::optional<std::string> content = gateway::Gateway::current().files().read(path);
    if (!content) return std::nullopt;
    return linesOf(*content);
  } catch (const std::invalid_argument &error) {
    throw InputError(path, error.what());
  }
}

Json Session::gatewayState() {
  return gateway::Gateway::current().save();
}

void Session::reportUnfired() {
  for (const boundary::Fault &fault : gateway::Gateway::current().boundary().unfiredFaults()) {
    trail_.note("pmapi: fault never fired: " + boundary::toString(fault));
    everyFaultFired_ = false;
  }
}

bool Session::close() {
  reportUnfired();
  if (state_) state_->replace(gateway::profileText(gateway::Gateway::current()));
  return everyFaultFired_;
}

}  // namespace command
