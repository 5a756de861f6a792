#include "gateway/scans.hpp"

#include <algorithm>
#include <cstring>
#include <nlohmann/json.hpp>
#include <span>

#include "boundary/boundary.hpp"
#include "gateway/calls.hpp"
#include "gateway/gateway.hpp"
#include "gateway/instances.hpp"
#include "gateway/wlan.hpp"
#include "platform/wlan.h"
#include "platform/wlan.hpp"

namespace gateway {

namespace {

[[maybe_unused]] const Scans &registered = scans();

const std::vector<std::string_view> kRadioNames = {"2.4G", "5G"};
constexpr size_t kLongestSsid = 32;
constexpr uint32_t kOpen = 0;

MacAddress readBssid(Members &members) {
  std::string text;
  members.text("bssid", &text);
  const std::optional<MacAddress> bssid = parseMac(text);
  if (!bssid) throw InputError(members.placeOf("bssid"), "must be a MAC address");
  return *bssid;
}

AccessPoint readAccessPoint(const Json &value, const std::string &place) {
  AccessPoint accessPoint;
  int64_t rssi = 0;
  Members members(value, place);
  members.text("ssid", &accessPoint.ssid);
  accessPoint.bssid = readBssid(members);
  members.word("channel", &accessPoint.channel);
  members.number("rssi", &rssi);
  members.word("securityMode", &accessPoint.securityMode);
  members.word("encryption", &accessPoint.encryption);
  members.text("passphrase", &accessPoint.passphrase);
  members.finish();
  if (accessPoint.ssid.size() > kLongestSsid) {
    throw InputError(members.placeOf("ssid"), "is longer than 32 characters");
  }
  if (rssi < -127 || rssi > 127) throw InputError(members.placeOf("rssi"), "out of range");
  accessPoint.rssi = static_cast<int32_t>(rssi);
  return accessPoint;
}

std::vector<AccessPoint> readAccessPoints(Members &members, std::string_view member) {
  std::vector<AccessPoint> list;
  members.each(member, [&](const Json &element, const std::string &place) {
    if (list.size() == WlanApList::Entries::kCount)
      throw InputError(place, "no scan lists so many");
    list.push_back(readAccessPoint(element, place));
  });
  return list;
}

Air readAir(const Json &value, const std::string &place) {
  Air air;
  Members members(value, place);
  air.accessPoints = readAccessPoints(members, "accessPoints");
  air.heard = readAccessPoints(members, "heard");
  int64_t number = INT64_MAX;
  members.number("reportedCount", &number);
  if (number != INT64_MAX) air.reportedCount = static_cast<int32_t>(number);
  number = INT64_MAX;
  members.number("scannedAt", &number);
  if (number != INT64_MAX) air.scannedAt = number;
  members.finish();
  return air;
}

JoinedNetwork readJoined(const Json &value, const std::string &place) {
  JoinedNetwork joined;
  Members members(value, place);
  members.choice("radio", kRadioNames, &joined.radio);
  members.text("ssid", &joined.ssid);
  joined.bssid = readBssid(members);
  members.finish();
  return joined;
}

Json saveAccessPoints(const std::vector<AccessPoint> &list) {
  Json saved = Json::array();
  for (const AccessPoint &one : list) {
    saved.push_back({{"ssid", one.ssid},
                     {"bssid", printMac(one.bssid)},
                     {"channel", one.channel},
                     {"rssi", one.rssi},
                     {"securityMode", one.securityMode},
                     {"encryption", one.encryption},
                     {"passphrase", one.passphrase}});
  }
  return saved;
}

Json saveAir(const Air &air) {
  Json saved = {{"accessPoints", saveAccessPoints(air.accessPoints)}};
  if (air.reportedCount) saved["reportedCount"] = *air.reportedCount;
  if (air.scannedAt) {
    saved["heard"] = saveAccessPoints(air.heard);
    saved["scannedAt"] = *air.scannedAt;
  }
  return saved;
}

Air &airOfBase(std::string_view path) {
  for (uint32_t radio = 0; radio < scans().radios.size(); ++radio) {
    if (path == radioBase(radio)) return scans().radios[radio];
  }
  throw Refusal(kUnknownInstance);
}

void checkWholeScan(WlanScanRequest *request) {
  if (request == nullptr) throw Refusal(kNullArgument, "no request");
  const Row row = fieldsOf<WlanScanRequest>(request);
  const bool whole =
      row.mark(WlanScanRequest::setting1) == 1 && row.mark(WlanScanRequest::setting2) == 1 &&
      row.word(WlanScanRequest::setting1) == UINT32_MAX && row.word(WlanScanRequest::setting2) == 0;
  if (!whole) throw Refusal(kInvalidField, "this is not the request for a whole scan");
}

void writeEntry(const AccessPoint &heard, uint8_t *entry) {
  const Row row = fieldsOf<WlanApEntry>(entry);
  // All 32 bytes may be characters: nothing terminates such a name.
  std::memcpy(entry + WlanApEntry::ssid.offset, heard.ssid.data(), heard.ssid.size());
  row.setMac(WlanApEntry::bssid, heard.bssid);
  row.setWord(WlanApEntry::channel, heard.channel);
  row.setWord(WlanApEntry::rssi, static_cast<uint32_t>(heard.rssi));
  row.setWord(WlanApEntry::securityMode, heard.securityMode);
  row.setWord(WlanApEntry::encryption, heard.encryption);
}

void writeList(const Air &air, WlanApList *list) {
  const Row row = fieldsOf<WlanApList>(list);
  const auto count = static_cast<int32_t>(air.heard.size());
  row.setWord(WlanApList::count, static_cast<uint32_t>(air.reportedCount.value_or(count)));
  uint8_t *entry = list->bytes + WlanApList::entries.offset;
  for (const AccessPoint &heard : air.heard) {
    writeEntry(heard, entry);
    entry += WlanApEntry::kSize;
  }
}

void checkListRequest(WlanApList *list) {
  if (list == nullptr) throw Refusal(kNullArgument, "no list");
  const Row row = fieldsOf<WlanApList>(list);
  const std::span rest(list->bytes + sizeof(uint32_t), WlanApList::kSize - sizeof(uint32_t));
  const bool cleared = row.word(WlanApList::selector) == UINT32_MAX &&
                       std::ranges::all_of(rest, [](uint8_t byte) { return byte == 0; });
  if (!cleared) throw Refusal(kBadRequest, "the list was not cleared and set to -1");
}

const AccessPoint &heardOn(uint32_t radio, const MacAddress &bssid) {
  const std::vector<AccessPoint> &heard = scans().radios[radio].heard;
  const auto found = std::ranges::find(heard, bssid, &AccessPoint::bssid);
  if (found == heard.end()) throw Refusal(kUnknownInstance);
  return *found;
}

void checkSelection(const Row &selection) {
  for (const Field &field : selection.layout().fields) {
    if (selection.mark(field) != 1) {
      throw Refusal(kInvalidField, std::string("the selection has no ") + field.name);
    }
  }
  if (selection.validity(WlanSelectRecord::passphrase) == -1) throw Refusal(kInvalidField);
}

int32_t join(uint32_t radio, const Row &selection) {
  const AccessPoint &network = heardOn(radio, selection.mac(WlanSelectRecord::bssid));
  if (selection.word(WlanSelectRecord::securityMode) != network.securityMode ||
      selection.word(WlanSelectRecord::channel) != network.channel) {
    throw Refusal(kBadRequest, "security or channel is not that of the access point");
  }
  const bool refused = network.securityMode != kOpen &&
                       selection.text(WlanSelectRecord::passphrase) != network.passphrase;
  if (refused) return kWrongPassphrase;
  scans().joined = {radio, network.ssid, network.bssid};
  return kOk;
}

}  // namespace

Scans &scans() {
  static Scans *const instance = new Scans;
  return *instance;
}

void Scans::load(const Json &value, const std::string &place) {
  Members members(value, place);
  for (size_t radio = 0; radio < radios.size(); ++radio) {
    const Json *air = members.take(kRadioNames[radio]);
    if (air != nullptr) radios[radio] = readAir(*air, members.placeOf(kRadioNames[radio]));
  }
  if (const Json *network = members.take("joined")) {
    joined = readJoined(*network, members.placeOf("joined"));
  }
  members.finish();
}

Json Scans::save() const {
  const bool silent = std::ranges::all_of(radios, [](const Air &air) {
    return air.accessPoints.empty() && !air.scannedAt && !air.reportedCount;
  });
  if (silent && !joined) return nullptr;
  Json saved = {{"2.4G", saveAir(radios[kRadio24G])}, {"5G", saveAir(radios[kRadio5G])}};
  if (joined) {
    saved["joined"] = {{"radio", kRadioNames[joined->radio]},
                       {"ssid", joined->ssid},
                       {"bssid", printMac(joined->bssid)}};
  }
  return saved;
}

}  // namespace gateway

using namespace gateway;

int32_t gateway::pm_wlan_set_scan_ap(const char *instance, WlanScanRequest *request) {
  Gateway &gateway = Gateway::current();
  Air &air = airOfBase(instance);
  checkWholeScan(request);
  air.heard = air.accessPoints;
  air.scannedAt = gateway.clock().uptime() + Scans::kDuration;
  return kOk;
}

int32_t gateway::pm_wlan_list_ap(const char *instance, WlanApList *list) {
  Gateway &gateway = Gateway::current();
  const std::string path = instance;
  if (!gateway.store().has<WlanConfigRecord>(path)) throw Refusal(kUnknownInstance);
  checkListRequest(list);
  const Air &air = scans().radios[radioOfSsid(path)];
  if (!air.scannedAt) throw Refusal(kBadRequest, "no scan was asked for");
  if (*air.scannedAt > gateway.clock().uptime()) {
    throw Refusal(kBadRequest, "the scan is still running");
  }
  writeList(air, list);
  return kOk;
}

int32_t gateway::pm_wlan_select_ap_bystamode(uint32_t radio, WlanSelectRecord *selection) {
  if (radio >= scans().radios.size()) throw Refusal(kUnknownInstance, "no such radio");
  const Row row = fieldsOf<WlanSelectRecord>(selection);
  checkSelection(row);
  return join(radio, row);
}
