#include "gateway/stations.hpp"

#include <algorithm>
#include <ctime>
#include <nlohmann/json.hpp>
#include <stdexcept>

#include "boundary/boundary.hpp"
#include "gateway/calls.hpp"
#include "gateway/gateway.hpp"
#include "gateway/instances.hpp"
#include "gateway/proxy.hpp"
#include "platform/attached_devices.h"
#include "platform/attached_devices.hpp"
#include "platform/ports.h"
#include "platform/proxy.h"
#include "platform/wlan.hpp"

namespace gateway {

namespace {

[[maybe_unused]] const Stations &registered = stations();

constexpr std::string_view kPathStem = "IGD.LD1.Hosts.Adev";
const std::vector<std::string_view> kKinds = {"other", "phone", "pad", "pc", "stb", "ap", "iot"};

std::string printTime(int64_t seconds) {
  const auto time = static_cast<time_t>(seconds);
  tm parts = {};
  gmtime_r(&time, &parts);
  char text[32];
  const size_t length = std::strftime(text, sizeof text, "%Y-%m-%d %H:%M:%S", &parts);
  return {text, length};
}

/// What came with the text, refused at its place in the profile when it is no address.
template <class Value>
Value parsed(std::optional<Value> value, const std::string &place) {
  if (!value) throw InputError(place, "is no address");
  return *value;
}

Association readAssociation(const Json &value, const std::string &place) {
  Association association;
  int64_t rssi = 0;
  Members members(value, place);
  members.text("ssid", &association.ssid);
  members.number("rssi", &rssi);
  members.word("linkRate", &association.linkRate);
  members.word("linkRate2", &association.linkRate2);
  members.finish();
  if (association.ssid.empty()) throw InputError(members.placeOf("ssid"), "is missing");
  if (rssi < -127 || rssi > 127) throw InputError(members.placeOf("rssi"), "out of range");
  association.rssi = static_cast<int32_t>(rssi);
  return association;
}

Json saveAssociation(const Association &association) {
  return {{"ssid", association.ssid},
          {"rssi", association.rssi},
          {"linkRate", association.linkRate},
          {"linkRate2", association.linkRate2}};
}

void readMeters(Members &members, int64_t uptime, Station *station) {
  readMeter(members, "bytesSent", uptime, &station->bytesSent);
  readMeter(members, "bytesReceived", uptime, &station->bytesReceived);
  readMeter(members, "packetsSent", uptime, &station->packetsSent);
  readMeter(members, "packetsReceived", uptime, &station->packetsReceived);
}

Station readStation(const Json &value, const std::string &place, int64_t uptime) {
  Station station;
  std::string mac;
  std::string ipv4 = "0.0.0.0";
  Members members(value, place);
  members.text("mac", &mac);
  members.text("ipv4", &ipv4);
  members.each("ipv6", [&](const Json &element, const std::string &elementPlace) {
    station.ipv6.push_back(textIn(element, elementPlace));
    parsed(parseIpv6(station.ipv6.back()), elementPlace);
  });
  members.text("hostName", &station.hostName);
  members.text("vendor", &station.vendor);
  members.choice("kind", kKinds, &station.kind);
  members.text("interface", &station.interfaceName);
  members.flag("online", &station.online);
  members.word("accessType", &station.accessType);
  members.word("linkFlag", &station.linkFlag);
  members.word("adevValue", &station.adevValue);
  members.word("connectedAt", &station.connectedAt);
  members.text("lastConnection", &station.lastConnection);
  members.flag("withoutRegister", &station.withoutRegister);
  if (const Json *association = members.take("association")) {
    station.association = readAssociation(*association, members.placeOf("association"));
  }
  readMeters(members, uptime, &station);
  members.finish();
  station.mac = parsed(parseMac(mac), members.placeOf("mac"));
  station.ipv4 = parsed(parseIpv4(ipv4), members.placeOf("ipv4"));
  return station;
}

Json saveStation(const Station &station, int64_t uptime) {
  Json value = {{"mac", printMac(station.mac)},
                {"ipv4", printIpv4(station.ipv4)},
                {"ipv6", station.ipv6},
                {"hostName", station.hostName},
                {"vendor", station.vendor},
                {"kind", kKinds[station.kind]},
                {"interface", station.interfaceName},
                {"online", station.online},
                {"accessType", station.accessType},
                {"linkFlag", station.linkFlag},
                {"adevValue", station.adevValue},
                {"connectedAt", station.connectedAt},
                {"lastConnection", station.lastConnection},
                {"withoutRegister", station.withoutRegister},
                {"bytesSent", saveMeter(station.bytesSent, uptime)},
                {"bytesReceived", saveMeter(station.bytesReceived, uptime)},
                {"packetsSent", saveMeter(station.packetsSent, uptime)},
                {"packetsReceived", saveMeter(station.packetsReceived, uptime)}};
  if (station.association) value["association"] = saveAssociation(*station.association);
  return value;
}

void fillDevice(const Station &station, const Row &row) {
  row.setText(DeviceRecord::path, stations().pathOf(station));
  row.setWord(DeviceRecord::accessType, station.accessType);
  row.setWord(DeviceRecord::linkFlag, station.linkFlag);
  row.setWord(DeviceRecord::ipv4Address, station.ipv4);
  row.setMac(DeviceRecord::mac, station.mac);
  row.setText(DeviceRecord::interfaceName, station.interfaceName);
  row.setText(DeviceRecord::hostName, station.hostName);
  row.setWord(DeviceRecord::connectionTime, station.connectedAt);
  row.setWord(DeviceRecord::kind, station.kind);
}

ProxyReply describeDevice(Gateway &, std::span<const uint8_t> request) {
  if (request.size() != DeviceRecord::kSize) throw Refusal(kBadRequest, "no device record");
  const Station *station = stations().byPath(textOf(request.first(DeviceRecord::path.width)));
  if (station == nullptr) return {kUnknownInstance};
  DeviceRecord record = {};
  fillDevice(*station, fieldsOf<DeviceRecord>(&record));
  return {kOk, bytesOf(record)};
}

void fillStatistics(const Station &station, int64_t uptime, const Row &row) {
  row.setMac(StationStatisticsRecord::mac, station.mac);
  row.setWord(StationStatisticsRecord::txRate, station.bytesSent.perSecond);
  row.setWord(StationStatisticsRecord::rxRate, station.bytesReceived.perSecond);
  row.setCounter(StationStatisticsRecord::totalBytesSent, station.bytesSent.at(uptime));
  row.setCounter(StationStatisticsRecord::totalBytesReceived, station.bytesReceived.at(uptime));
  row.setCounter(StationStatisticsRecord::totalPacketsSent, station.packetsSent.at(uptime));
  row.setCounter(StationStatisticsRecord::totalPacketsReceived, station.packetsReceived.at(uptime));
}

/// The station whose MAC stands, marked, in a request for statistics.
const Station *stationAskedFor(std::span<const uint8_t> request) {
  if (request.size() != StationStatisticsRequest::kSize) {
    throw Refusal(kBadRequest, "no request for statistics");
  }
  const auto rest = request.subspan(StationStatisticsRecord::mac.end());
  if (std::ranges::any_of(rest, [](uint8_t byte) { return byte != 0; })) {
    throw Refusal(kBadRequest, "the request says more than a MAC");
  }
  const Row row = fieldsOf<StationStatisticsRecord>(const_cast<uint8_t *>(request.data()));
  if (row.mark(StationStatisticsRecord::mac) != 1) throw Refusal(kBadRequest, "no MAC is marked");
  return stations().byMac(row.mac(StationStatisticsRecord::mac));
}

ProxyReply measuredStatistics(Gateway &gateway, std::span<const uint8_t> request) {
  const Station *station = stationAskedFor(request);
  if (station == nullptr) return {kUnknownInstance};
  StationStatisticsRecord record = {};
  fillStatistics(*station, gateway.clock().uptime(), fieldsOf<StationStatisticsRecord>(&record));
  return {kOk, bytesOf(record)};
}

/// The switch counts what is on the wire, as long as it has registers.
ProxyReply hardwareStatistics(Gateway &gateway, std::span<const uint8_t> request) {
  const Station *station = stationAskedFor(request);
  if (station == nullptr) return {kUnknownInstance};
  StationStatisticsRecord record = {};
  const Row row = fieldsOf<StationStatisticsRecord>(&record);
  if (station->withoutRegister || station->association) {
    row.setWord(StationStatisticsRecord::notEnoughRegister, 1);
  } else {
    fillStatistics(*station, gateway.clock().uptime(), row);
  }
  return {kOk, bytesOf(record)};
}

const ProxyEvent kDescribeDevice{CTSGW_EVENT_QUERY_ADEV_PARAM, describeDevice};
const ProxyEvent kMeasuredStatistics{CTSGW_EVENT_GET_BW_STATS, measuredStatistics};
const ProxyEvent kHardwareStatistics{CTSGW_EVENT_GET_HARD_STATS, hardwareStatistics};

}  // namespace

Stations &stations() {
  static Stations *const instance = new Stations;
  return *instance;
}

Station *Stations::byMac(const MacAddress &mac) {
  const auto found = std::ranges::find(all, mac, &Station::mac);
  return found == all.end() ? nullptr : &*found;
}

Station *Stations::byPath(std::string_view path) {
  const auto found =
      std::ranges::find_if(all, [&](const Station &one) { return pathOf(one) == path; });
  return found == all.end() ? nullptr : &*found;
}

Station *Stations::byAssociation(std::string_view path) {
  const auto found = std::ranges::find_if(
      all, [&](const Station &one) { return one.association && associationPathOf(one) == path; });
  return found == all.end() ? nullptr : &*found;
}

std::string Stations::pathOf(const Station &station) const {
  return std::string(kPathStem) + std::to_string(&station - all.data() + 1);
}

std::string Stations::associationPathOf(const Station &station) const {
  const std::string ssid = station.association ? station.association->ssid : "IGD.LD1";
  return ssid + ".AD" + std::to_string(&station - all.data() + 1);
}

void Stations::writeRows(Gateway &gateway, const Station &station) {
  const Row device = gateway.store().create<AccessDeviceView>(pathOf(station));
  device.setText(AccessDeviceView::vendor, station.vendor);
  device.setText(AccessDeviceView::lastConnection, station.lastConnection);
  device.setWord(AccessDeviceView::adevValue, station.adevValue);
  std::string addresses;
  for (const std::string &address : station.ipv6) {
    addresses += (addresses.empty() ? "" : ",") + address;
  }
  device.setText(AccessDeviceView::ipv6Address, addresses);
  if (!station.association) return;
  const Association &association = *station.association;
  const Row row = gateway.store().create<AssociatedDeviceView>(associationPathOf(station));
  row.setText(AssociatedDeviceView::ssidInstance, association.ssid);
  row.setMac(AssociatedDeviceView::mac, station.mac);
  row.setWord(AssociatedDeviceView::rssi, static_cast<uint32_t>(association.rssi));
  row.setWord(AssociatedDeviceView::linkRate, association.linkRate);
  row.setWord(AssociatedDeviceView::linkRate2, association.linkRate2);
}

Station &Stations::attach(Gateway &gateway, Station station) {
  all.push_back(std::move(station));
  writeRows(gateway, all.back());
  return all.back();
}

void Stations::associate(Gateway &gateway, Station &station, Association association) {
  leave(gateway, station);
  station.association = std::move(association);
  station.online = true;
  station.connectedAt = static_cast<uint32_t>(gateway.clock().uptime());
  station.lastConnection = printTime(gateway.clock().time());
  writeRows(gateway, station);
}

void Stations::leave(Gateway &gateway, Station &station) {
  const int64_t uptime = gateway.clock().uptime();
  for (Meter *meter : {&station.bytesSent, &station.bytesReceived, &station.packetsSent,
                       &station.packetsReceived}) {
    meter->stop(uptime);
  }
  station.online = false;
  if (!station.association) return;
  gateway.store().remove(layoutOf<AssociatedDeviceView>(), associationPathOf(station));
  station.association.reset();
}

void Stations::load(const Json &value, const std::string &place) {
  Gateway &gateway = Gateway::current();
  Members members(value, place);
  members.each("all", [&](const Json &element, const std::string &elementPlace) {
    Station station = readStation(element, elementPlace, gateway.clock().uptime());
    if (byMac(station.mac) != nullptr) throw InputError(elementPlace, "another one has its MAC");
    try {
      DeviceRecord record = {};
      const Station &attached = attach(gateway, std::move(station));
      fillDevice(attached, fieldsOf<DeviceRecord>(&record));
    } catch (const std::length_error &error) {
      throw InputError(elementPlace, error.what());
    }
  });
  members.finish();
}

Json Stations::save() const {
  if (all.empty()) return nullptr;
  const int64_t uptime = Gateway::current().clock().uptime();
  Json list = Json::array();
  for (const Station &station : all) list.push_back(saveStation(station, uptime));
  return {{"all", std::move(list)}};
}

}  // namespace gateway

using namespace gateway;

namespace {

int32_t listDevices(InstanceList *list, bool onlineOnly) {
  std::vector<std::string> paths;
  for (const Station &station : stations().all) {
    if (station.online || !onlineOnly) paths.push_back(stations().pathOf(station));
  }
  fill(list, paths);
  return kOk;
}

}  // namespace

int32_t gateway::plib_adev_list_view(InstanceList *list) {
  return listDevices(list, true);
}

int32_t gateway::plib_adev_list_view_all(InstanceList *list) {
  return listDevices(list, false);
}

int32_t gateway::pm_bw_get_hard_stats(const char *instance, StationStatisticsRecord *record) {
  Gateway &gateway = Gateway::current();
  const std::string path = instance;
  const Station *station = stations().byPath(path);
  if (station == nullptr) return kUnknownInstance;
  fillStatistics(*station, gateway.clock().uptime(), fieldsOf<StationStatisticsRecord>(record));
  return kOk;
}
