#include "gateway/uplink_traffic.hpp"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "boundary/boundary.hpp"
#include "gateway/calls.hpp"
#include "gateway/gateway.hpp"
#include "gateway/instances.hpp"
#include "gateway/manager.hpp"
#include "gateway/proxy.hpp"
#include "platform/ports.h"
#include "platform/ports.hpp"
#include "platform/proxy.h"
#include "platform/sampling.hpp"
#include "platform/wan.hpp"

namespace gateway {

namespace {

[[maybe_unused]] const UplinkTraffic &registered = uplinkTraffic();

const InterfaceTraffic *interfaceAskedFor(std::span<const uint8_t> request) {
  if (request.size() != BandwidthRequest::kSize) throw Refusal(kBadRequest, "no interface name");
  const auto &all = uplinkTraffic().interfaces;
  const auto found = std::ranges::find(all, textOf(request), &InterfaceTraffic::name);
  return found == all.end() ? nullptr : &*found;
}

Bytes bandwidthOf(const InterfaceTraffic &traffic, int64_t uptime) {
  BandwidthReply reply = {};
  const Row row = fieldsOf<BandwidthReply>(&reply);
  row.setCounter(BandwidthReply::tx, traffic.tx.at(uptime));
  row.setCounter(BandwidthReply::rx, traffic.rx.at(uptime));
  return bytesOf(reply);
}

ProxyReply proxyBandwidth(Gateway &gateway, std::span<const uint8_t> request) {
  const InterfaceTraffic *traffic = interfaceAskedFor(request);
  if (traffic == nullptr) return {kUnknownInstance};
  return {kOk, bandwidthOf(*traffic, gateway.clock().uptime())};
}

Bytes managerBandwidth(Gateway &gateway, std::span<const uint8_t> request) {
  const InterfaceTraffic *traffic = interfaceAskedFor(request);
  if (traffic == nullptr) throw Refusal(kUnknownInstance);
  return bandwidthOf(*traffic, gateway.clock().uptime());
}

/// The gateway's own link as a client: a LinkStatusRecord named after its band. A band without one
/// has no link.
ProxyReply clientLink(Gateway &gateway, std::span<const uint8_t> request) {
  if (request.size() != LinkStatusRequest::kSize) throw Refusal(kBadRequest, "no band");
  const uint32_t band = fieldsOf<LinkStatusRequest>(const_cast<uint8_t *>(request.data()))
                            .word(LinkStatusRequest::band);
  if (band > 1) throw Refusal(kBadRequest, "no such band");
  LinkStatusRecord record = {};
  const char *path = band == 0 ? "2.4G" : "5G";
  if (gateway.store().get(layoutOf<LinkStatusRecord>(), path, &record) != kOk) {
    fieldsOf<LinkStatusRecord>(&record).setWord(LinkStatusRecord::linkDown, 1);
  }
  return {kOk, bytesOf(record)};
}

const ProxyEvent kBandwidth{CTSGW_EVENT_GET_BANDWIDTH, proxyBandwidth};
const ManagerReply kManagerBandwidth{MANAGER_MODULE_BANDINFO, BANDINFO_MGR_GET_BANDWIDTH,
                                     managerBandwidth};
const ProxyEvent kClientLink{CTSGW_EVENT_GET_LINKSTAT_BY_STAMODE, clientLink};

std::string counterName(size_t index) {
  return layoutOf<PortStatisticsRecord>().fields[index].name;
}

}  // namespace

UplinkTraffic &uplinkTraffic() {
  static UplinkTraffic *const instance = new UplinkTraffic;
  return *instance;
}

void UplinkTraffic::reset() {
  interfaces.clear();
  ports.clear();
}

void UplinkTraffic::load(const Json &value, const std::string &place) {
  const int64_t uptime = Gateway::current().clock().uptime();
  Members members(value, place);
  members.each("interfaces", [&](const Json &element, const std::string &elementPlace) {
    InterfaceTraffic traffic;
    Members one(element, elementPlace);
    one.text("name", &traffic.name);
    readMeter(one, "tx", uptime, &traffic.tx);
    readMeter(one, "rx", uptime, &traffic.rx);
    one.finish();
    interfaces.push_back(std::move(traffic));
  });
  members.each("ports", [&](const Json &element, const std::string &elementPlace) {
    PortTraffic traffic;
    Members one(element, elementPlace);
    one.text("instance", &traffic.instance);
    for (size_t i = 0; i < traffic.counters.size(); ++i) {
      readMeter(one, counterName(i), uptime, &traffic.counters[i]);
    }
    one.finish();
    ports.push_back(std::move(traffic));
  });
  members.finish();
}

Json UplinkTraffic::save() const {
  if (interfaces.empty() && ports.empty()) return nullptr;
  const int64_t uptime = Gateway::current().clock().uptime();
  Json interfaceList = Json::array();
  for (const InterfaceTraffic &traffic : interfaces) {
    interfaceList.push_back({{"name", traffic.name},
                             {"tx", saveMeter(traffic.tx, uptime)},
                             {"rx", saveMeter(traffic.rx, uptime)}});
  }
  Json portList = Json::array();
  for (const PortTraffic &traffic : ports) {
    Json port = {{"instance", traffic.instance}};
    for (size_t i = 0; i < traffic.counters.size(); ++i) {
      port[counterName(i)] = saveMeter(traffic.counters[i], uptime);
    }
    portList.push_back(std::move(port));
  }
  return {{"interfaces", std::move(interfaceList)}, {"ports", std::move(portList)}};
}

}  // namespace gateway

using namespace gateway;

int32_t gateway::pm_eth_get_port_basic_statstics(const char *instance,
                                                 PortStatisticsRecord *record) {
  Gateway &gateway = Gateway::current();
  const std::string path = instance;
  const auto &all = uplinkTraffic().ports;
  const auto found = std::ranges::find(all, path, &PortTraffic::instance);
  if (found == all.end()) return kUnknownInstance;
  const Row row = fieldsOf<PortStatisticsRecord>(record);
  for (size_t i = 0; i < found->counters.size(); ++i) {
    row.setCounter(row.layout().fields[i], found->counters[i].at(gateway.clock().uptime()));
  }
  return kOk;
}
