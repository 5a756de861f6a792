#include "gateway/missing.hpp"
#include "platform/firewall.h"

using namespace gateway;

int32_t pm_fw_get_base(const char *instance, void *) {
  return notThereYet("pm_fw_get_base", instance);
}
int32_t pm_fw_set_base(const char *instance, void *) {
  return notThereYet("pm_fw_set_base", instance);
}
int32_t pm_mac_filterset(char *, void *) {
  return notThereYet("pm_mac_filterset");
}
int32_t pm_mac_filterlist(const char *parent, MacFilterList *) {
  return notThereYet("pm_mac_filterlist", parent);
}
int32_t pm_mac_filterdel(const char *identity) {
  return notThereYet("pm_mac_filterdel", identity);
}
