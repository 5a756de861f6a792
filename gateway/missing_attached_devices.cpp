#include "gateway/missing.hpp"
#include "platform/attached_devices.h"

using namespace gateway;

int32_t plib_adev_list_view(InstanceList *) {
  return notThereYet("plib_adev_list_view");
}
int32_t plib_adev_list_view_all(InstanceList *) {
  return notThereYet("plib_adev_list_view_all");
}
