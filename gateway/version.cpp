// The number of the firmware's configuration type.
#include "gateway/calls.hpp"
#include "gateway/section.hpp"

namespace gateway {

namespace {

struct Version {
  int32_t configType = 0;
};

}  // namespace

}  // namespace gateway

PM_RECORD(gateway::Version, PM_FIELD(configType).means("number of the configuration type"));

namespace gateway {

namespace {

SectionOf<Version> section{"version", "The firmware"};

}  // namespace

int32_t pm_get_version_config_type_int(int32_t *code) {
  *code = section.state().configType;
  return 0;
}

}  // namespace gateway
