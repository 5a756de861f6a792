/**
 * @file wifi_switch.h
 * Radios on and off.
 */
#ifndef PMAPI_WIFI_SWITCH_H_
#define PMAPI_WIFI_SWITCH_H_

#include "pmapi/types.h"

PMAPI_BEGIN_DECLS

/** Switch of one radio. */
typedef struct WifiSwitchRecord {
  char radio[64]; /**< "2.4G" or "5G", or any beginning; empty is "2.4G" */
  int32_t enable; /**< handed to the platform as it is */
} WifiSwitchRecord;

/**
 * Switches a radio on or off.
 * @param record the switch
 * @retval 0 switched, or nothing changed
 * @retval PM_STATUS_NULL_RECORD @p record is NULL
 * @retval PM_STATUS_UNKNOWN_RADIO the radio is unknown
 * @return else the platform status
 */
PMAPI_EXPORT uint32_t pm_ubus_wifi_switch_set(const WifiSwitchRecord *record);

PMAPI_END_DECLS

#endif /* PMAPI_WIFI_SWITCH_H_ */
