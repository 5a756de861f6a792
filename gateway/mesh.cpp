#include "gateway/mesh.hpp"

#include <algorithm>
#include <cstring>
#include <nlohmann/json.hpp>

#include "boundary/boundary.hpp"
#include "gateway/calls.hpp"
#include "gateway/gateway.hpp"

namespace gateway {

namespace {

const std::vector<std::string_view> kStates = {"up", "down", "failing", "timing out"};
/// Levels of a profile around the dump.
constexpr int kOwnDepth = 2;
constexpr std::string_view kControlPath = "/tmp/mapd_ctrl";

[[maybe_unused]] const Mesh &registered = mesh();

void checkHandle(const void *handle) {
  if (handle != &mesh() || mesh().openHandles == 0) {
    throw Refusal(kBadRequest, "not an open control connection");
  }
}

int32_t dumpTopology(Gateway &gateway, char *buffer, int32_t *length, const char *dumpPath) {
  if (buffer == nullptr || length == nullptr || *length < 0) {
    throw Refusal(kNullArgument, "no room for the topology");
  }
  if (mesh().state == MapdState::kFailing) return MAPD_COMMAND_FAILED;
  if (mesh().state == MapdState::kTimingOut) return MAPD_TIME_OUT;
  const std::string &dump = mesh().topology;
  if (dumpPath != nullptr) gateway.files().write(dumpPath, dump);
  // The daemon terminates its text only where there is room left.
  const size_t room = static_cast<size_t>(*length);
  std::memcpy(buffer, dump.c_str(), std::min(room, dump.size() + 1));
  *length = static_cast<int32_t>(std::min(room, dump.size()));
  return MAPD_OK;
}

}  // namespace

Mesh &mesh() {
  static Mesh *const instance = new Mesh;
  return *instance;
}

void Mesh::reset() {
  state = MapdState::kDown;
  topology.clear();
  openHandles = 0;
}

void Mesh::load(const Json &value, const std::string &place) {
  Members members(value, place);
  auto chosen = static_cast<uint32_t>(MapdState::kUp);
  members.choice("state", kStates, &chosen);
  state = static_cast<MapdState>(chosen);
  if (const Json *dump = members.take("topology")) {
    topology = dump->is_string() ? dump->get<std::string>()
                                 : bytesFromUtf8(withTexts(*dump, bytesToUtf8).dump());
    if (topology.find('\0') != std::string::npos) {
      throw InputError(members.placeOf("topology"), "the text holds a zero");
    }
  }
  members.finish();
}

Json Mesh::save() const {
  Json dump = topology;
  try {
    Json parsed = parseJson(topology, "", kDeepestJson - kOwnDepth);
    // A dump that is one text, or is written in another way, is kept as the daemon wrote it.
    if (!parsed.is_string() && parsed.dump() == topology) dump = std::move(parsed);
  } catch (const InputError &) {
    // So is one that is no JSON, or is nested too deep for a profile.
  }
  return {{"state", kStates[static_cast<size_t>(state)]}, {"topology", std::move(dump)}};
}

}  // namespace gateway

using namespace gateway;

void *gateway::mapd_interface_ctrl_open(const char *controlPath) {
  if (controlPath != kControlPath || mesh().state == MapdState::kDown) return nullptr;
  ++mesh().openHandles;
  return &mesh();
}

int32_t gateway::mapd_interface_get_topology(void *handle, char *buffer, int32_t *length,
                                             const char *dumpPath) {
  checkHandle(handle);
  return dumpTopology(Gateway::current(), buffer, length, dumpPath);
}

void gateway::mapd_interface_ctrl_close(void *handle) {
  checkHandle(handle);
  --mesh().openHandles;
}
