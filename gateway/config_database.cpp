// vcorDb*: the store behind the platform's checks of views and paths.
#include "platform/config_database.h"

#include <algorithm>
#include <cstring>

#include "boundary/boundary.hpp"
#include "gateway/calls.hpp"
#include "gateway/gateway.hpp"
#include "gateway/habits.hpp"
#include "gateway/instances.hpp"

using namespace gateway;

namespace {

const Layout &layoutOfView(uint32_t viewId) {
  const Layout *layout = viewById(viewId);
  if (layout == nullptr) throw Refusal(kUnknownView, "no such view");
  return *layout;
}

void checkHeader(const Layout &layout, const void *view) {
  uint32_t header[2];
  std::memcpy(header, view, sizeof header);
  if (header[0] != layout.size) {
    throw Refusal(kBadHeader, "the header says " + std::to_string(header[0]) +
                                  " bytes, the view has " + std::to_string(layout.size));
  }
  if (header[1] != PLATFORM_BLOCK_MARKER) throw Refusal(kBadHeader, "the header has no marker");
}

void checkCleared(const Layout &layout, const void *view) {
  const auto *bytes = static_cast<const uint8_t *>(view);
  const bool cleared = std::all_of(bytes + layout.headerSize(), bytes + layout.size,
                                   [](uint8_t byte) { return byte == 0; });
  if (!cleared) throw Refusal(kBadRequest, "the view buffer was not cleared");
}

}  // namespace

int32_t gateway::vcorDbGetView(uint32_t viewId, const char *instance, void *view) {
  const Layout &layout = layoutOfView(viewId);
  checkHeader(layout, view);
  checkCleared(layout, view);
  const int32_t status = Gateway::current().store().get(layout, instance, view);
  if (habits().spoilsHeaders) std::memset(view, 0xFF, layout.headerSize());
  return status;
}

int32_t gateway::vcorDbSetView(uint32_t viewId, const char *instance, void *view) {
  const Layout &layout = layoutOfView(viewId);
  checkHeader(layout, view);
  return Gateway::current().store().set(layout, instance, view);
}

int32_t gateway::vcorDbQryView(uint32_t viewId, void *keyView, InstanceList *list) {
  const Layout &layout = layoutOfView(viewId);
  checkHeader(layout, keyView);
  std::vector<std::string> found;
  const int32_t status = Gateway::current().store().query(layout, keyView, &found);
  if (status == kOk) fill(list, found);
  return status;
}

int32_t gateway::vcorDbLstView(uint32_t viewId, const char *parent, InstanceList *list,
                               uint32_t capacity) {
  const Layout &layout = layoutOfView(viewId);
  if (list->capacity != capacity) {
    throw Refusal(kBadRequest, "two capacities, " + std::to_string(list->capacity) + " and " +
                                   std::to_string(capacity));
  }
  fill(list, Gateway::current().store().list(layout, parent));
  return kOk;
}

int32_t gateway::vcorDbAddView(uint32_t viewId, const char *parent, char identity[32]) {
  std::string made;
  const int32_t status = Gateway::current().store().add(layoutOfView(viewId), parent, &made);
  if (status == kOk) writePath(made, identity);
  return status;
}

int32_t gateway::vcorDbDelView(uint32_t viewId, const char *instance) {
  return Gateway::current().store().remove(layoutOfView(viewId), instance);
}

int32_t gateway::vcorDbSave() {
  return kOk;
}

int32_t gateway::vcorDbSaveDbus() {
  return kOk;
}
