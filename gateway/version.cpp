// The number of the firmware's configuration type.
#include <nlohmann/json.hpp>

#include "gateway/boundary.hpp"
#include "gateway/section.hpp"
#include "platform/device.h"

namespace gateway {

namespace {

constexpr int32_t kLeftBehind = 0x5a5a5a5a;

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

int32_t pm_get_version_config_type_int(int32_t *code) {
  const int32_t status = boundary::status("pm_get_version_config_type_int", "", [&](Gateway &) {
    if (code == nullptr) throw Refusal(kNullArgument, "nowhere to write");
    *code = static_cast<int32_t>(version.configType);
    return kOk;
  });
  // A call that fails promises nothing about the room it was given.
  if (status != kOk && code != nullptr) *code = kLeftBehind;
  return status;
}
