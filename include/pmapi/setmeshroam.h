/**
 * @file setmeshroam.h
 * Mesh roaming on and off.
 */
#ifndef PMAPI_SETMESHROAM_H_
#define PMAPI_SETMESHROAM_H_

#include "pmapi/types.h"

PMAPI_BEGIN_DECLS

/** Switch of mesh roaming. */
typedef struct MeshRoamRecord {
  int32_t meshRoamingEnable;
} MeshRoamRecord;

/**
 * Switches mesh roaming.
 * @param record the switch
 * @retval 0 set
 * @retval PM_STATUS_NULL_RECORD @p record is NULL
 * @return else the platform status, PLATFORM_NOTHING_CHANGED included
 */
PMAPI_EXPORT uint32_t pm_ubus_set_meshroam(const MeshRoamRecord *record);

PMAPI_END_DECLS

#endif /* PMAPI_SETMESHROAM_H_ */
