/**
 * @file pppoe.h
 * PPPoE account of the WAN connection.
 */
#ifndef PMAPI_PPPOE_H_
#define PMAPI_PPPOE_H_

#include "pmapi/types.h"

PMAPI_BEGIN_DECLS

/** PPPoE account; allocate 68 characters for the password. */
typedef struct UbusPppoe {
  char pppoeUser[64];
  char pppoePwd[];
} UbusPppoe;

/**
 * Sets the PPPoE account. The password appears in the log in plain text.
 * @param record a text of 65 characters or more is sent as an invalid field. A user name that fills
 *   its 64 characters runs on into the password: it is valid before an empty password only
 * @retval 0 set
 * @retval PM_STATUS_NULL_RECORD @p record is NULL
 * @return else the platform status
 */
PMAPI_EXPORT int32_t pm_ubus_pppoe_set(const UbusPppoe *record);

PMAPI_END_DECLS

#endif /* PMAPI_PPPOE_H_ */
