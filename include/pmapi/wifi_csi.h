/**
 * @file wifi_csi.h
 * Collection of Wi-Fi channel state information (CSI).
 */
#ifndef PMAPI_WIFI_CSI_H_
#define PMAPI_WIFI_CSI_H_

#include "pmapi/types.h"

PMAPI_BEGIN_DECLS

/** Switch of the collection. */
typedef struct CsiEnableSetRecord {
  char radio[32]; /**< "2.4G", "5G" or "All", exactly */
  int32_t enable;
} CsiEnableSetRecord;

/** State of the collection: 2.4 GHz, then 5 GHz. The radio texts are the platform's. */
typedef struct CsiEnableRecord {
  char radio1[32];
  int32_t enable1;
  char radio2[32];
  int32_t enable2;
} CsiEnableRecord;

/** Stations whose CSI is collected; allocate 416 characters for the list. */
typedef struct CsiMacRecord {
  int32_t operation; /**< 1 add, 2 delete */
  char macList[];    /**< MACs of twelve digits with one character between them */
} CsiMacRecord;

/** Parameters of the collection; their meaning is the platform's. */
typedef struct CsiConfigRecord {
  int32_t csiParam1;
  int32_t csiParam2;
} CsiConfigRecord;

/**
 * Switches the collection on one radio or on both.
 * @param record the switch
 * @retval 0 written
 * @retval PM_STATUS_NULL_RECORD @p record is NULL
 * @retval PM_STATUS_FAILED unknown radio, or the write failed (nothing changed included); with
 *   "All" that of 5 GHz alone decides
 */
PMAPI_EXPORT int32_t pm_ubus_set_csi_enable(const CsiEnableSetRecord *record);

/**
 * Reads the state of both radios.
 * @param record zero-filled; written only when both were read
 * @retval 0 read
 * @retval PM_STATUS_NULL_RECORD @p record is NULL
 * @retval PM_STATUS_FAILED a radio cannot be read
 */
PMAPI_EXPORT int32_t pm_ubus_get_csi_enable(CsiEnableRecord *record);

/**
 * Adds or deletes stations; refusals of the platform are ignored.
 * @param record operation and list; an incomplete last MAC is handed on as it is
 * @retval 0 all handed to the platform
 * @retval PM_STATUS_NULL_RECORD @p record is NULL
 * @retval PM_STATUS_FAILED unknown operation
 */
PMAPI_EXPORT int32_t pm_ubus_set_csi_mac(const CsiMacRecord *record);

/**
 * Lists at most 32 stations, with "," between them.
 * @param record zero-filled; operation is not written
 * @retval 0 listed; the list ends early at a station that cannot be read
 * @retval PM_STATUS_FAILED @p record is NULL
 * @return else the platform status of the listing
 */
PMAPI_EXPORT int32_t pm_ubus_get_csi_mac(CsiMacRecord *record);

/**
 * Sets the parameters on the 2.4 GHz and then on the 5 GHz radio.
 * @param record the parameters
 * @retval 0 written
 * @retval PM_STATUS_NULL_RECORD @p record is NULL
 * @retval PM_STATUS_FAILED a write failed (nothing changed included); after a failure on 2.4 GHz
 *   5 GHz is not tried
 */
PMAPI_EXPORT int32_t pm_ubus_set_csi_config(const CsiConfigRecord *record);

/**
 * Reads the parameters of the 2.4 GHz radio.
 * @param record written on success only
 * @retval 0 read
 * @retval PM_STATUS_FAILED @p record is NULL or the radio cannot be read
 */
PMAPI_EXPORT int32_t pm_ubus_get_csi_config(CsiConfigRecord *record);

PMAPI_END_DECLS

#endif /* PMAPI_WIFI_CSI_H_ */
