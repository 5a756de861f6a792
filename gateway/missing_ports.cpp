#include "gateway/missing.hpp"
#include "platform/ports.h"

using namespace gateway;

int32_t pm_eth_get_port_basic_statstics(const char *instance, void *) {
  return notThereYet("pm_eth_get_port_basic_statstics", instance);
}
int32_t pm_bw_get_hard_stats(const char *instance, void *) {
  return notThereYet("pm_bw_get_hard_stats", instance);
}
