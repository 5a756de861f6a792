/* Ethernet ports and the counters that the switch keeps. */
#ifndef PLATFORM_PORTS_H
#define PLATFORM_PORTS_H

#include "platform/config_database.h"

PLATFORM_BEGIN_DECLS

/* Laid out in ports.hpp. */
typedef struct PortMacResultRecord PortMacResultRecord;
typedef struct PortMacParameterRecord PortMacParameterRecord;
typedef struct PortLinkStateRecord PortLinkStateRecord;
typedef struct PortStatisticsRecord PortStatisticsRecord;
typedef struct StationStatisticsRecord StationStatisticsRecord;

/** Operation of pm_mac_prm_op that reads a port's MAC. */
#define PM_MAC_PRM_OP_GET 2u

/**
 * Reads a port's MAC into PortMacResultRecord from PortMacParameterRecord and
 * the parameter id inside the port configuration view (`viewWord`).
 */
PLATFORM_IMPORT int32_t pm_mac_prm_op(uint32_t operation, PortMacResultRecord *result,
                                      void *viewWord, PortMacParameterRecord *parameters);
/** Link state, rate code and a third word of the uplink port; a failure may write nothing. */
PLATFORM_IMPORT int32_t pm_wan_get_port_link_state_type(uint32_t *state, uint32_t *rate,
                                                        uint32_t *third, uint32_t port);
/** Fills PortLinkStateRecord, zeroed by the caller, for a LAN port. */
PLATFORM_IMPORT int32_t pm_eth_get_port_link_state(const char *instance,
                                                   PortLinkStateRecord *record);
/** Writes the instance path of the switch port with that number. */
PLATFORM_IMPORT int32_t pm_switch_get_inst_id_by_port(uint32_t port,
                                                      char instance[PLATFORM_INSTANCE_SIZE]);
/** Fills PortStatisticsRecord, zeroed by the caller. */
PLATFORM_IMPORT int32_t pm_eth_get_port_basic_statstics(const char *instance,
                                                        PortStatisticsRecord *record);
/** Fills StationStatisticsRecord for one attached device. */
PLATFORM_IMPORT int32_t pm_bw_get_hard_stats(const char *instance, StationStatisticsRecord *record);

PLATFORM_END_DECLS

#endif
