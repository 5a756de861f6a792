/* The list of attached devices; their records come from CTSGW_EVENT_QUERY_ADEV_PARAM. */
#ifndef PLATFORM_ATTACHED_DEVICES_H
#define PLATFORM_ATTACHED_DEVICES_H

#include "platform/config_database.h"

PLATFORM_BEGIN_DECLS

/** Most attached devices that the platform lists. */
#define PLATFORM_ATTACHED_DEVICES_MAX 128

/** Lists the instance paths of the devices that are online. */
PLATFORM_IMPORT int32_t plib_adev_list_view(InstanceList *list);
/** The same with the devices that have left. */
PLATFORM_IMPORT int32_t plib_adev_list_view_all(InstanceList *list);

PLATFORM_END_DECLS

#endif
