/**
 * @file meshinfo.h
 * The gateway's own state in the mesh.
 */
#ifndef PMAPI_MESHINFO_H_
#define PMAPI_MESHINFO_H_

#include "pmapi/types.h"

PMAPI_BEGIN_DECLS

/** Mesh information, taken from the first device of the topology. */
typedef struct MeshInfoRecord {
  char meshRole[11];
  char meshAlmac[33];
  int32_t roamingEnable; /**< PM_STATUS_FAILED when it cannot be read */
  int32_t meshStatus;    /**< 1 when the mesh has a second device with a role, else 0 */
  char bhType[32];       /**< first backhaul link, as the four after it */
  char bhalmac[32];
  char bhSsid[32];
  char bhPassPhrase[32];
  char bhSecurity[32];
  char reserved1[32]; /**< empty */
  char reserved2[32]; /**< empty */
  uint32_t staTotal;
} MeshInfoRecord;

/**
 * Fills the mesh information. Without a topology the texts stay empty and the counts 0. Allocates
 * one block of 2.3 MB for the time of the call.
 * @param record zero-filled
 * @retval 0 filled
 * @retval PM_STATUS_FAILED @p record is NULL
 */
PMAPI_EXPORT int32_t pm_ubus_get_meshinfo(MeshInfoRecord *record);

/**
 * Mesh role number stored by the platform.
 * @return the role; PM_STATUS_FAILED when it cannot be read
 */
PMAPI_EXPORT int32_t ubus_getmeshRole(void);

/**
 * Whether mesh roaming is on.
 * @return the platform's value; PM_STATUS_FAILED when it cannot be read
 */
PMAPI_EXPORT int32_t ubus_getroamingEnable(void);

PMAPI_END_DECLS

#endif /* PMAPI_MESHINFO_H_ */
