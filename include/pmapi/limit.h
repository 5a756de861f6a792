/**
 * @file limit.h
 * Rate, time and URL limits per device. The lists live as long as the process.
 *
 * The MACs in #g_ubus_devlmt_list are compared up to their first zero byte: devices whose MACs
 * agree up to there share one limit. A MAC that begins with a zero byte is never found: each set
 * makes another node and, with a period, another time policy; no listing shows them and a deletion
 * leaves both.
 */
#ifndef PMAPI_LIMIT_H_
#define PMAPI_LIMIT_H_

#include "pmapi/types.h"

PMAPI_BEGIN_DECLS

/** Limits of one device. */
typedef struct UbusDeviceLimit {
  char deviceMac[32];  /**< twelve digits; read up to there, written in upper case */
  char TxRate[32];     /**< upstream limit, decimal, at most 31 characters are read; given to the
                          platform times 1024 in 32 bits; twice "0" ends the limit */
  char RxRate[32];     /**< downstream limit, likewise */
  char LimitUrl[1600]; /**< URL keywords with "," between them, at most 1599 characters */
  int32_t LmtMode;     /**< 1 limits in the period below, any other value always */
  int32_t LimitWeek;   /**< mask of 7 weekdays, below 128 */
  uint32_t LimitStartTime; /**< seconds of the day, at most 86400 */
  uint32_t LimitEndTime;   /**< seconds of the day, at most 86400, not before the start */
} UbusDeviceLimit;

/** Node of #g_ubus_devlmt_list. */
typedef struct DevLmtCfg {
  ListLink link;
  uint8_t mac[6];
  uint8_t reserved[2];
  int32_t rxRate;
  int32_t txRate;
  int32_t lmtMode;
  char limitWeek[8]; /**< weekday mask in decimal */
  uint32_t limitStartTime;
  uint32_t limitEndTime;
  uint32_t instance; /**< number of the time policy, 1792 and up */
} DevLmtCfg;

/** Node of #g_ubus_lmtUrl_list. */
typedef struct LmtUrlCfg {
  ListLink link;
  char mac[32]; /**< lower-case pairs with ":" */
  char LimitURL[1600];
} LmtUrlCfg;

/** Rate limits (DevLmtCfg); empty at load. Updating a node cuts the list behind it. */
extern PMAPI_EXPORT ListLink g_ubus_devlmt_list;
/** URL limits (LmtUrlCfg); empty at load, nodes are never removed. */
extern PMAPI_EXPORT ListLink g_ubus_lmtUrl_list;
/** Number of rate-limit nodes created so far. */
extern PMAPI_EXPORT uint32_t g_ubus_devlmt_inst;
/** Number of the time policy written last. */
extern PMAPI_EXPORT uint32_t g_ubus_RecentdwApp;

/**
 * Applies device_limit_cfg_data() to each record; failures are logged.
 * @param records NULL does nothing
 * @param count number of records; negative does nothing
 * @return always 0
 */
PMAPI_EXPORT int32_t pm_ubus_nexumd_limit_set(const UbusDeviceLimit *records, int32_t count);

/**
 * Lists the rate limits held in memory, each with the URL keywords of the first URL node whose MAC
 * begins with the same two octets. A MAC that begins with a zero byte is left out.
 * @param records zero-filled, one for every node of #g_ubus_devlmt_list: the number is not bounded
 * @param count receives the number written
 * @return always 0; nothing happens when a pointer is NULL
 */
PMAPI_EXPORT int32_t pm_ubus_nexumd_limit_get(UbusDeviceLimit *records, int32_t *count);

/**
 * Applies the limits of one device: URL rules of the firewall, the list in memory, then the time
 * policy, or without a valid period the rate limit at the proxy. A wrong period is logged and the
 * limit applied without one. The proxy also gets the limit when the policy cannot be written, and
 * every deletion. A deletion removes the time policy only when it carries LmtMode 1 and a valid
 * period itself, and its MAC is found. URL rules stay installed when a later step fails.
 * @param record the limits
 * @retval 0 applied, or the proxy refused in its reply only
 * @retval PM_STATUS_FAILED @p record is NULL or its MAC is not hexadecimal
 * @return else the status of the call to the proxy
 */
PMAPI_EXPORT int32_t device_limit_cfg_data(const UbusDeviceLimit *record);

/**
 * Looks a device up among those that the platform limits.
 * @param mac 6 bytes, not NULL
 * @param identity receives the platform's name of it, at most 31 characters; not NULL, zero-filled
 * @retval 1 found
 * @retval 0 not found, or the platform cannot be asked
 */
PMAPI_EXPORT int32_t is_mac_exist(const uint8_t mac[6], char identity[32]);

/**
 * Registers a time policy with the platform's time-policy manager.
 * @param lmtMode limit mode of the device
 * @param instance number of the policy
 * @return 0 when queued, else the platform status
 */
PMAPI_EXPORT int32_t si_ubus_devLimit_register_timepolicy(uint32_t lmtMode, uint32_t instance);

/**
 * Runs iptables and ip6tables once per URL keyword on the chain "ubusfilter", which must exist.
 * Commands are cut at 255 characters and run all the same. With a MAC of 17 characters a keyword
 * arrives whole and with its target up to 162 characters; one of 163 to 169 leaves "-j DROP" cut,
 * one of 170 no target at all, a rule that only counts; longer ones lose the quote behind the
 * keyword. For ip6tables each of these comes one character earlier. Keywords that hold a double
 * quote, backslash, dollar sign, backquote or control character are logged and passed over. Results
 * of the programs are only logged. Nothing is run, and a line logged, for a MAC that holds anything
 * but letters, digits, ":", "-", "." and "_".
 * @param config MAC and keywords, each with a zero inside its field; LimitURL is consumed: split in
 *   place at ",". NULL is logged
 * @param operation "-I", "-A" or "-D"; any other text does nothing
 */
PMAPI_EXPORT void si_ubus_lmturl_command(LmtUrlCfg *config, const char *operation);

PMAPI_END_DECLS

#endif /* PMAPI_LIMIT_H_ */
