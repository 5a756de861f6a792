/**
 * @file set_radio.h
 * Transmit power, channel and channel width of a radio.
 */
#ifndef PMAPI_SET_RADIO_H_
#define PMAPI_SET_RADIO_H_

#include "pmapi/types.h"

PMAPI_BEGIN_DECLS

/** Radio settings. A text that fills its field runs on into the next one. */
typedef struct RadioRecord {
  char radio[5];          /**< "2.4G" or "5G", or any beginning; empty is "2.4G" */
  char transmitPower[32]; /**< 1 to 100, decimal; sent as an invalid field beyond 8 characters */
  char channel[7];        /**< channel number, decimal; what is no number counts as 0 */
  int32_t bandwidth;      /**< width number 0, 1, 2; any other goes to the platform as it is */
} RadioRecord;

/**
 * Writes the settings of a radio: first the power, then channel and width.
 * @param record the settings
 * @retval 0 written; the platform's "nothing changed" counts only for channel and width
 * @retval PM_STATUS_NULL_RECORD @p record is NULL
 * @retval PM_STATUS_FAILED unknown radio, or a power outside 1 to 100; nothing is written
 * @retval PM_STATUS_NO_5G_RADIO the gateway has no 5 GHz radio; nothing is written
 * @return else the platform status of the write that failed
 */
PMAPI_EXPORT uint32_t pm_ubus_radio_set(const RadioRecord *record);

PMAPI_END_DECLS

#endif /* PMAPI_SET_RADIO_H_ */
