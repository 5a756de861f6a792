/**
 * @file uplinkrate_config.h
 * Intervals of the uplink rate samples.
 */
#ifndef PMAPI_UPLINKRATE_CONFIG_H_
#define PMAPI_UPLINKRATE_CONFIG_H_

#include "pmapi/types.h"

PMAPI_BEGIN_DECLS

/** Sampling intervals of one interface. */
typedef struct UplinkRateConfigRecord {
  char interface[32];      /**< name of the interface, also the instance path written to */
  char reportInterval[32]; /**< decimal; written unchecked */
  char sampleInterval[32]; /**< decimal; written unchecked */
} UplinkRateConfigRecord;

/**
 * Writes the intervals into the platform's configuration. The library's own interval globals follow
 * with the next sample that is taken.
 * @param record a text of 33 characters or more is sent as an invalid field
 * @retval 0 written
 * @retval PM_STATUS_NULL_RECORD @p record is NULL
 * @retval PM_STATUS_FAILED the platform refused
 */
PMAPI_EXPORT int32_t pm_ubus_uplinkrate_config_set(const UplinkRateConfigRecord *record);

PMAPI_END_DECLS

#endif /* PMAPI_UPLINKRATE_CONFIG_H_ */
