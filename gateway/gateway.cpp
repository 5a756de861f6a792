#include "gateway/gateway.hpp"

#include <cstdlib>
#include <nlohmann/json.hpp>
#include <utility>

#include "gateway/host.hpp"
#include "gateway/library_calls.hpp"
#include "gateway/manager.hpp"
#include "gateway/profile.hpp"
#include "gateway/section.hpp"

namespace gateway {

Gateway &Gateway::current() {
  // Never destroyed: the library may close files and give blocks back until the process is gone.
  static Gateway *const gateway = [] {
    std::atexit([] { current().files().reset(); });
    return new Gateway;
  }();
  takeOverLibraryCalls();
  return *gateway;
}

Gateway::Gateway() = default;

void Gateway::reset() {
  store_.clear();
  boundary().reset();
  clock_.reset();
  files_.reset();
  logs_.clear();
  logResult_ = 0;
  for (Section *section : Section::all()) section->reset();
  blocks().startCounting();
  receivedMessages().clear();
}

void Gateway::load(const Json &profile) {
  reset();
  loadProfile(*this, profile);
}

void Gateway::loadFile(const std::string &fileName) {
  load(readProfile(fileName));
}

Json Gateway::save() {
  return saveProfile(*this);
}

void Gateway::log(LogLine line) {
  if (logSink_) logSink_(line);
  logs_.push_back(std::move(line));
}

}  // namespace gateway
