#include "gateway/wan.hpp"

#include <cstring>

#include "boundary/boundary.hpp"
#include "gateway/calls.hpp"
#include "gateway/gateway.hpp"
#include "gateway/instances.hpp"
#include "gateway/section.hpp"
#include "platform/codes.hpp"
#include "platform/wan.hpp"

PM_RECORD(gateway::WanConnection,
          PM_FIELD(instance).atMost(31).means("path of the connection, which must be given"),
          PM_FIELD(deviceType).means("kind of its WAN device; the one in use when left out"));
PM_RECORD(gateway::Wan,
          PM_FIELD(uplink.mode).named("uplinkMode").means(platform::codes(platform::kUplinkModes)),
          PM_FIELD(uplink.port).named("uplinkPort").means("the low 16 bits are the port's number"),
          PM_FIELD(deviceType).means("kind of the WAN device in use; 1 when left out"),
          PM_FIELD(connections).means("in the platform's order; their settings are views"));

namespace gateway {

namespace {

void checkPaths(Wan &wan, const std::string &place) {
  for (size_t i = 0; i < wan.connections.size(); ++i) {
    if (!wan.connections[i].instance.empty()) continue;
    throw InputError(placeOf(placeOf(placeOf(place, "connections"), i), "instance"), "is missing");
  }
}

SectionOf<Wan> section{"wan", "The uplink and the order of the WAN connections", {checkPaths}};

}  // namespace

Wan &wan() {
  return section.state();
}

int32_t pm_upmode_info_get(UpModeInfo *info) {
  *info = wan().uplink;
  return kOk;
}

int32_t pm_upmode_info_set(const UpModeInfo *, const UpModeInfo *newMode, UpModeBlock *block) {
  const Row given = fieldsOf<UpModeBlock>(block);
  const UpModeInfo &current = wan().uplink;
  if (given.word(UpModeBlock::mode) != current.mode ||
      given.word(UpModeBlock::port) != current.port) {
    throw Refusal(kBadRequest, "the block does not begin with the mode that stands");
  }
  wan().uplink = *newMode;
  return kOk;
}

int32_t pm_e8_wanc_get_current_wandtype(WanDeviceTypeRecord *record) {
  fieldsOf<WanDeviceTypeRecord>(record).setWord(WanDeviceTypeRecord::wanDeviceType,
                                                wan().deviceType);
  return kOk;
}

int32_t pm_e8_wanc_list_all_wanc_by_wand(const char *parent, uint32_t wanDeviceType,
                                         WanConnectionList *list) {
  const std::string prefix = std::string(parent) + ".";
  if (list->marker != PLATFORM_BLOCK_MARKER) throw Refusal(kBadHeader, "the list has no marker");
  if (!list->workArea1 || !list->workArea2 || !list->workArea3) {
    throw Refusal(kNullArgument, "the list has no work areas");
  }
  std::vector<std::string> paths;
  for (const WanConnection &connection : wan().connections) {
    const bool isOfType = connection.deviceType.value_or(wan().deviceType) == wanDeviceType;
    if (isOfType && connection.instance.starts_with(prefix)) paths.push_back(connection.instance);
  }
  list->dwCount = writePaths(paths, list->capacity, list->instances);
  // The platform works in the caller's room; what is left there means nothing.
  std::memset(list->workArea1, 0xa5, WAN_CONNECTION_WORK_AREA_1_SIZE);
  std::memset(list->workArea2, 0xa5, WAN_CONNECTION_WORK_AREA_2_SIZE);
  std::memset(list->workArea3, 0xa5, WAN_CONNECTION_WORK_AREA_3_SIZE);
  return kOk;
}

int32_t plib_ifs_get_routeif_info(const char *instance, RouteInfoRecord *record) {
  return store().get(instance, record);
}

}  // namespace gateway
