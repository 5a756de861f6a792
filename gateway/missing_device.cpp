#include "gateway/missing.hpp"
#include "platform/device.h"

using namespace gateway;

int32_t pm_dev_restart(uint32_t) {
  return notThereYet("pm_dev_restart");
}
int32_t pm_dev_restore_special(uint32_t, uint32_t, uint32_t, uint32_t) {
  return notThereYet("pm_dev_restore_special");
}
int32_t pm_pdt_ctl_leds(uint32_t, uint32_t, uint32_t, uint32_t) {
  return notThereYet("pm_pdt_ctl_leds");
}
int32_t pm_pdt_get_leds_status(uint32_t, uint32_t, uint32_t, uint32_t) {
  return notThereYet("pm_pdt_get_leds_status");
}
int32_t pm_log_get_config(void *) {
  return notThereYet("pm_log_get_config");
}
int32_t pm_log_set_config(void *) {
  return notThereYet("pm_log_set_config");
}
int32_t pm_srm_get_update_cpu_info(const char *instance, void *) {
  return notThereYet("pm_srm_get_update_cpu_info", instance);
}
