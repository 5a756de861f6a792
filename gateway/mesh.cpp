#include "gateway/mesh.hpp"

#include <algorithm>
#include <cstring>

#include "boundary/boundary.hpp"
#include "gateway/calls.hpp"
#include "gateway/gateway.hpp"
#include "gateway/section.hpp"

namespace gateway {

constexpr platform::Code kMapdStates[] = {
    {0, "up"}, {1, "down"}, {2, "failing"}, {3, "timing out"}};

}  // namespace gateway

PM_RECORD(gateway::Mesh,
          PM_FIELD(state).means(platform::codes(gateway::kMapdStates)).means("up when left out"),
          PM_FIELD(topology).document().means("the dump, as text or as the JSON in it"));

namespace gateway {

namespace {

/// A mesh that a profile speaks of has its daemon.
void checkState(Mesh &mesh, const std::string &place) {
  if (!mesh.state) mesh.state = MapdState::kUp;
  if (*mesh.state > MapdState::kTimingOut) throw InputError(placeOf(place, "state"), "is no state");
}

SectionOf<Mesh> section{"mesh", "The multi-AP daemon", {checkState}};

constexpr std::string_view kControlPath = "/tmp/mapd_ctrl";

void checkHandle(const void *handle) {
  if (handle != &mesh() || mesh().openHandles == 0) {
    throw Refusal(kBadRequest, "not an open control connection");
  }
}

}  // namespace

Mesh &mesh() {
  return section.state();
}

void *mapd_interface_ctrl_open(const char *controlPath) {
  const bool isDown = mesh().state.value_or(MapdState::kDown) == MapdState::kDown;
  if (controlPath != kControlPath || isDown) return nullptr;
  ++mesh().openHandles;
  return &mesh();
}

int32_t mapd_interface_get_topology(void *handle, char *buffer, int32_t *length,
                                    const char *dumpPath) {
  checkHandle(handle);
  if (*length < 0) throw Refusal(kNullArgument, "no room for the topology");
  if (mesh().state == MapdState::kFailing) return MAPD_COMMAND_FAILED;
  if (mesh().state == MapdState::kTimingOut) return MAPD_TIME_OUT;
  const std::string &dump = mesh().topology;
  Gateway::current().files().write(dumpPath, dump);
  // The daemon terminates its text only where there is room left.
  const auto room = static_cast<size_t>(*length);
  std::memcpy(buffer, dump.c_str(), std::min(room, dump.size() + 1));
  *length = static_cast<int32_t>(std::min(room, dump.size()));
  return MAPD_OK;
}

void mapd_interface_ctrl_close(void *handle) {
  checkHandle(handle);
  --mesh().openHandles;
}

}  // namespace gateway
