/**
 * @file mesh_role.h
 * Mesh role of the gateway.
 */
#ifndef PMAPI_MESH_ROLE_H_
#define PMAPI_MESH_ROLE_H_

#include "pmapi/types.h"

PMAPI_BEGIN_DECLS

/** Mesh role; the numbers are the platform's. */
typedef struct MeshRoleRecord {
  int32_t meshRole;
} MeshRoleRecord;

/**
 * Sets the mesh role.
 * @param record the role
 * @retval 0 set
 * @retval PM_STATUS_NULL_RECORD @p record is NULL
 * @return else the platform status, PLATFORM_NOTHING_CHANGED included
 */
PMAPI_EXPORT uint32_t pm_ubus_meshrole_set(const MeshRoleRecord *record);

PMAPI_END_DECLS

#endif /* PMAPI_MESH_ROLE_H_ */
