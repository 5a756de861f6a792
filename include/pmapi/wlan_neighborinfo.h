/**
 * @file wlan_neighborinfo.h
 * Access points in reach of the gateway's radios.
 */
#ifndef PMAPI_WLAN_NEIGHBORINFO_H_
#define PMAPI_WLAN_NEIGHBORINFO_H_

#include "pmapi/types.h"

PMAPI_BEGIN_DECLS

/** One access point; the meaning of the apValue members is the platform's. */
typedef struct NeighborApEntry {
  char radio[32]; /**< "2.4G" or "5G" */
  char ssid[32];
  char bssid[32];
  char apValueText[32]; /**< decimal */
  int32_t apValue52;
  int32_t apValue104;
  int32_t apValue100;
  int32_t reserved; /**< not written */
} NeighborApEntry;

/** Access points found; both bands share the entries, each keeps its own count. */
typedef struct NeighborInfoRecord {
  int32_t reserved1[2]; /**< not written */
  int32_t neighborNum24G;
  int32_t neighborNum5G;
  int32_t reserved2; /**< not written */
  NeighborApEntry entries[256];
} NeighborInfoRecord;

/**
 * @name Scans
 * Scans one band and blocks for 5 seconds. Entries are written from the first one on, over those of
 * an earlier scan; surplus older ones stay. At most 256 are reported.
 * @param record the whole record
 * @retval 0 scanned, found or not
 * @retval PM_STATUS_NO_RECORD @p record is NULL
 * @return else the platform status of the scan or the list; the record is untouched
 * @{
 */
/** Scans with the 2.4 GHz radio into neighborNum24G. */
PMAPI_EXPORT uint32_t pm_ubus_wlan_neighborinfo_get_2g(NeighborInfoRecord *record);
/** Scans with the 5 GHz radio into neighborNum5G. */
PMAPI_EXPORT uint32_t pm_ubus_wlan_neighborinfo_get_5g(NeighborInfoRecord *record);
/** @} */

PMAPI_END_DECLS

#endif /* PMAPI_WLAN_NEIGHBORINFO_H_ */
