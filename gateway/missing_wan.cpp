#include "gateway/missing.hpp"
#include "platform/wan.h"

using namespace gateway;

int32_t pm_e8_wanc_set_comm_ppp_ext(char *, void *) {
  return notThereYet("pm_e8_wanc_set_comm_ppp_ext");
}
int32_t pm_e8_wanc_set_comm_ip_ext(char *, void *) {
  return notThereYet("pm_e8_wanc_set_comm_ip_ext");
}
int32_t si_ifsadapt_clear_wanc(void) {
  return notThereYet("si_ifsadapt_clear_wanc");
}
int32_t pm_wanc_set_ppp_username_passwd(void *) {
  return notThereYet("pm_wanc_set_ppp_username_passwd");
}
int32_t pm_wanc_change_brg_route_mode(void *, uint32_t) {
  return notThereYet("pm_wanc_change_brg_route_mode");
}
