#include "gateway/device.hpp"

#include <algorithm>
#include <cstring>

#include "boundary/boundary.hpp"
#include "gateway/calls.hpp"
#include "gateway/gateway.hpp"
#include "gateway/manager.hpp"
#include "gateway/proxy.hpp"
#include "gateway/requests.hpp"
#include "platform/device.h"
#include "platform/device.hpp"
#include "platform/firewall.hpp"
#include "platform/proxy.h"

PM_RECORD(gateway::Restore, PM_FIELD(kind).means("what was to be restored"),
          PM_FIELD(a).means("first argument"), PM_FIELD(b).means("second argument"),
          PM_FIELD(c).means("third argument"));

PM_RECORD(gateway::Led, PM_FIELD(number).means(platform::range(0, 15)),
          PM_FIELD(state).means("as it was set last; LEDs that are not listed are 0"));

PM_RECORD(gateway::Device, PM_FIELD(restarts).means("reasons of the restarts, oldest first"),
          PM_FIELD(restores).means("oldest first"), PM_FIELD(leds).means("as they were set"),
          PM_FIELD(hwnatCleanings).means("how often the table of accelerated flows was cleaned"));

namespace gateway {

namespace {

constexpr uint32_t kLeds = 16;
constexpr const char *kFirewall = "IGD.FWBASE";
constexpr const char *kSkipCounter = "/proc/ffe/hff_skip_num";

void checkLeds(Device &loaded, const std::string &place) {
  for (size_t i = 0; i < loaded.leds.size(); ++i) {
    if (loaded.leds[i].number < kLeds) continue;
    throw InputError(placeOf(placeOf(place, "leds"), i), "there are 16 LEDs, from 0 on");
  }
}

SectionOf<Device> section{"device", "What was done to the device", {.loaded = checkLeds}};

Led *findLed(uint32_t number) {
  auto &leds = device().leds;
  const auto found = std::ranges::find(leds, number, &Led::number);
  return found == leds.end() ? nullptr : &*found;
}

uint32_t onlyWord(std::span<const uint8_t> request) {
  uint32_t value = 0;
  requireSize(request, sizeof value);
  std::memcpy(&value, request.data(), sizeof value);
  return value;
}

ProxyReply setLock(Gateway &gateway, std::span<const uint8_t> request) {
  const uint32_t lock = onlyWord(request);
  if (!gateway.store().has<FirewallBaseView>(kFirewall)) return {kUnknownInstance};
  gateway.store().row<FirewallBaseView>(kFirewall).setWord(FirewallBaseView::lockStatus, lock);
  return {};
}

ProxyReply cleanHwnat(Gateway &, std::span<const uint8_t> request) {
  requireSize(request, 0);
  ++device().hwnatCleanings;
  return {};
}

/// The kernel has the counter only where packet forwarding is accelerated.
ProxyReply setKernelCount(Gateway &gateway, std::span<const uint8_t> request) {
  const uint32_t count = onlyWord(request);
  if (!gateway.files().read(kSkipCounter)) return {kUnknownInstance};
  gateway.files().write(kSkipCounter, std::to_string(count) + "\n");
  return {};
}

const ProxyEvent kSetLock{CTSGW_EVENT_SET_LOCK, setLock};
const ProxyEvent kCleanHwnat{CTSGW_EVENT_CLEAN_HWNAT, cleanHwnat};
const ProxyEvent kSetKernelCount{CTSGW_EVENT_SET_KERNELCOUNT, setKernelCount};

int32_t takeLogMessage(Gateway &, const ReceivedMessage &message) {
  if (message.id != LOG_MGR_SET_LOGDISABLE && message.id != LOG_MGR_CHANGE_LOGSIZE) {
    throw Refusal(kBadRequest, "log_mgr does not know message " + std::to_string(message.id));
  }
  requireSize(message.data, message.id == LOG_MGR_SET_LOGDISABLE ? sizeof(uint32_t) : 0);
  return kOk;
}

const MessageSink kLogManager{MANAGER_MODULE_LOG, takeLogMessage};

}  // namespace

Device &device() {
  return section.state();
}

}  // namespace gateway

using namespace gateway;

int32_t gateway::pm_dev_restart(uint32_t reason) {
  device().restarts.push_back(reason);
  Clock &clock = Gateway::current().clock();
  clock.set(0, clock.time());
  return kOk;
}

int32_t gateway::pm_dev_restore_special(uint32_t kind, uint32_t a, uint32_t b, uint32_t c) {
  device().restores.push_back({kind, a, b, c});
  return kOk;
}

int32_t gateway::pm_pdt_ctl_leds(uint32_t a, uint32_t b, uint32_t, uint32_t) {
  if (a >= kLeds) return kUnknownInstance;
  Led *led = findLed(a);
  (led == nullptr ? device().leds.emplace_back(Led{a}) : *led).state = b;
  return kOk;
}

int32_t gateway::pm_pdt_get_leds_status(uint32_t a, uint32_t, uint32_t, uint32_t) {
  if (a >= kLeds) return kUnknownInstance;
  const Led *led = findLed(a);
  return led == nullptr ? 0 : static_cast<int32_t>(led->state);
}

int32_t gateway::pm_log_get_config(LogConfigRecord *record) {
  return Gateway::current().store().get(layoutOf<LogConfigRecord>(), "IGD", record);
}

int32_t gateway::pm_log_set_config(LogConfigRecord *record) {
  return Gateway::current().store().set(layoutOf<LogConfigRecord>(), "IGD", record,
                                        Unchanged::kReported);
}

int32_t gateway::pm_srm_get_update_cpu_info(const char *instance, CpuInfoRecord *record) {
  return Gateway::current().store().get(layoutOf<CpuInfoRecord>(), instance, record);
}
