#include "gateway/missing.hpp"
#include "platform/timers.h"

using namespace gateway;

int32_t pm_app_wake_up_control_get(void *, void *) {
  return notThereYet("pm_app_wake_up_control_get");
}
int32_t pm_app_wake_up_control_set(void *, void *) {
  return notThereYet("pm_app_wake_up_control_set");
}
int32_t pm_wlan_ex_control_get(void *, void *) {
  return notThereYet("pm_wlan_ex_control_get");
}
int32_t pm_wlan_ex_control_set(void *, void *) {
  return notThereYet("pm_wlan_ex_control_set");
}
