/**
 * @file iptv.h
 * Binding of LAN ports and Wi-Fi access points to the IPTV VLAN.
 */
#ifndef PMAPI_IPTV_H_
#define PMAPI_IPTV_H_

#include "pmapi/types.h"

PMAPI_BEGIN_DECLS

/** IPTV bindings. */
typedef struct UbusIptv {
  uint32_t enable;        /**< 1 on, 0 removes all bindings */
  uint32_t vlanId;        /**< 0 to 4096 */
  uint32_t ethPorts[4];   /**< LAN port numbers; a 0 ends the list */
  uint32_t wlanPorts[16]; /**< access point numbers; a 0 ends the list */
} UbusIptv;

/**
 * Binds the named ports to the VLAN; bindings of other ports stay. With enable 0 removes them all.
 * Refusals of the platform are ignored.
 * @param record by value
 * @retval PM_STATUS_FAILED vlanId is above 4096 (with enable not 0)
 * @return with enable 0 what pm_iptv_del() returns; else what the logger returned, which is no
 *   status
 */
PMAPI_EXPORT int32_t pm_ubus_nexumd_iptv_set(UbusIptv record);

/**
 * Reads the bindings; at most 4 LAN ports and 16 access points are reported.
 * @param record zero-filled; vlanId is written for VLANs 1 to 4094 only, the last one wins
 * @retval 0 read
 * @retval PM_STATUS_FAILED @p record is NULL, the bindings cannot be listed, or there is none
 *   (@p record is untouched)
 */
PMAPI_EXPORT int32_t pm_ubus_nexumd_iptv_get(UbusIptv *record);

/**
 * Removes up to 32 bindings. For a binding that cannot be read the platform is called with what its
 * zeroed record holds.
 * @return 0 or the platform status of the listing
 */
PMAPI_EXPORT int32_t pm_iptv_del(void);

PMAPI_END_DECLS

#endif /* PMAPI_IPTV_H_ */
