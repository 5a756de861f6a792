/**
 * @file wlanconnect.h
 * The gateway as a Wi-Fi client of another access point.
 */
#ifndef PMAPI_WLANCONNECT_H_
#define PMAPI_WLANCONNECT_H_

#include "pmapi/types.h"

PMAPI_BEGIN_DECLS

/** Network to join. */
typedef struct WlanConnectRecord {
  char ssid[32]; /**< compared exactly; at most 31 characters; empty matches a hidden network */
  char pwd[64];  /**< at most 62 characters are taken */
} WlanConnectRecord;

/**
 * Makes Wi-Fi the uplink and joins the named network, looked for on 2.4 GHz and then on 5 GHz.
 * Blocks for 10 seconds per radio scanned and 10 more after a match. The uplink mode is switched
 * first and saved, also when @p record is NULL or the network is not found; it is not switched
 * back. A mode that cannot be saved or taken over at once does not end the call.
 * @param record the network
 * @retval 0 joined; or not found, the last radio asked having been scanned and listed well
 * @retval PM_STATUS_NULL_RECORD @p record is NULL
 * @retval PM_STATUS_NOT_WRITTEN joined, but the client interface cannot be recorded
 * @return else the platform status of the uplink mode, of the last scan or list when the network
 *   was not found, or of the selection
 */
PMAPI_EXPORT int32_t pm_ubus_wlanconnect_set(const WlanConnectRecord *record);

PMAPI_END_DECLS

#endif /* PMAPI_WLANCONNECT_H_ */
