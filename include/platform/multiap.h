/* Client library of the EasyMesh multi-AP daemon; a shared library of its own. */
#ifndef PLATFORM_MULTIAP_H
#define PLATFORM_MULTIAP_H

#include "platform/import.h"

PLATFORM_BEGIN_DECLS

enum MapdStatus { MAPD_OK = 0, MAPD_COMMAND_FAILED = -1, MAPD_TIME_OUT = -2 };

/** Opens the control socket; NULL when the daemon cannot be reached. */
PLATFORM_IMPORT void *mapd_interface_ctrl_open(const char *controlPath);
/**
 * Asks for the topology as JSON text. `length` holds the size of `buffer` on entry; a dump that
 * fills it need not be terminated. The daemon leaves a copy at `dumpPath`.
 */
PLATFORM_IMPORT int32_t mapd_interface_get_topology(void *handle, char *buffer, int32_t *length,
                                                    const char *dumpPath);
PLATFORM_IMPORT void mapd_interface_ctrl_close(void *handle);

PLATFORM_END_DECLS

#endif
