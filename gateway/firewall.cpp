// The firewall's switches and its table of filtered devices.
#include "platform/firewall.h"

#include "boundary/boundary.hpp"
#include "gateway/calls.hpp"
#include "gateway/gateway.hpp"
#include "gateway/instances.hpp"
#include "platform/firewall.hpp"

using namespace gateway;

namespace {

void needs(const void *pointer, const char *complaint) {
  if (pointer == nullptr) throw Refusal(kNullArgument, complaint);
}

void checkSwitches(const Row &base) {
  if (base.byte(FirewallBaseRecord::macFilterEnable) > 1 ||
      base.word(FirewallBaseRecord::macFilterPolicy) > 1) {
    throw Refusal(kInvalidField, "a switch of the MAC filter is neither 0 nor 1");
  }
}

void checkEntry(const Row &entry) {
  for (const Field &field : entry.layout().fields) {
    if (field.offset == MacFilterEntryRecord::name.offset) continue;
    if (entry.mark(field) != 1) {
      throw Refusal(kInvalidField, std::string("the entry has no ") + field.name);
    }
  }
  if (entry.validity(MacFilterEntryRecord::deviceName) == -1) throw Refusal(kInvalidField);
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
  Gateway &gateway = Gateway::current();
  const std::string path = instance;
  needs(record, "nowhere to write");
  return gateway.store().get(layoutOf<FirewallBaseRecord>(), path, record);
}

int32_t gateway::pm_fw_set_base(const char *instance, FirewallBaseRecord *record) {
  Gateway &gateway = Gateway::current();
  const std::string path = instance;
  needs(record, "no record");
  checkSwitches(fieldsOf<FirewallBaseRecord>(record));
  return gateway.store().set(layoutOf<FirewallBaseRecord>(), path, record, Unchanged::kReported);
}

int32_t gateway::pm_mac_filterset(char identity[32], MacFilterEntryRecord *record) {
  Gateway &gateway = Gateway::current();
  needs(identity, "nowhere to write the instance");
  needs(record, "no record");
  if (identity[0] != '\0') throw Refusal(kBadRequest, "entries are added, not changed");
  const Row entry = fieldsOf<MacFilterEntryRecord>(record);
  checkEntry(entry);
  return addEntry(gateway.store(), entry, identity);
}

int32_t gateway::pm_mac_filterlist(const char *parent, MacFilterList *list) {
  Gateway &gateway = Gateway::current();
  const std::string path = parent;
  needs(list, "no list");
  list->dwCount = writePaths(gateway.store().list(layoutOf<MacFilterView>(), path), list->capacity,
                             list->instances);
  return kOk;
}

int32_t gateway::pm_mac_filterdel(const char *identity) {
  Gateway &gateway = Gateway::current();
  return gateway.store().remove(layoutOf<MacFilterView>(), identity);
}
