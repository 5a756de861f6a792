/* Rules about traffic: IPTV VLAN bindings and QoS classification. */
#ifndef PLATFORM_TRAFFIC_RULES_H
#define PLATFORM_TRAFFIC_RULES_H

#include "platform/config_database.h"

PLATFORM_BEGIN_DECLS

/* Laid out in traffic_rules.hpp. */
typedef struct QosClassificationRecord QosClassificationRecord;

/** Binds a LAN port or an SSID to an IPTV VLAN; VLAN 0 removes the binding. */
PLATFORM_IMPORT int32_t pm_iptvvlanbind_set_config(const char *portPath, uint32_t vlanId);

/** Adds QosClassificationRecord as a rule and writes its instance into `identity`. */
PLATFORM_IMPORT int32_t pm_qos_qc_set_config(char identity[PLATFORM_INSTANCE_SIZE],
                                             QosClassificationRecord *record);
/** Removes the rule of that name, which is not its instance path. */
PLATFORM_IMPORT int32_t pm_qos_qc_del_config(const char *ruleName);

PLATFORM_END_DECLS

#endif
