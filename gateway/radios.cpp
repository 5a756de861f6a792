#include "gateway/wlan.hpp"

#include <charconv>
#include <nlohmann/json.hpp>

#include "boundary/boundary.hpp"
#include "gateway/calls.hpp"
#include "gateway/gateway.hpp"
#include "gateway/instances.hpp"
#include "platform/wlan.h"
#include "platform/wlan.hpp"

namespace gateway {

namespace {

constexpr std::string_view kSsidStem = "IGD.LD1.WLAN";
constexpr uint32_t kSsidsPerRadio = 4;
constexpr char kCards[PLATFORM_INSTANCE_SIZE] = "IGD.LD1.WLANBase1";

// Made at start-up, so that its member of the profile is known before anybody calls.
[[maybe_unused]] const Radios &registered = radios();

/// Settings of the radio, the same in the record of each of its SSIDs.
constexpr std::array<platform::Word, 5> kRadioFields = {
    WlanConfigRecord::bandwidthCode, WlanConfigRecord::radioEnable, WlanConfigRecord::txPowerLevel,
    WlanConfigRecord::channelMode, WlanConfigRecord::channel};

template <class Record>
int32_t get(const char *instance, Record *record) {
  for (const uint8_t byte : record->bytes) {
    if (byte != 0) throw Refusal(kBadRequest, "the record was not cleared");
  }
  return Gateway::current().store().get(layoutOf<Record>(), instance, record);
}

template <class Record>
int32_t set(const char *instance, const Record *record) {
  return Gateway::current().store().set(layoutOf<Record>(), instance, record, Unchanged::kReported);
}

/// The instances of a layout that belong to the radio of one of them.
std::vector<std::string> ofSameRadio(Store &store, const Layout &layout, std::string_view path) {
  std::vector<std::string> paths = store.paths(layout);
  std::erase_if(paths,
                [&](const std::string &other) { return radioOfSsid(other) != radioOfSsid(path); });
  return paths;
}

void spreadRadioSettings(Store &store, const std::string &path, const Row &given) {
  for (const std::string &other : ofSameRadio(store, layoutOf<WlanConfigRecord>(), path)) {
    const Row row = store.row<WlanConfigRecord>(other);
    for (const platform::Word &field : kRadioFields) {
      if (given.mark(field) == 1) row.setWord(field, given.word(field));
    }
  }
}

/// A restart is an event; the record does not keep it.
void restartIfAsked(const Row &row, std::string_view path) {
  if (row.word(WlanConfigRecord::restart) == 0) return;
  row.setWord(WlanConfigRecord::restart, 0);
  ++radios().restarts[radioOfSsid(path)];
}

}  // namespace

uint32_t radioOfSsid(std::string_view path) {
  if (!path.starts_with(kSsidStem)) return kRadio24G;
  uint32_t number = 0;
  std::from_chars(path.data() + kSsidStem.size(), path.data() + path.size(), number);
  return number > kSsidsPerRadio ? kRadio5G : kRadio24G;
}

Radios &radios() {
  static Radios *const instance = new Radios;
  return *instance;
}

void Radios::load(const Json &value, const std::string &place) {
  Members members(value, place);
  if (const Json *counts = members.take("restarts")) {
    Members restartMembers(*counts, members.placeOf("restarts"));
    restartMembers.word("2.4G", &restarts[kRadio24G]);
    restartMembers.word("5G", &restarts[kRadio5G]);
    restartMembers.finish();
  }
  members.finish();
}

Json Radios::save() const {
  if (restarts == decltype(restarts){}) return nullptr;
  return {{"restarts", {{"2.4G", restarts[kRadio24G]}, {"5G", restarts[kRadio5G]}}}};
}

}  // namespace gateway

using namespace gateway;

int32_t gateway::pm_wlan_get_config(const char *instance, WlanConfigRecord *record) {
  return get(instance, record);
}

int32_t gateway::pm_wlan_set_config(const char *instance, WlanConfigRecord *record) {
  Gateway &gateway = Gateway::current();
  const std::string path = instance;
  Store &store = gateway.store();
  const int32_t status =
      store.set(layoutOf<WlanConfigRecord>(), path, record, Unchanged::kReported);
  if (status != kOk) return status;
  spreadRadioSettings(store, path, fieldsOf<WlanConfigRecord>(record));
  restartIfAsked(store.row<WlanConfigRecord>(path), path);
  return status;
}

int32_t gateway::pm_wlan_get_config_driver(const char *instance, WlanDriverRecord *record) {
  return get(instance, record);
}

int32_t gateway::pm_wlan_get_txpower(const char *instance, WlanTxPowerRecord *record) {
  return get(instance, record);
}

int32_t gateway::pm_wlan_set_txpower(const char *instance, WlanTxPowerRecord *record) {
  return set(instance, record);
}

int32_t gateway::pm_wlan_get_wep(const char *keyInstance, WlanWepRecord *record) {
  return get(keyInstance, record);
}

int32_t gateway::pm_wlan_set_wep(const char *keyInstance, WlanWepRecord *record) {
  return set(keyInstance, record);
}

int32_t gateway::pm_wlan_get_psk(const char *keyInstance, WlanPskRecord *record) {
  return get(keyInstance, record);
}

int32_t gateway::pm_wlan_set_psk(const char *keyInstance, WlanPskRecord *record) {
  return set(keyInstance, record);
}

int32_t gateway::pm_wlan_get_card_max(WlanCardRecord *record) {
  return get(kCards, record);
}

int32_t gateway::pm_wlan_set_wps(const char *instance, WlanWpsRecord *record) {
  return set(instance, record);
}

int32_t gateway::pm_wlan_set_pmf(const char *instance, uint32_t value) {
  Gateway &gateway = Gateway::current();
  const std::string key = boundary::text(instance) + " " + std::to_string(value);
  const std::string path = instance;
  Store &store = gateway.store();
  if (!store.has<WlanConfigView>(path)) return kUnknownInstance;
  for (const std::string &ssid : ofSameRadio(store, layoutOf<WlanConfigView>(), path)) {
    store.row<WlanConfigView>(ssid).setWord(WlanConfigView::pmf, value);
  }
  return kOk;
}
