#include "gateway/scans.hpp"

#include <algorithm>
#include <cstring>
#include <span>

#include "boundary/boundary.hpp"
#include "gateway/calls.hpp"
#include "gateway/gateway.hpp"
#include "gateway/radios.hpp"
#include "gateway/section.hpp"
#include "platform/codes.hpp"
#include "platform/wlan.hpp"

PM_RECORD(gateway::AccessPoint, PM_FIELD(ssid).atMost(32).means("empty when it is hidden"),
          PM_FIELD(bssid).means("which must be given"), PM_FIELD(channel).means("its number"),
          PM_FIELD(rssi).means(platform::unit("dBm")),
          PM_FIELD(securityMode).means(platform::codes(platform::kSecurityModes)),
          PM_FIELD(encryption).means(platform::codes(platform::kCiphers)),
          PM_FIELD(passphrase).secret().means("what lets a client join"));
PM_RECORD(gateway::Air,
          PM_FIELD(accessPoints)
              .atMost(platform::WlanApList::Entries::kCount)
              .means("those that a scan would hear"),
          PM_FIELD(reportedCount).means("the number that the platform says, where it miscounts"),
          PM_FIELD(heard)
              .atMost(platform::WlanApList::Entries::kCount)
              .means("those that the last scan heard"),
          PM_FIELD(scannedAt)
              .means(platform::unit("s"))
              .means("uptime at which the last scan has its result"));
PM_RECORD(gateway::JoinedNetwork, PM_FIELD(radio).means(platform::codes(platform::kBands)),
          PM_FIELD(ssid).atMost(32).means("of the access point"),
          PM_FIELD(bssid).means("which must be given"));
PM_RECORD(gateway::Scans, PM_FIELD(radios[0]).named("2.4G").means("around the first radio"),
          PM_FIELD(radios[1]).named("5G").means("around the second radio"),
          PM_FIELD(joined).means("the network that the gateway is a client of"));

namespace gateway {

namespace {

void checkBssids(const std::vector<AccessPoint> &list, const std::string &place) {
  for (size_t i = 0; i < list.size(); ++i) {
    if (list[i].bssid != MacAddress{}) continue;
    throw InputError(placeOf(placeOf(place, i), "bssid"), "is missing");
  }
}

void check(Scans &all, const std::string &place) {
  for (const Code &band : kBands) {
    const Air &air = all.radios[band.value];
    checkBssids(air.accessPoints, placeOf(placeOf(place, band.name), "accessPoints"));
    checkBssids(air.heard, placeOf(placeOf(place, band.name), "heard"));
  }
  if (all.joined && all.joined->bssid == MacAddress{}) {
    throw InputError(placeOf(place, "joined.bssid"), "is missing");
  }
}

SectionOf<Scans> section{
    "scans", "The air around the gateway, and the network that it joined", {check}};

Air &airOfBase(std::string_view path) {
  for (const Code &band : kBands) {
    if (path == radioBase(band.value)) return scans().radios[band.value];
  }
  throw Refusal(kUnknownInstance);
}

void checkWholeScan(WlanScanRequest *request) {
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
  const bool refused = network.securityMode != kSecurityNone &&
                       selection.text(WlanSelectRecord::passphrase) != network.passphrase;
  if (refused) return kWrongPassphrase;
  scans().joined = {radio, network.ssid, network.bssid};
  return kOk;
}

}  // namespace

Scans &scans() {
  return section.state();
}

int32_t pm_wlan_set_scan_ap(const char *instance, WlanScanRequest *request) {
  Air &air = airOfBase(instance);
  checkWholeScan(request);
  air.heard = air.accessPoints;
  air.scannedAt = Gateway::current().clock().uptime() + Scans::kDuration;
  return kOk;
}

int32_t pm_wlan_list_ap(const char *instance, WlanApList *list) {
  if (!store().has<WlanConfigRecord>(instance)) throw Refusal(kUnknownInstance);
  checkListRequest(list);
  const Air &air = scans().radios[radioOfSsid(instance)];
  if (!air.scannedAt) throw Refusal(kBadRequest, "no scan was asked for");
  if (*air.scannedAt > Gateway::current().clock().uptime()) {
    throw Refusal(kBadRequest, "the scan is still running");
  }
  writeList(air, list);
  return kOk;
}

int32_t pm_wlan_select_ap_bystamode(uint32_t radio, WlanSelectRecord *selection) {
  if (radio > kBand5G) throw Refusal(kUnknownInstance, "no such radio");
  const Row row = fieldsOf<WlanSelectRecord>(selection);
  checkSelection(row);
  return join(radio, row);
}

}  // namespace gateway
