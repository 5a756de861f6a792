#include "records/layouts.hpp"

#include <algorithm>
#include <stdexcept>

#include "platform/attached_devices.hpp"
#include "platform/device.hpp"
#include "platform/firewall.hpp"
#include "platform/limits.hpp"
#include "platform/ports.hpp"
#include "platform/sampling.hpp"
#include "platform/timers.hpp"
#include "platform/traffic_rules.hpp"
#include "platform/wan.hpp"
#include "platform/wlan.hpp"
#include "records/collect.hpp"

namespace records {

namespace {

using namespace platform;

constexpr auto kLayouts =
    describeFamilies<AttachedDevicesLayouts, DeviceLayouts, FirewallLayouts, LimitsLayouts,
                     PortsLayouts, SamplingLayouts, TimersLayouts, TrafficRulesLayouts, WanLayouts,
                     WlanLayouts>();

template <class Predicate>
const Layout *findLayout(Predicate predicate) {
  const auto found = std::ranges::find_if(kLayouts, predicate);
  return found == kLayouts.end() ? nullptr : &*found;
}

}  // namespace

const Field *Layout::find(std::string_view fieldName) const {
  for (const Field &field : fields) {
    if (fieldName == field.name) return &field;
  }
  return nullptr;
}

std::span<const Layout> allLayouts() {
  return kLayouts;
}

const Layout *viewById(uint32_t id) {
  return findLayout([&](const Layout &layout) { return layout.isView() && layout.id == id; });
}

const Layout *layoutByName(std::string_view name) {
  return findLayout([&](const Layout &layout) { return layout.name == name; });
}

const Layout &layoutOf(RecordType type) {
  const Layout *found = findLayout([&](const Layout &layout) { return layout.type == type; });
  if (found == nullptr) throw std::logic_error("a record that no family of layouts lists");
  return *found;
}

std::string viewName(uint32_t id) {
  const Layout *view = viewById(id);
  return view == nullptr ? "view " + std::to_string(id) : std::string(view->name);
}

}  // namespace records
