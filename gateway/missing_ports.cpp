#include "gateway/missing.hpp"
#include "platform/ports.h"

using namespace gateway;

int32_t pm_mac_prm_op(uint32_t, void *, void *, void *) {
  return notThereYet("pm_mac_prm_op");
}
int32_t pm_wan_get_port_link_state_type(uint32_t *, uint32_t *, uint32_t *, uint32_t) {
  return notThereYet("pm_wan_get_port_link_state_type");
}
int32_t pm_eth_get_port_link_state(const char *instance, void *) {
  return notThereYet("pm_eth_get_port_link_state", instance);
}
int32_t pm_switch_get_inst_id_by_port(uint32_t, char *) {
  return notThereYet("pm_switch_get_inst_id_by_port");
}
int32_t pm_eth_get_port_basic_statstics(const char *instance, void *) {
  return notThereYet("pm_eth_get_port_basic_statstics", instance);
}
int32_t pm_bw_get_hard_stats(const char *instance, void *) {
  return notThereYet("pm_bw_get_hard_stats", instance);
}
