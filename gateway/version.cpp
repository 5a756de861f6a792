// The number of the firmware's configuration type.
#include <nlohmann/json.hpp>

#include "boundary/boundary.hpp"
#include "gateway/calls.hpp"
#include "gateway/gateway.hpp"
#include "gateway/section.hpp"
#include "platform/device.h"

namespace gateway {

namespace {

class Version : public Section {
 public:
  Version() : Section("version") {}

  int64_t configType = 0;

  void load(const Json &value, const std::string &place) override {
    Members members(value, place);
    members.number("configType", &configType);
    members.finish();
  }
  Json save() const override { return {{"configType", configType}}; }
  void reset() override { configType = 0; }
};

Version version;

}  // namespace

}  // namespace gateway

using namespace gateway;

int32_t gateway::pm_get_version_config_type_int(int32_t *code) {
  *code = static_cast<int32_t>(version.configType);
  return kOk;
}
