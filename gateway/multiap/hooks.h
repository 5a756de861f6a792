/* How the stand-in of the multi-AP client library reaches a daemon that lives in its own process.
 */
#ifndef GATEWAY_MULTIAP_HOOKS_H
#define GATEWAY_MULTIAP_HOOKS_H

#include "platform/multiap.h"

PLATFORM_BEGIN_DECLS

/* A process without these has no multi-AP daemon. */
PLATFORM_IMPORT void *gateway_mapd_open(const char *controlPath) __attribute__((weak));
PLATFORM_IMPORT int32_t gateway_mapd_get_topology(void *handle, char *buffer, int32_t *length,
                                                  const char *dumpPath) __attribute__((weak));
PLATFORM_IMPORT void gateway_mapd_close(void *handle) __attribute__((weak));

PLATFORM_END_DECLS

#endif
