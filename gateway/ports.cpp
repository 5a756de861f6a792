#include "gateway/ports.hpp"

#include <algorithm>
#include <cstring>
#include <nlohmann/json.hpp>

#include "boundary/boundary.hpp"
#include "gateway/calls.hpp"
#include "gateway/gateway.hpp"
#include "gateway/instances.hpp"
#include "gateway/proxy.hpp"
#include "gateway/wan.hpp"
#include "platform/ports.h"
#include "platform/ports.hpp"
#include "platform/proxy.h"

namespace gateway {

namespace {

[[maybe_unused]] const Ports &registered = ports();

constexpr uint32_t kLowHalf = 0xFFFF;
constexpr uint32_t kPortSelector = static_cast<uint32_t>(-9);

/// The speed of the port that is the uplink.
ProxyReply uplinkSpeed(Gateway &, std::span<const uint8_t> request) {
  if (!request.empty()) throw Refusal(kBadRequest, "the event takes no request");
  const Port *port = ports().byNumber(wan().uplink.port & kLowHalf);
  if (port == nullptr) return {kUnknownInstance};
  return {kOk, bytesOf(port->rateCode)};
}

const ProxyEvent kUplinkSpeed{CTSGW_EVENT_GET_PORTLINKSTAT_TYPE, uplinkSpeed};

/// The parameters must be those of the port's view, run by run and in the order of their numbers.
void checkParameters(Store &store, const Port &port, const Row &parameters) {
  if (parameters.word(PortMacParameterRecord::selector) != kPortSelector) {
    throw Refusal(kBadRequest, "the parameters do not select a port");
  }
  const Row view = store.row<EthPortConfigView>(port.instance);
  if (parameters.bytes(PortMacParameterRecord::parameterRun1) !=
          view.bytes(EthPortConfigView::parameterRun1) ||
      parameters.bytes(PortMacParameterRecord::parameterRun2) !=
          view.bytes(EthPortConfigView::parameterRun2) ||
      parameters.bytes(PortMacParameterRecord::parameterRun3) !=
          view.bytes(EthPortConfigView::parameterRun3)) {
    throw Refusal(kBadRequest, "the parameters are not those of " + port.instance);
  }
}

Port *byMacParameter(uint32_t id) {
  const auto found = std::ranges::find(ports().all, id, &Port::macParameterId);
  return found == ports().all.end() ? nullptr : &*found;
}

}  // namespace

Ports &ports() {
  static Ports *const instance = new Ports;
  return *instance;
}

Port *Ports::byNumber(uint32_t number) {
  const auto found = std::ranges::find(all, number, &Port::number);
  return found == all.end() ? nullptr : &*found;
}

Port *Ports::byInstance(const std::string &instance) {
  const auto found = std::ranges::find(all, instance, &Port::instance);
  return found == all.end() ? nullptr : &*found;
}

void Ports::load(const Json &value, const std::string &place) {
  Members members(value, place);
  members.each("all", [&](const Json &element, const std::string &elementPlace) {
    Port port;
    std::string mac;
    Members one(element, elementPlace);
    one.word("number", &port.number);
    one.text("instance", &port.instance);
    one.word("macParameterId", &port.macParameterId);
    one.text("mac", &mac);
    one.word("linkState", &port.linkState);
    one.word("rateCode", &port.rateCode);
    one.finish();
    const auto parsed = parseMac(mac);
    if (!parsed) throw InputError(one.placeOf("mac"), "is no MAC address");
    port.mac = *parsed;
    all.push_back(std::move(port));
  });
  members.finish();
}

Json Ports::save() const {
  if (all.empty()) return nullptr;
  Json list = Json::array();
  for (const Port &port : all) {
    list.push_back({{"number", port.number},
                    {"instance", port.instance},
                    {"macParameterId", port.macParameterId},
                    {"mac", printMac(port.mac)},
                    {"linkState", port.linkState},
                    {"rateCode", port.rateCode}});
  }
  return {{"all", std::move(list)}};
}

}  // namespace gateway

using namespace gateway;

int32_t gateway::pm_mac_prm_op(uint32_t operation, PortMacResultRecord *result, void *viewWord,
                               PortMacParameterRecord *parameters) {
  Gateway &gateway = Gateway::current();
  if (operation != PM_MAC_PRM_OP_GET) throw Refusal(kBadRequest, "an unknown operation");
  if (result == nullptr || viewWord == nullptr || parameters == nullptr) {
    throw Refusal(kNullArgument, "a record is missing");
  }
  uint32_t id = 0;
  std::memcpy(&id, viewWord, sizeof id);
  const Port *port = byMacParameter(id);
  if (port == nullptr) return kUnknownInstance;
  checkParameters(gateway.store(), *port, fieldsOf<PortMacParameterRecord>(parameters));
  fieldsOf<PortMacResultRecord>(result).setMac(PortMacResultRecord::mac, port->mac);
  return kOk;
}

int32_t gateway::pm_wan_get_port_link_state_type(uint32_t *state, uint32_t *rate, uint32_t *third,
                                                 uint32_t port) {
  if (state == nullptr || rate == nullptr || third == nullptr) {
    throw Refusal(kNullArgument, "nowhere to write");
  }
  const Port *found = ports().byNumber(port);
  if (found == nullptr) return kUnknownInstance;
  *state = found->linkState;
  *rate = found->rateCode;
  *third = 0;
  return kOk;
}

int32_t gateway::pm_eth_get_port_link_state(const char *instance, PortLinkStateRecord *record) {
  const std::string path = instance;
  const Port *port = ports().byInstance(path);
  if (port == nullptr) return kUnknownInstance;
  fieldsOf<PortLinkStateRecord>(record).setWord(PortLinkStateRecord::linkState, port->linkState);
  return kOk;
}

int32_t gateway::pm_switch_get_inst_id_by_port(uint32_t port, char instance[32]) {
  const Port *found = ports().byNumber(port);
  if (found == nullptr) return kUnknownInstance;
  writePath(found->instance, instance);
  return kOk;
}
