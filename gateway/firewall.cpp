// The firewall's switches and its table of filtered devices.
#include "platform/firewall.h"

#include "boundary/boundary.hpp"
#include "gateway/calls.hpp"
#include "gateway/gateway.hpp"
#include "gateway/instances.hpp"
#include "gateway/requests.hpp"
#include "platform/firewall.hpp"

using namespace gateway;

namespace {

void checkSwitches(const Row &base) {
  if (base.byte(FirewallBaseRecord::macFilterEnable) > 1 ||
      base.word(FirewallBaseRecord::macFilterPolicy) > 1) {
    throw Refusal(kInvalidField, "a switch of the MAC filter is neither 0 nor 1");
  }
}

bool isListed(Store &store, const MacAddress &mac) {
  for (const std::string &path : store.paths(layoutOf<MacFilterView>())) {
    if (store.row<MacFilterView>(path).mac(MacFilterView::sourceMac) == mac) return true;
  }
  return false;
}

int32_t addEntry(Store &store, const Row &entry, char *identity) {
  const MacAddress mac = entry.mac(MacFilterEntryRecord::sourceMac);
  // Twice the same device changes nothing.
  if (isListed(store, mac)) return kNothingChanged;
  std::string path;
  if (const int32_t status = store.add(layoutOf<MacFilterView>(), "IGD", &path); status != kOk) {
    return status;
  }
  const Row row = store.row<MacFilterView>(path);
  row.setWord(MacFilterView::type, entry.word(MacFilterEntryRecord::type));
  row.setWord(MacFilterView::protocol, entry.word(MacFilterEntryRecord::protocol));
  row.setMac(MacFilterView::sourceMac, mac);
  row.setText(MacFilterView::deviceName, entry.text(MacFilterEntryRecord::deviceName));
  writePath(path, identity);
  return kOk;
}

}  // namespace

int32_t gateway::pm_fw_get_base(const char *instance, FirewallBaseRecord *record) {
  return Gateway::current().store().get(layoutOf<FirewallBaseRecord>(), instance, record);
}

int32_t gateway::pm_fw_set_base(const char *instance, FirewallBaseRecord *record) {
  checkSwitches(fieldsOf<FirewallBaseRecord>(record));
  return Gateway::current().store().set(layoutOf<FirewallBaseRecord>(), instance, record,
                                        Unchanged::kReported);
}

int32_t gateway::pm_mac_filterset(char identity[32], MacFilterEntryRecord *record) {
  using Entry = MacFilterEntryRecord;
  if (identity[0] != '\0') throw Refusal(kBadRequest, "entries are added, not changed");
  const Row entry = fieldsOf<Entry>(record);
  requireMarks(entry, {Entry::type, Entry::protocol, Entry::sourceMac, Entry::deviceName});
  return addEntry(Gateway::current().store(), entry, identity);
}

int32_t gateway::pm_mac_filterlist(const char *parent, MacFilterList *list) {
  const auto paths = Gateway::current().store().list(layoutOf<MacFilterView>(), parent);
  list->dwCount = writePaths(paths, list->capacity, list->instances);
  return kOk;
}

int32_t gateway::pm_mac_filterdel(const char *identity) {
  return Gateway::current().store().remove(layoutOf<MacFilterView>(), identity);
}
