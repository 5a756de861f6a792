/**
 * @file workingmode.h
 * Bridge or route working mode.
 */
#ifndef PMAPI_WORKINGMODE_H_
#define PMAPI_WORKINGMODE_H_

#include "pmapi/types.h"

PMAPI_BEGIN_DECLS

/** Working mode; both numbers are the platform's. */
typedef struct UbusWorkingMode {
  uint32_t workingMode;
  uint32_t internetType;
} UbusWorkingMode;

/**
 * Switches the working mode and resets the Internet WAN connection to the mode's defaults.
 * @param record the mode
 * @retval 0 switched
 * @retval PM_STATUS_NULL_RECORD @p record is NULL
 * @return else the platform status
 */
PMAPI_EXPORT int32_t pm_ubus_workingmode_set(const UbusWorkingMode *record);

PMAPI_END_DECLS

#endif /* PMAPI_WORKINGMODE_H_ */
