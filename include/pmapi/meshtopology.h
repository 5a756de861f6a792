/**
 * @file meshtopology.h
 * The mesh as the gateway's multi-AP daemon sees it.
 */
#ifndef PMAPI_MESHTOPOLOGY_H_
#define PMAPI_MESHTOPOLOGY_H_

#include "pmapi/types.h"

PMAPI_BEGIN_DECLS

/** One backhaul link; network name, passphrase and security are those of the mesh's first BSS. */
typedef struct MeshBackhaulEntry {
  char bhType[32];
  char neighborAlMac[32];
  char ssid[32];
  char passPhrase[32];
  char security[32];
  uint8_t reserved[8]; /**< not written */
} MeshBackhaulEntry;

/** One BSS. */
typedef struct MeshBssEntry {
  char bssid[18];
  char ssid[18];       /**< cut at 17 characters */
  char staMac[32][32]; /**< cut at 17 characters each */
  uint32_t staNum;     /**< stations, at most 32 */
} MeshBssEntry;

/** BSSs of one radio. */
typedef struct MeshRadioBlock {
  MeshBssEntry bss[32];
  uint32_t bssNum; /**< BSSs, at most 32 */
} MeshRadioBlock;

/** One mesh device. */
typedef struct MeshDeviceSlot {
  uint32_t deviceNum; /**< number of devices, the same in every slot filled; at most 32 */
  int32_t reserved;   /**< not written */
  char meshRole[15];  /**< cut at 10 characters */
  char alMac[217];    /**< cut at 31 characters */
  MeshBackhaulEntry bhInfo[32];
  uint32_t bhNum;              /**< backhaul links, at most 32 */
  MeshRadioBlock radioB;       /**< the last radio after the first */
  MeshRadioBlock radioA;       /**< the first radio */
  char otherClientMac[32][32]; /**< cut at 17 characters each */
  uint32_t otherClientNum;     /**< other clients, at most 32 */
  uint32_t staTotal; /**< stations and other clients; counts as many BSSs as the first device has */
} MeshDeviceSlot;

/** Mesh topology: 2392192 bytes. */
typedef struct MeshTopologyRecord {
  MeshDeviceSlot devices[32];
} MeshTopologyRecord;

/**
 * Fetches the topology and fills one slot per device, in the multi-AP daemon's order.
 * @param record zero-filled: slots beyond the devices are not touched, nor is anything without
 *   devices
 * @retval 0 filled
 * @retval PM_STATUS_FAILED the multi-AP daemon cannot be reached or refused, its answer lacks a
 *   device list, or a device, radio or BSS lacks a member it cannot do without (what precedes it
 *   stays filled); or @p record is NULL
 * @retval PM_STATUS_TIMED_OUT the multi-AP daemon timed out
 * @return else what the multi-AP library answered
 */
PMAPI_EXPORT int32_t pm_ubus_get_meshtopology(MeshTopologyRecord *record);

/**
 * Asks the multi-AP daemon for its topology as JSON text; failures go to standard output.
 * @param buffer zero-filled, not NULL, of @p length bytes; a text that fills them is not terminated
 * @param length in: size of @p buffer in bytes; out: as the multi-AP library leaves it; not NULL
 * @retval 0 written
 * @retval PM_STATUS_FAILED the control socket cannot be opened, or the command failed
 * @retval PM_STATUS_TIMED_OUT timed out
 * @return else the multi-AP library's result
 */
PMAPI_EXPORT int32_t MeshGetTopology(char *buffer, int32_t *length);

/**
 * Fills the slots from a topology text; stations are not totalled.
 * @param text NUL-terminated JSON. The walk's stack does not grow with its depth, that of cJSON's
 *   parser does: it stops at 1000 levels, for which it takes up to 96 KiB
 * @param scratch not used
 * @param record as for pm_ubus_get_meshtopology(); every count is clamped to its array
 * @retval 0 filled
 * @retval PM_STATUS_FAILED as for pm_ubus_get_meshtopology()
 */
PMAPI_EXPORT int32_t pm_get_dumpbuf_info(const char *text, void *scratch,
                                         MeshTopologyRecord *record);

PMAPI_END_DECLS

#endif /* PMAPI_MESHTOPOLOGY_H_ */
