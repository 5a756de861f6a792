#include "gateway/wan.hpp"

#include <cstring>
#include <nlohmann/json.hpp>

#include "boundary/boundary.hpp"
#include "gateway/calls.hpp"
#include "gateway/gateway.hpp"
#include "gateway/instances.hpp"
#include "platform/wan.hpp"

namespace gateway {

namespace {

[[maybe_unused]] const Wan &registered = wan();

}  // namespace

Wan &wan() {
  static Wan *const instance = new Wan;
  return *instance;
}

void Wan::reset() {
  uplink = {UP_MODE_ETHERNET, 0};
  deviceType = 1;
  connections.clear();
}

void Wan::load(const Json &value, const std::string &place) {
  Members members(value, place);
  members.word("uplinkMode", &uplink.mode);
  members.word("uplinkPort", &uplink.port);
  members.word("deviceType", &deviceType);
  members.each("connections", [&](const Json &element, const std::string &elementPlace) {
    WanConnection connection{"", deviceType};
    Members one(element, elementPlace);
    one.text("instance", &connection.instance);
    one.word("deviceType", &connection.deviceType);
    one.finish();
    if (connection.instance.empty() || connection.instance.size() >= PLATFORM_INSTANCE_SIZE) {
      throw InputError(one.placeOf("instance"), "must be a path of 1 to 31 characters");
    }
    connections.push_back(std::move(connection));
  });
  members.finish();
}

Json Wan::save() const {
  Json list = Json::array();
  for (const WanConnection &connection : connections) {
    list.push_back({{"instance", connection.instance}, {"deviceType", connection.deviceType}});
  }
  return {{"uplinkMode", uplink.mode},
          {"uplinkPort", uplink.port},
          {"deviceType", deviceType},
          {"connections", std::move(list)}};
}

}  // namespace gateway

using namespace gateway;

int32_t gateway::pm_upmode_info_get(UpModeInfo *info) {
  *info = wan().uplink;
  return kOk;
}

int32_t gateway::pm_upmode_info_set(const UpModeInfo *, const UpModeInfo *newMode,
                                    UpModeBlock *block) {
  const Row given = fieldsOf<UpModeBlock>(block);
  const UpModeInfo &current = wan().uplink;
  if (given.word(UpModeBlock::mode) != current.mode ||
      given.word(UpModeBlock::port) != current.port) {
    throw Refusal(kBadRequest, "the block does not begin with the mode that stands");
  }
  wan().uplink = *newMode;
  return kOk;
}

int32_t gateway::pm_e8_wanc_get_current_wandtype(WanDeviceTypeRecord *record) {
  fieldsOf<WanDeviceTypeRecord>(record).setWord(WanDeviceTypeRecord::wanDeviceType,
                                                wan().deviceType);
  return kOk;
}

int32_t gateway::pm_e8_wanc_list_all_wanc_by_wand(const char *parent, uint32_t wanDeviceType,
                                                  WanConnectionList *list) {
  const std::string prefix = std::string(parent) + ".";
  if (list->marker != PLATFORM_BLOCK_MARKER) throw Refusal(kBadHeader, "the list has no marker");
  if (!list->workArea1 || !list->workArea2 || !list->workArea3) {
    throw Refusal(kNullArgument, "the list has no work areas");
  }
  std::vector<std::string> paths;
  for (const WanConnection &connection : wan().connections) {
    const bool listed =
        connection.deviceType == wanDeviceType && connection.instance.starts_with(prefix);
    if (listed) paths.push_back(connection.instance);
  }
  list->dwCount = writePaths(paths, list->capacity, list->instances);
  // The platform works in the caller's room; what is left there means nothing.
  std::memset(list->workArea1, 0xa5, WAN_CONNECTION_WORK_AREA_1_SIZE);
  std::memset(list->workArea2, 0xa5, WAN_CONNECTION_WORK_AREA_2_SIZE);
  std::memset(list->workArea3, 0xa5, WAN_CONNECTION_WORK_AREA_3_SIZE);
  return kOk;
}

int32_t gateway::plib_ifs_get_routeif_info(const char *instance, RouteInfoRecord *record) {
  Gateway &gateway = Gateway::current();
  const std::string path = instance;
  return gateway.store().get(layoutOf<RouteInfoRecord>(), path, record);
}
