/**
 * @file wifi_wps.h
 * Wi-Fi protected set-up.
 */
#ifndef PMAPI_WIFI_WPS_H_
#define PMAPI_WIFI_WPS_H_

#include "pmapi/types.h"

PMAPI_BEGIN_DECLS

/**
 * Starts WPS on one radio, or on 2.4 GHz and then 5 GHz.
 * @param radio "2.4G", "5G" or "all", or any beginning (empty is "2.4G"); for an unknown text the
 *   platform is asked with an empty instance and decides
 * @retval 0 started, or nothing changed
 * @retval PM_STATUS_NULL_RECORD @p radio is NULL
 * @return else the platform status; with "all", 2.4 GHz stays started when 5 GHz is refused
 */
PMAPI_EXPORT uint32_t pm_ubus_wifi_wps_set(const char *radio);

PMAPI_END_DECLS

#endif /* PMAPI_WIFI_WPS_H_ */
