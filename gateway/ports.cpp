#include "gateway/ports.hpp"

#include <algorithm>
#include <cstring>

#include "boundary/boundary.hpp"
#include "gateway/calls.hpp"
#include "gateway/gateway.hpp"
#include "gateway/instances.hpp"
#include "gateway/proxy.hpp"
#include "gateway/row_members.hpp"
#include "gateway/section.hpp"
#include "gateway/wan.hpp"
#include "platform/codes.hpp"
#include "platform/ports.hpp"

PM_RECORD(gateway::Port, PM_FIELD(number).means("from 0, as uplinkPort of \"wan\" counts"),
          PM_FIELD(instance).atMost(32).means("path of the port, which must be given"),
          PM_FIELD(macParameterId).means("what pm_mac_prm_op is asked by"),
          PM_FIELD(mac).means("of the port, which must be given"),
          PM_FIELD(linkState).means("handed to the daemon as it stands"),
          PM_FIELD(rateCode).means(platform::codes(platform::kPortRates)));
PM_RECORD(gateway::Ports, PM_FIELD(all).means("those that the box has"));

namespace gateway {

namespace {

constexpr uint32_t kLowHalf = 0xFFFF;
constexpr uint32_t kPortSelector = static_cast<uint32_t>(-9);

template <class Visit>
void visitPort(Port &port, const Visit &visit) {
  visit(EthPortConfigView::macParameterId, port.macParameterId, "macParameterId");
  visit(EthPortConfigView::rateCode, port.rateCode, "rateCode");
}

void takeOver(Ports &box, const std::string &place) {
  for (size_t i = 0; i < box.all.size(); ++i) {
    Port &port = box.all[i];
    const std::string where = placeOf(placeOf(place, "all"), i);
    if (port.mac == MacAddress{}) throw InputError(placeOf(where, "mac"), "is missing");
    if (port.instance.empty()) throw InputError(placeOf(where, "instance"), "is missing");
    if (store().has<EthPortConfigView>(port.instance)) {
      const Row row = store().row<EthPortConfigView>(port.instance);
      visitPort(port, SameAsRow{row, port.instance, where});
    } else {
      store().leaveToSection<EthPortConfigView>(port.instance);
    }
    visitPort(port, IntoRow{store().create<EthPortConfigView>(port.instance)});
  }
}

/// A row that the profile had is saved as such, and the section says nothing of it.
void bringUpToDate(Ports &box) {
  for (Port &port : box.all) {
    if (!store().isLeftToSection(layoutOf<EthPortConfigView>(), port.instance)) continue;
    visitPort(port, OutOfRow{store().create<EthPortConfigView>(port.instance)});
  }
}

SectionOf<Ports> section{"ports", "Ethernet ports", {takeOver, bringUpToDate}};

uint32_t setting(const Port &port, const platform::Word &field) {
  if (!store().has<EthPortConfigView>(port.instance)) return 0;
  return store().row<EthPortConfigView>(port.instance).word(field);
}

/// The speed of the port that is the uplink.
ProxyReply uplinkSpeed(Gateway &, std::span<const uint8_t> request) {
  if (!request.empty()) throw Refusal(kBadRequest, "the event takes no request");
  const Port *port = ports().byNumber(wan().uplink.port & kLowHalf);
  if (port == nullptr) return {kUnknownInstance};
  return {kOk, bytesOf(setting(*port, EthPortConfigView::rateCode))};
}

const ProxyEvent kUplinkSpeed{CTSGW_EVENT_GET_PORTLINKSTAT_TYPE, uplinkSpeed};

/// The parameters must be those of the port's view, run by run and in the order of their numbers.
void checkParameters(const Port &port, const Row &parameters) {
  if (parameters.word(PortMacParameterRecord::selector) != kPortSelector) {
    throw Refusal(kBadRequest, "the parameters do not select a port");
  }
  const Row view = store().row<EthPortConfigView>(port.instance);
  if (parameters.bytes(PortMacParameterRecord::parameterRun1) !=
          view.bytes(EthPortConfigView::parameterRun1) ||
      parameters.bytes(PortMacParameterRecord::parameterRun2) !=
          view.bytes(EthPortConfigView::parameterRun2) ||
      parameters.bytes(PortMacParameterRecord::parameterRun3) !=
          view.bytes(EthPortConfigView::parameterRun3)) {
    throw Refusal(kBadRequest, "the parameters are not those of " + port.instance);
  }
}

const Port *byMacParameter(uint32_t id) {
  const auto found = std::ranges::find_if(ports().all, [&](const Port &port) {
    return setting(port, EthPortConfigView::macParameterId) == id;
  });
  return found == ports().all.end() ? nullptr : &*found;
}

}  // namespace

Ports &ports() {
  return section.state();
}

Port *Ports::byNumber(uint32_t number) {
  const auto found = std::ranges::find(all, number, &Port::number);
  return found == all.end() ? nullptr : &*found;
}

Port *Ports::byInstance(std::string_view instance) {
  const auto found = std::ranges::find(all, instance, &Port::instance);
  return found == all.end() ? nullptr : &*found;
}

int32_t pm_mac_prm_op(uint32_t operation, PortMacResultRecord *result, void *viewWord,
                      PortMacParameterRecord *parameters) {
  if (operation != PM_MAC_PRM_OP_GET) throw Refusal(kBadRequest, "an unknown operation");
  uint32_t id = 0;
  std::memcpy(&id, viewWord, sizeof id);
  const Port *port = byMacParameter(id);
  if (port == nullptr) return kUnknownInstance;
  checkParameters(*port, fieldsOf<PortMacParameterRecord>(parameters));
  fieldsOf<PortMacResultRecord>(result).setMac(PortMacResultRecord::mac, port->mac);
  return kOk;
}

int32_t pm_wan_get_port_link_state_type(uint32_t *state, uint32_t *rate, uint32_t *third,
                                        uint32_t port) {
  const Port *found = ports().byNumber(port);
  if (found == nullptr) return kUnknownInstance;
  *state = found->linkState;
  *rate = setting(*found, EthPortConfigView::rateCode);
  *third = 0;
  return kOk;
}

int32_t pm_eth_get_port_link_state(const char *instance, PortLinkStateRecord *record) {
  const Port *port = ports().byInstance(instance);
  if (port == nullptr) return kUnknownInstance;
  fieldsOf<PortLinkStateRecord>(record).setWord(PortLinkStateRecord::linkState, port->linkState);
  return kOk;
}

int32_t pm_switch_get_inst_id_by_port(uint32_t port, char instance[32]) {
  const Port *found = ports().byNumber(port);
  if (found == nullptr) return kUnknownInstance;
  writePath(found->instance, instance);
  return kOk;
}

}  // namespace gateway
