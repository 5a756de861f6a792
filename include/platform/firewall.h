/* The firewall base and the MAC filter table. */
#ifndef PLATFORM_FIREWALL_H
#define PLATFORM_FIREWALL_H

#include "platform/config_database.h"

PLATFORM_BEGIN_DECLS

/* Laid out in firewall.hpp. */
typedef struct FirewallBaseRecord FirewallBaseRecord;
typedef struct MacFilterEntryRecord MacFilterEntryRecord;

/** As InstanceList, but without a marker. */
typedef struct MacFilterList {
  uint32_t capacity; /**< paths that `instances` holds, set by the caller */
  uint32_t dwCount;  /**< entries found */
  char (*instances)[PLATFORM_INSTANCE_SIZE];
} MacFilterList;

/** Fills FirewallBaseRecord, zeroed by the caller; `instance` is "IGD". */
PLATFORM_IMPORT int32_t pm_fw_get_base(const char *instance, FirewallBaseRecord *record);
/** Applies the marked fields of what pm_fw_get_base delivered. */
PLATFORM_IMPORT int32_t pm_fw_set_base(const char *instance, FirewallBaseRecord *record);

/** Adds MacFilterEntryRecord to the table and writes its instance into `identity`. */
PLATFORM_IMPORT int32_t pm_mac_filterset(char identity[PLATFORM_INSTANCE_SIZE],
                                         MacFilterEntryRecord *record);
PLATFORM_IMPORT int32_t pm_mac_filterlist(const char *parent, MacFilterList *list);
PLATFORM_IMPORT int32_t pm_mac_filterdel(const char *identity);

PLATFORM_END_DECLS

#endif
