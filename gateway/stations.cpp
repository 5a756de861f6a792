#include "gateway/stations.hpp"

#include <algorithm>
#include <array>
#include <ctime>
#include <stdexcept>

#include "boundary/boundary.hpp"
#include "gateway/calls.hpp"
#include "gateway/gateway.hpp"
#include "gateway/instances.hpp"
#include "gateway/proxy.hpp"
#include "gateway/row_members.hpp"
#include "gateway/section.hpp"
#include "platform/attached_devices.hpp"
#include "platform/codes.hpp"
#include "platform/wlan.hpp"

PM_RECORD(gateway::Association,
          PM_FIELD(ssid).atMost(32).means("instance path of the SSID, which must be given"),
          PM_FIELD(rssi).means(platform::unit("dBm")),
          PM_FIELD(linkRate).means(platform::unit("kbit/s")),
          PM_FIELD(linkRate2).means(platform::unit("kbit/s")));
PM_RECORD(
    gateway::Station, PM_FIELD(mac).means("which must be given; no two stations have the same"),
    PM_FIELD(ipv4).means(platform::kIpv4).means("0.0.0.0 is none"),
    PM_FIELD(ipv6).means("all addresses of the device"),
    PM_FIELD(hostName).atMost(63).means("as the device calls itself"),
    PM_FIELD(vendor).atMost(64).means("of the device"),
    PM_FIELD(kind).means(platform::codes(platform::kDeviceKinds)),
    PM_FIELD(interfaceName).named("interface").atMost(15).means("eth0, wlan1, ..."),
    PM_FIELD(online).means("whether it is listed as present; true when left out"),
    PM_FIELD(accessType).means("the platform's number"),
    PM_FIELD(linkFlag).means("the platform's number"),
    PM_FIELD(adevValue).means("the platform's number"),
    PM_FIELD(connectedAt).means(platform::unit("s")).means("uptime of the gateway at connection"),
    PM_FIELD(lastConnection).atMost(32).means("date and time of the same, as text"),
    PM_FIELD(withoutRegister).means("the switch has no register left to count this one"),
    PM_FIELD(association).means("of a station on the air"),
    PM_FIELD(bytesSent).means(platform::unit("byte")),
    PM_FIELD(bytesReceived).means(platform::unit("byte")),
    PM_FIELD(packetsSent).means(platform::unit("packet")),
    PM_FIELD(packetsReceived).means(platform::unit("packet")));
PM_RECORD(gateway::Stations, PM_FIELD(all).means("in the platform's order"));

namespace gateway {

namespace {

constexpr std::string_view kPathStem = "IGD.LD1.Hosts.Adev";

std::string printTime(int64_t seconds) {
  const auto time = static_cast<time_t>(seconds);
  tm parts = {};
  gmtime_r(&time, &parts);
  char text[32];
  const size_t length = std::strftime(text, sizeof text, "%Y-%m-%d %H:%M:%S", &parts);
  return {text, length};
}

std::array<Meter *, 4> metersOf(Station &station) {
  return {&station.bytesSent, &station.bytesReceived, &station.packetsSent,
          &station.packetsReceived};
}

std::string printAddresses(const std::vector<Ipv6Address> &addresses) {
  std::string text;
  for (const Ipv6Address &address : addresses) {
    text += (text.empty() ? "" : ",") + printIpv6(address);
  }
  return text;
}

/// None when one of them is no address.
std::optional<std::vector<Ipv6Address>> parseAddresses(std::string text) {
  std::vector<Ipv6Address> addresses;
  while (!text.empty()) {
    const size_t end = std::min(text.find(','), text.size());
    const std::optional<Ipv6Address> address = parseIpv6(text.substr(0, end));
    if (!address) return std::nullopt;
    addresses.push_back(*address);
    text.erase(0, end + 1);
  }
  return addresses;
}

template <class Visit>
void visitDevice(Station &station, const Visit &visit) {
  visit(AccessDeviceView::vendor, station.vendor, "vendor");
  visit(AccessDeviceView::lastConnection, station.lastConnection, "lastConnection");
  visit(AccessDeviceView::adevValue, station.adevValue, "adevValue");
}

template <class Visit>
void visitAssociation(Association &association, const Visit &visit) {
  visit(AssociatedDeviceView::rssi, association.rssi, "rssi");
  visit(AssociatedDeviceView::linkRate, association.linkRate, "linkRate");
  visit(AssociatedDeviceView::linkRate2, association.linkRate2, "linkRate2");
}

void makeDeviceRow(Station &station) {
  const std::string path = stations().pathOf(station);
  const Row row = store().create<AccessDeviceView>(path);
  store().leaveToSection<AccessDeviceView>(path);
  visitDevice(station, IntoRow{row});
  if (station.ipv6.empty()) return;
  row.setText(AccessDeviceView::ipv6Address, printAddresses(station.ipv6));
  station.ipv6.clear();
}

void makeAssociationRow(Station &station) {
  if (!station.association) return;
  const std::string path = stations().associationPathOf(station);
  const Row row = store().create<AssociatedDeviceView>(path);
  store().leaveToSection<AssociatedDeviceView>(path);
  row.setText(AssociatedDeviceView::ssidInstance, station.association->ssid);
  row.setMac(AssociatedDeviceView::mac, station.mac);
  visitAssociation(*station.association, IntoRow{row});
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

void fillStatistics(const Station &station, const Row &row) {
  row.setMac(StationStatisticsRecord::mac, station.mac);
  row.setWord(StationStatisticsRecord::txRate, station.bytesSent.perSecond);
  row.setWord(StationStatisticsRecord::rxRate, station.bytesReceived.perSecond);
  row.setCounter(StationStatisticsRecord::totalBytesSent, station.bytesSent.now());
  row.setCounter(StationStatisticsRecord::totalBytesReceived, station.bytesReceived.now());
  row.setCounter(StationStatisticsRecord::totalPacketsSent, station.packetsSent.now());
  row.setCounter(StationStatisticsRecord::totalPacketsReceived, station.packetsReceived.now());
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

ProxyReply measuredStatistics(Gateway &, std::span<const uint8_t> request) {
  const Station *station = stationAskedFor(request);
  if (station == nullptr) return {kUnknownInstance};
  StationStatisticsRecord record = {};
  fillStatistics(*station, fieldsOf<StationStatisticsRecord>(&record));
  return {kOk, bytesOf(record)};
}

/// The switch counts what is on the wire, as long as it has registers.
ProxyReply hardwareStatistics(Gateway &, std::span<const uint8_t> request) {
  const Station *station = stationAskedFor(request);
  if (station == nullptr) return {kUnknownInstance};
  StationStatisticsRecord record = {};
  const Row row = fieldsOf<StationStatisticsRecord>(&record);
  if (station->withoutRegister || station->association) {
    row.setWord(StationStatisticsRecord::notEnoughRegister, 1);
  } else {
    fillStatistics(*station, row);
  }
  return {kOk, bytesOf(record)};
}

const ProxyEvent kDescribeDevice{CTSGW_EVENT_QUERY_ADEV_PARAM, describeDevice};
const ProxyEvent kMeasuredStatistics{CTSGW_EVENT_GET_BW_STATS, measuredStatistics};
const ProxyEvent kHardwareStatistics{CTSGW_EVENT_GET_HARD_STATS, hardwareStatistics};

int32_t listDevices(InstanceList *list, bool onlineOnly) {
  std::vector<std::string> paths;
  for (const Station &station : stations().all) {
    if (station.online || !onlineOnly) paths.push_back(stations().pathOf(station));
  }
  fill(list, paths);
  return kOk;
}

void checkIdentity(const Station &station, const std::string &place) {
  if (station.mac == MacAddress{}) throw InputError(placeOf(place, "mac"), "is missing");
  if (stations().byMac(station.mac) != &station) {
    throw InputError(place, "another one has its MAC");
  }
  if (station.association && station.association->ssid.empty()) {
    throw InputError(placeOf(place, "association.ssid"), "is missing");
  }
}

/// A profile may have the rows of a station as well.
void checkDeviceRow(Station &station, const std::string &place) {
  const std::string path = stations().pathOf(station);
  if (!store().has<AccessDeviceView>(path)) return;
  const SameAsRow same{store().row<AccessDeviceView>(path), path, place};
  visitDevice(station, same);
  const auto addresses = parseAddresses(same.row.text(AccessDeviceView::ipv6Address));
  const bool differs = !station.ipv6.empty() && addresses != station.ipv6;
  if (!addresses || differs) same.refuse(AccessDeviceView::ipv6Address, "ipv6");
}

void checkAssociationRow(Station &station, const std::string &place) {
  const std::string path = stations().associationPathOf(station);
  if (!station.association || !store().has<AssociatedDeviceView>(path)) return;
  const SameAsRow same{store().row<AssociatedDeviceView>(path), path,
                       placeOf(place, "association")};
  visitAssociation(*station.association, same);
  if (same.row.text(AssociatedDeviceView::ssidInstance) != station.association->ssid) {
    same.refuse(AssociatedDeviceView::ssidInstance, "ssid");
  }
  if (same.row.mac(AssociatedDeviceView::mac) != station.mac) {
    SameAsRow{same.row, path, place}.refuse(AssociatedDeviceView::mac, "mac");
  }
}

void takeOver(Stations &house, const std::string &place) {
  for (size_t i = 0; i < house.all.size(); ++i) {
    Station &station = house.all[i];
    const std::string where = placeOf(placeOf(place, "all"), i);
    checkIdentity(station, where);
    checkDeviceRow(station, where);
    checkAssociationRow(station, where);
    try {
      makeDeviceRow(station);
      makeAssociationRow(station);
    } catch (const std::length_error &error) {
      throw InputError(where, error.what());
    }
    std::ranges::for_each(metersOf(station), [](Meter *meter) { begin(*meter); });
  }
}

void bringUpToDate(Stations &house) {
  for (Station &station : house.all) {
    const Row device = store().create<AccessDeviceView>(house.pathOf(station));
    visitDevice(station, OutOfRow{device});
    const std::string addresses = device.text(AccessDeviceView::ipv6Address);
    station.ipv6 = parseAddresses(addresses).value_or(std::vector<Ipv6Address>());
    if (station.association) {
      const std::string path = house.associationPathOf(station);
      visitAssociation(*station.association, OutOfRow{store().create<AssociatedDeviceView>(path)});
    }
    std::ranges::for_each(metersOf(station), &Meter::settle);
  }
}

SectionOf<Stations> section{
    "stations", "Attached devices, on the wire and on the air", {takeOver, bringUpToDate}};

}  // namespace

Stations &stations() {
  return section.state();
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

Station &Stations::attach(Station station) {
  Station &attached = all.emplace_back(std::move(station));
  makeDeviceRow(attached);
  makeAssociationRow(attached);
  return attached;
}

void Stations::associate(Station &station, Association association) {
  const Clock &clock = Gateway::current().clock();
  leave(station);
  station.association = std::move(association);
  station.online = true;
  station.connectedAt = static_cast<uint32_t>(clock.uptime());
  store()
      .create<AccessDeviceView>(pathOf(station))
      .setText(AccessDeviceView::lastConnection, printTime(clock.time()));
  makeAssociationRow(station);
}

void Stations::leave(Station &station) {
  std::ranges::for_each(metersOf(station), &Meter::stop);
  station.online = false;
  if (!station.association) return;
  store().remove<AssociatedDeviceView>(associationPathOf(station));
  station.association.reset();
}

int32_t plib_adev_list_view(InstanceList *list) {
  return listDevices(list, true);
}

int32_t plib_adev_list_view_all(InstanceList *list) {
  return listDevices(list, false);
}

int32_t pm_bw_get_hard_stats(const char *instance, StationStatisticsRecord *record) {
  const Station *station = stations().byPath(instance);
  if (station == nullptr) return kUnknownInstance;
  fillStatistics(*station, fieldsOf<StationStatisticsRecord>(record));
  return kOk;
}

}  // namespace gateway
