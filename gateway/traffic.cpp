#include "gateway/traffic.hpp"

#include <algorithm>

#include "boundary/boundary.hpp"
#include "gateway/calls.hpp"
#include "gateway/gateway.hpp"
#include "gateway/manager.hpp"
#include "gateway/proxy.hpp"
#include "gateway/section.hpp"
#include "platform/codes.hpp"
#include "platform/ports.hpp"
#include "platform/sampling.hpp"
#include "platform/wan.hpp"

PM_RECORD(gateway::InterfaceTraffic, PM_FIELD(name).means("nbif0, br0, ..."),
          PM_FIELD(tx).means(platform::unit("byte")).means("sent"),
          PM_FIELD(rx).means(platform::unit("byte")).means("received"));

#define PORT_COUNTER(index, field)                       \
  PM_FIELD(counters[index])                              \
      .named(platform::PortStatisticsRecord::field.name) \
      .means("as the switch has it")
PM_RECORD(gateway::PortTraffic, PM_FIELD(instance).means("path of the port"),
          PORT_COUNTER(0, counter28), PORT_COUNTER(1, counter64), PORT_COUNTER(2, counter208),
          PORT_COUNTER(3, counter244), PORT_COUNTER(4, counter280), PORT_COUNTER(5, counter316),
          PORT_COUNTER(6, counter460), PORT_COUNTER(7, counter496));
#undef PORT_COUNTER

PM_RECORD(gateway::Traffic, PM_FIELD(interfaces).means("counters of network interfaces"),
          PM_FIELD(ports).means("counters of switch ports"));

namespace gateway {

namespace {

void forAllMeters(Traffic &all, void (*visit)(Meter &meter)) {
  for (InterfaceTraffic &one : all.interfaces) visit(one.tx), visit(one.rx);
  for (PortTraffic &port : all.ports) std::ranges::for_each(port.counters, visit);
}

SectionOf<Traffic> section{
    "traffic",
    "Counters of interfaces and of switch ports",
    {[](Traffic &all, const std::string &) { forAllMeters(all, begin); },
     [](Traffic &all) { forAllMeters(all, [](Meter &meter) { meter.settle(); }); }}};

const InterfaceTraffic *interfaceAskedFor(std::span<const uint8_t> request) {
  if (request.size() != BandwidthRequest::kSize) throw Refusal(kBadRequest, "no interface name");
  const auto &all = traffic().interfaces;
  const auto found = std::ranges::find(all, textOf(request), &InterfaceTraffic::name);
  return found == all.end() ? nullptr : &*found;
}

Bytes bandwidthOf(const InterfaceTraffic &moved) {
  BandwidthReply reply = {};
  const Row row = fieldsOf<BandwidthReply>(&reply);
  row.setCounter(BandwidthReply::tx, moved.tx.now());
  row.setCounter(BandwidthReply::rx, moved.rx.now());
  return bytesOf(reply);
}

ProxyReply proxyBandwidth(Gateway &, std::span<const uint8_t> request) {
  const InterfaceTraffic *moved = interfaceAskedFor(request);
  if (moved == nullptr) return {kUnknownInstance};
  return {kOk, bandwidthOf(*moved)};
}

Bytes managerBandwidth(Gateway &, std::span<const uint8_t> request) {
  const InterfaceTraffic *moved = interfaceAskedFor(request);
  if (moved == nullptr) throw Refusal(kUnknownInstance);
  return bandwidthOf(*moved);
}

/// The gateway's own link as a client: a LinkStatusRecord named after its band. A band without one
/// has no link.
ProxyReply clientLink(Gateway &gateway, std::span<const uint8_t> request) {
  if (request.size() != LinkStatusRequest::kSize) throw Refusal(kBadRequest, "no band");
  const uint32_t band = fieldsOf<LinkStatusRequest>(const_cast<uint8_t *>(request.data()))
                            .word(LinkStatusRequest::band);
  if (band > kBand5G) throw Refusal(kBadRequest, "no such band");
  LinkStatusRecord record = {};
  if (gateway.store().get(kBands[band].name, &record) != kOk) {
    fieldsOf<LinkStatusRecord>(&record).setWord(LinkStatusRecord::linkDown, 1);
  }
  return {kOk, bytesOf(record)};
}

const ProxyEvent kBandwidth{CTSGW_EVENT_GET_BANDWIDTH, proxyBandwidth};
const ManagerReply kManagerBandwidth{MANAGER_MODULE_BANDINFO, BANDINFO_MGR_GET_BANDWIDTH,
                                     managerBandwidth};
const ProxyEvent kClientLink{CTSGW_EVENT_GET_LINKSTAT_BY_STAMODE, clientLink};

}  // namespace

Traffic &traffic() {
  return section.state();
}

int32_t pm_eth_get_port_basic_statstics(const char *instance, PortStatisticsRecord *record) {
  const std::string_view path = instance;
  const auto found = std::ranges::find(traffic().ports, path, &PortTraffic::instance);
  if (found == traffic().ports.end()) return kUnknownInstance;
  const Row row = fieldsOf<PortStatisticsRecord>(record);
  size_t next = 0;
  for (const Meter &counter : found->counters) {
    row.setCounter(row.layout().fields[next++], counter.now());
  }
  return kOk;
}

}  // namespace gateway
