// Stand-in for the multi-AP daemon's client library: the daemon is down. A process with a virtual
// gateway has functions of its own under these names, which the loader finds first.
#include "platform/multiap.h"

void *platform::mapd_interface_ctrl_open(const char *) {
  return nullptr;
}

int32_t platform::mapd_interface_get_topology(void *, char *, int32_t *, const char *) {
  return MAPD_COMMAND_FAILED;
}

void platform::mapd_interface_ctrl_close(void *) {}
