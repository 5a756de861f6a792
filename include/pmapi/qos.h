/**
 * @file qos.h
 * Traffic classification rules.
 */
#ifndef PMAPI_QOS_H_
#define PMAPI_QOS_H_

#include "pmapi/types.h"

PMAPI_BEGIN_DECLS

/** One rule. param1 to param5 are the platform's class parameters. */
typedef struct UbusQosRule {
  int32_t param1;
  int32_t param2; /**< a value that was set reads back as param4 */
  int32_t param3;
  int32_t param4;
  int32_t param5; /**< not read back */
  char ip1[64];   /**< first address, dotted */
  char port1[20]; /**< first port, decimal */
  char ip2[64];
  char port2[20];
  char label[32]; /**< at most 32 characters, a longer C string is sent as an invalid field; read
                     back without a zero when it has 32 */
  char mac1[20];
  char mac2[20];
} UbusQosRule;

/** Classification rules; allocate 30 of them. */
typedef struct UbusQos {
  uint32_t qosCommon; /**< shared by all rules; the platform keeps its low byte */
  uint32_t count;     /**< number of rules */
  UbusQosRule rules[];
} UbusQos;

/**
 * Adds the rules, at most 30, to those that exist (pm_qc_clear_all() removes them). Refusals of the
 * platform are ignored. An address or MAC that does not parse keeps what the rule before had (the
 * first rule: 0), a port that does not parse is 0, and after an invalid label those of the rules
 * behind it are invalid too.
 * @param record the rules; a count above 0x7FFFFFFF sends none
 * @retval 0 sent
 * @retval PM_STATUS_FAILED @p record is NULL
 */
PMAPI_EXPORT int32_t pm_ubus_nexumd_qos_set(const UbusQos *record);

/**
 * Reads up to 30 rules. The slot of a rule that cannot be read stays as it was.
 * @param record zero-filled, room for 30 rules; count is raised by the number read, so start it at
 *   0
 * @retval 0 read
 * @retval PM_STATUS_FAILED there is no rule, or @p record is NULL
 * @return else the platform status of the listing
 */
PMAPI_EXPORT int32_t pm_ubus_nexumd_qos_get(UbusQos *record);

/**
 * Removes up to 30 rules. For a rule that cannot be read the platform is called with what its
 * zeroed record holds. Prints each name to standard output.
 * @return 0 or the platform status of the listing
 */
PMAPI_EXPORT int32_t pm_qc_clear_all(void);

PMAPI_END_DECLS

#endif /* PMAPI_QOS_H_ */
