// Stand-in for the multi-AP daemon's client library. Without hooks in its process it answers as if
// the daemon were down.
#include "gateway/multiap/hooks.h"

void *mapd_interface_ctrl_open(const char *controlPath) {
  return gateway_mapd_open == nullptr ? nullptr : gateway_mapd_open(controlPath);
}

int32_t mapd_interface_get_topology(void *handle, char *buffer, int32_t *length,
                                    const char *dumpPath) {
  if (gateway_mapd_get_topology == nullptr) return MAPD_COMMAND_FAILED;
  return gateway_mapd_get_topology(handle, buffer, length, dumpPath);
}

void mapd_interface_ctrl_close(void *handle) {
  if (gateway_mapd_close != nullptr) gateway_mapd_close(handle);
}
