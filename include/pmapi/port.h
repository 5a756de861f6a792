/**
 * @file port.h
 * One Ethernet port of the gateway.
 */
#ifndef PMAPI_PORT_H_
#define PMAPI_PORT_H_

#include "pmapi/types.h"

PMAPI_BEGIN_DECLS

/** Port information. */
typedef struct PortInfoRecord {
  uint32_t portNumber;     /**< one-based */
  uint32_t portType;       /**< 0 uplink port, 1 LAN port */
  char portRate[32];       /**< "10Mbps", "100Mbps", "1000Mbps"; LAN ports also "10000Mbps" */
  char portMac[32];        /**< twelve upper-case digits, all 0 when the platform does not tell */
  uint32_t portConnection; /**< link state as the platform reports it */
} PortInfoRecord;

/**
 * Reads one port. The port is the uplink port when @p portIndex equals the low 16 bits of the
 * platform's uplink port word.
 * @param portIndex zero-based
 * @param instance the port's instance path, not NULL
 * @param record zero-filled; portNumber is written on every path. An unknown rate gives an empty
 *   portRate on the uplink port and leaves it untouched on a LAN port
 * @retval 0 filled; an unreadable link of the uplink port is only logged
 * @retval PM_STATUS_UNREADABLE the port's configuration cannot be read
 * @retval PM_STATUS_FAILED @p record is NULL
 * @return else the platform status of the uplink mode, or of a LAN port's link state (portMac, and
 *   portType for the latter, are filled by then)
 */
PMAPI_EXPORT int32_t pm_ubus_get_portinfo(uint32_t portIndex, const char *instance,
                                          PortInfoRecord *record);

PMAPI_END_DECLS

#endif /* PMAPI_PORT_H_ */
