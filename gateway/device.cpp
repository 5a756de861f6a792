#include "gateway/device.hpp"

#include <cstring>
#include <nlohmann/json.hpp>

#include "boundary/boundary.hpp"
#include "gateway/calls.hpp"
#include "gateway/gateway.hpp"
#include "gateway/instances.hpp"
#include "gateway/manager.hpp"
#include "gateway/proxy.hpp"
#include "platform/device.h"
#include "platform/device.hpp"
#include "platform/firewall.hpp"
#include "platform/proxy.h"

namespace gateway {

namespace {

[[maybe_unused]] const Device &registered = device();

constexpr const char *kFirewall = "IGD.FWBASE";
constexpr const char *kSkipCounter = "/proc/ffe/hff_skip_num";

uint32_t wordOf(const Json &value, const std::string &place) {
  if (!value.is_number_unsigned()) throw InputError(place, "must be a number from 0 on");
  return value.get<uint32_t>();
}

uint32_t onlyWord(std::span<const uint8_t> request) {
  uint32_t value = 0;
  if (request.size() != sizeof value) throw Refusal(kBadRequest, "the request is not one word");
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
  if (!request.empty()) throw Refusal(kBadRequest, "the event takes no request");
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
  const size_t expected = message.id == LOG_MGR_SET_LOGDISABLE ? sizeof(uint32_t) : 0;
  if (message.id != LOG_MGR_SET_LOGDISABLE && message.id != LOG_MGR_CHANGE_LOGSIZE) {
    throw Refusal(kBadRequest, "log_mgr does not know message " + std::to_string(message.id));
  }
  if (message.data.size() != expected) throw Refusal(kBadRequest, "a message of the wrong length");
  return kOk;
}

const MessageSink kLogManager{MANAGER_MODULE_LOG, takeLogMessage};

}  // namespace

Device &device() {
  static Device *const instance = new Device;
  return *instance;
}

void Device::reset() {
  restarts.clear();
  restores.clear();
  leds.clear();
  hwnatCleanings = 0;
}

void Device::load(const Json &value, const std::string &place) {
  Members members(value, place);
  members.each("restarts", [&](const Json &reason, const std::string &reasonPlace) {
    restarts.push_back(wordOf(reason, reasonPlace));
  });
  members.each("restores", [&](const Json &element, const std::string &elementPlace) {
    Restore restore = {};
    Members one(element, elementPlace);
    one.word("kind", &restore.kind);
    one.word("a", &restore.a);
    one.word("b", &restore.b);
    one.word("c", &restore.c);
    one.finish();
    restores.push_back(restore);
  });
  members.each("leds", [&](const Json &element, const std::string &elementPlace) {
    uint32_t number = 0;
    uint32_t state = 0;
    Members one(element, elementPlace);
    one.word("number", &number);
    one.word("state", &state);
    one.finish();
    if (number >= kLeds) throw InputError(one.placeOf("number"), "there are 16 LEDs, from 0 on");
    leds[number] = state;
  });
  members.word("hwnatCleanings", &hwnatCleanings);
  members.finish();
}

Json Device::save() const {
  Json saved = Json::object();
  if (!restarts.empty()) saved["restarts"] = restarts;
  for (const Restore &one : restores) {
    saved["restores"].push_back({{"kind", one.kind}, {"a", one.a}, {"b", one.b}, {"c", one.c}});
  }
  for (const auto &[number, state] : leds) {
    saved["leds"].push_back({{"number", number}, {"state", state}});
  }
  if (hwnatCleanings != 0) saved["hwnatCleanings"] = hwnatCleanings;
  return saved.empty() ? Json(nullptr) : saved;
}

}  // namespace gateway

using namespace gateway;

int32_t gateway::pm_dev_restart(uint32_t reason) {
  Gateway &gateway = Gateway::current();
  device().restarts.push_back(reason);
  gateway.clock().set(0, gateway.clock().time());
  return kOk;
}

int32_t gateway::pm_dev_restore_special(uint32_t kind, uint32_t a, uint32_t b, uint32_t c) {
  device().restores.push_back({kind, a, b, c});
  return kOk;
}

int32_t gateway::pm_pdt_ctl_leds(uint32_t a, uint32_t b, uint32_t, uint32_t) {
  if (a >= Device::kLeds) return kUnknownInstance;
  device().leds[a] = b;
  return kOk;
}

int32_t gateway::pm_pdt_get_leds_status(uint32_t a, uint32_t, uint32_t, uint32_t) {
  if (a >= Device::kLeds) return kUnknownInstance;
  const auto led = device().leds.find(a);
  return led == device().leds.end() ? 0 : static_cast<int32_t>(led->second);
}

int32_t gateway::pm_log_get_config(LogConfigRecord *record) {
  Gateway &gateway = Gateway::current();
  return gateway.store().get(layoutOf<LogConfigRecord>(), "IGD", record);
}

int32_t gateway::pm_log_set_config(LogConfigRecord *record) {
  Gateway &gateway = Gateway::current();
  return gateway.store().set(layoutOf<LogConfigRecord>(), "IGD", record, Unchanged::kReported);
}

int32_t gateway::pm_srm_get_update_cpu_info(const char *instance, CpuInfoRecord *record) {
  Gateway &gateway = Gateway::current();
  const std::string path = instance;
  return gateway.store().get(layoutOf<CpuInfoRecord>(), path, record);
}
