#include "gateway/radios.hpp"

#include <array>
#include <charconv>

#include "boundary/boundary.hpp"
#include "gateway/calls.hpp"
#include "gateway/gateway.hpp"
#include "gateway/row_members.hpp"
#include "gateway/section.hpp"
#include "platform/wlan.hpp"

PM_RECORD(gateway::RadioCounts, PM_FIELD(of[0]).named("2.4G").means("of the first radio"),
          PM_FIELD(of[1]).named("5G").means("of the second radio"));
PM_RECORD(gateway::Radios, PM_FIELD(restarts).means("how often each radio was restarted"));

namespace gateway {

namespace {

constexpr std::string_view kSsidStem = "IGD.LD1.WLAN";
constexpr uint32_t kSsidsPerRadio = 4;
constexpr const char *kCards = "IGD.LD1.WLANBase1";

/// Settings of the radio, the same in the record of each of its SSIDs.
constexpr std::array<platform::Word, 5> kRadioFields = {
    WlanConfigRecord::bandwidthCode, WlanConfigRecord::radioEnable, WlanConfigRecord::txPowerLevel,
    WlanConfigRecord::channelMode, WlanConfigRecord::channel};

/// A profile says them with each SSID.
void checkRadioSettings(Radios &) {
  std::string firstOf[2];
  for (const std::string &path : store().paths<WlanConfigRecord>()) {
    std::string &first = firstOf[radioOfSsid(path)];
    if (first.empty()) first = path;
    const Row row = store().row<WlanConfigRecord>(path);
    const Row same = store().row<WlanConfigRecord>(first);
    for (const platform::Word &field : kRadioFields) {
      if (row.word(field) == same.word(field)) continue;
      throw InputError(placeInRow(row, path, field),
                       "differs from " + placeInRow(same, first, field));
    }
  }
}

SectionOf<Radios> section{"radios", "What happened to the radios", {{}, {}, checkRadioSettings}};

template <class Record>
int32_t get(const char *instance, Record *record) {
  for (const uint8_t byte : record->bytes) {
    if (byte != 0) throw Refusal(kBadRequest, "the record was not cleared");
  }
  return store().get(instance, record);
}

template <class Record>
int32_t set(const char *instance, const Record *record) {
  return store().set(instance, record, Unchanged::kReported);
}

/// The instances of a layout that belong to the radio of one of them.
template <class Record>
std::vector<std::string> ofSameRadio(std::string_view path) {
  std::vector<std::string> paths = store().paths<Record>();
  std::erase_if(paths,
                [&](const std::string &other) { return radioOfSsid(other) != radioOfSsid(path); });
  return paths;
}

void spreadRadioSettings(std::string_view path, const Row &given) {
  for (const std::string &other : ofSameRadio<WlanConfigRecord>(path)) {
    const Row row = store().row<WlanConfigRecord>(other);
    for (const platform::Word &field : kRadioFields) {
      if (given.mark(field) == 1) row.setWord(field, given.word(field));
    }
  }
}

/// A restart is an event; the record does not keep it.
void restartIfAsked(const Row &row, std::string_view path) {
  if (row.word(WlanConfigRecord::restart) == 0) return;
  row.setWord(WlanConfigRecord::restart, 0);
  ++radios().restarts.of[radioOfSsid(path)];
}

}  // namespace

uint32_t radioOfSsid(std::string_view path) {
  if (!path.starts_with(kSsidStem)) return kBand24G;
  uint32_t number = 0;
  std::from_chars(path.data() + kSsidStem.size(), path.data() + path.size(), number);
  return number > kSsidsPerRadio ? kBand5G : kBand24G;
}

Radios &radios() {
  return section.state();
}

int32_t pm_wlan_get_config(const char *instance, WlanConfigRecord *record) {
  return get(instance, record);
}

int32_t pm_wlan_set_config(const char *instance, WlanConfigRecord *record) {
  const int32_t status = set(instance, record);
  if (status != kOk) return status;
  spreadRadioSettings(instance, fieldsOf<WlanConfigRecord>(record));
  restartIfAsked(store().row<WlanConfigRecord>(instance), instance);
  return kOk;
}

int32_t pm_wlan_get_config_driver(const char *instance, WlanDriverRecord *record) {
  return get(instance, record);
}

int32_t pm_wlan_get_txpower(const char *instance, WlanTxPowerRecord *record) {
  return get(instance, record);
}

int32_t pm_wlan_set_txpower(const char *instance, WlanTxPowerRecord *record) {
  return set(instance, record);
}

int32_t pm_wlan_get_wep(const char *keyInstance, WlanWepRecord *record) {
  return get(keyInstance, record);
}

int32_t pm_wlan_set_wep(const char *keyInstance, WlanWepRecord *record) {
  return set(keyInstance, record);
}

int32_t pm_wlan_get_psk(const char *keyInstance, WlanPskRecord *record) {
  return get(keyInstance, record);
}

int32_t pm_wlan_set_psk(const char *keyInstance, WlanPskRecord *record) {
  return set(keyInstance, record);
}

int32_t pm_wlan_get_card_max(WlanCardRecord *record) {
  return get(kCards, record);
}

int32_t pm_wlan_set_wps(const char *instance, WlanWpsRecord *record) {
  return set(instance, record);
}

int32_t pm_wlan_set_pmf(const char *instance, uint32_t value) {
  if (!store().has<WlanConfigView>(instance)) return kUnknownInstance;
  for (const std::string &ssid : ofSameRadio<WlanConfigView>(instance)) {
    store().row<WlanConfigView>(ssid).setWord(WlanConfigView::pmf, value);
  }
  return kOk;
}

}  // namespace gateway
