#include "gateway/missing.hpp"
#include "platform/traffic_rules.h"

using namespace gateway;

int32_t pm_iptvvlanbind_set_config(const char *portPath, uint32_t) {
  return notThereYet("pm_iptvvlanbind_set_config", portPath);
}
int32_t pm_qos_qc_set_config(char *, void *) {
  return notThereYet("pm_qos_qc_set_config");
}
int32_t pm_qos_qc_del_config(const char *ruleName) {
  return notThereYet("pm_qos_qc_del_config", ruleName);
}
