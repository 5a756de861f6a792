/**
 * @file control.h
 * Restart, locks, counters, LEDs, IPv6 and log settings.
 */
#ifndef PMAPI_CONTROL_H_
#define PMAPI_CONTROL_H_

#include "pmapi/types.h"

PMAPI_BEGIN_DECLS

/** Device log settings. */
typedef struct DevLogStats {
  uint32_t logEnable; /**< 0 or 1; a set of 2 or more leaves the platform's value */
  uint32_t logLevel;  /**< index 0 to 3; an unknown platform level reads as 0xFFFFFFFF */
  uint32_t logParam;
} DevLogStats;

/**
 * Restarts the gateway or one radio.
 * @param type 1 gateway, 2 the 2.4 GHz radio, 3 the 5 GHz radio
 * @retval 0 done; for a radio also when the platform says that nothing changed
 * @retval PM_STATUS_FAILED another @p type, or the radio's restart failed
 * @return for the gateway, the platform status of the restart
 */
PMAPI_EXPORT int32_t pm_ubus_control_set(int32_t type);

/**
 * @name Proxy events
 * @return 0 or the status of the call to the proxy. A refusal that only the proxy's reply carries
 *   is logged and still returns 0.
 * @{
 */
/** Sets the network lock to @p value. */
PMAPI_EXPORT int32_t pm_ubus_set_locknet(uint32_t value);
/** Clears the hardware NAT table. */
PMAPI_EXPORT int32_t pm_ubus_set_hwnetClean(void);
/** Sets the kernel's packet-skip counter. */
PMAPI_EXPORT int32_t pm_ubus_set_kernelcount(uint32_t value);
/** @} */

/**
 * Sets protected management frames on the 2.4 GHz and then on the 5 GHz radio.
 * @param value handed to the platform as it is
 * @retval 0 both set
 * @retval PM_STATUS_NULL_RECORD @p value is NULL
 * @retval PM_STATUS_FAILED a radio refused; after a refusal of 2.4 GHz 5 GHz is not tried, after
 *   one of 5 GHz 2.4 GHz stays changed
 */
PMAPI_EXPORT int32_t pm_ubus_set_pmfctrl(const uint32_t *value);

/**
 * Reads protected management frames of both radios.
 * @param value initialised, for its content is logged; written only when both radios agree
 * @retval 0 read, also when the radios differ
 * @retval PM_STATUS_NULL_RECORD @p value is NULL
 * @return else the platform status of a failed read
 */
PMAPI_EXPORT int32_t pm_ubus_get_pmfctrl(uint32_t *value);

/**
 * Reads the kernel's packet-skip counter.
 * @param count the counter, from the first seven characters of its file (0 when that is empty,
 *   unreadable or no number); -1 when the switch is off, which an empty, unreadable or non-numeric
 *   switch file means too. Written on success only
 * @retval 0 read
 * @retval PM_STATUS_FAILED @p count is NULL, a file cannot be opened, or the switch is neither 0
 *   nor 1
 */
PMAPI_EXPORT int32_t pm_ubus_get_kernelcount(int32_t *count);

/**
 * Reads the firewall's lock word; logs nothing.
 * @param status not NULL (not checked); written on success only
 * @return 0 or the platform status
 */
PMAPI_EXPORT int32_t pm_ubus_lockstatus_get(uint32_t *status);

/**
 * Restores special settings.
 * @param kind not used: the platform always gets 5
 * @param a,b,c handed to the platform
 * @return the platform's result
 */
PMAPI_EXPORT int32_t pm_ubus_dev_restore_special(uint32_t kind, uint32_t a, uint32_t b, uint32_t c);

/** Drives the LEDs; all four words go to the platform. @return the platform's result */
PMAPI_EXPORT int32_t pm_ubus_led_control(uint32_t a, uint32_t b, uint32_t c, uint32_t d);

/** Reads the LEDs; all four words go to the platform. @return the platform's result */
PMAPI_EXPORT int32_t pm_ubus_led_get(uint32_t a, uint32_t b, uint32_t c, uint32_t d);

/**
 * Reads whether IPv6 is enabled.
 * @param enable not NULL (not checked); 0 or 1, written on success only
 * @return 0 or the platform status
 */
PMAPI_EXPORT int32_t pm_ubus_ipv6enable_get(uint32_t *enable);

/**
 * Enables or disables IPv6. Enabling it in router mode first rewrites the Internet WAN connection
 * so that it carries IPv6; that is not undone when a later step fails. Disabling, or any other
 * working mode, changes the enable word alone.
 * @param enable 0 or 1
 * @retval 0 written
 * @retval PM_STATUS_FAILED the WAN connections cannot be cleared
 * @return else the platform status of the step that failed
 */
PMAPI_EXPORT int32_t pm_ubus_ipv6enable_set(uint32_t enable);

/**
 * Sets the log settings and tells the log manager about logParam.
 * Level indices 0 and 3 give the platform's level 7, 1 gives 6, 2 gives 3, any other 4: index 0
 * reads back as 3.
 * @param record settings
 * @retval 0 set
 * @retval PM_STATUS_FAILED @p record is NULL
 * @return else the platform status, PLATFORM_NOTHING_CHANGED included, or the log manager's
 */
PMAPI_EXPORT int32_t pm_ubus_set_devlogstats(const DevLogStats *record);

/**
 * Reads the log settings.
 * @param record filled on success only
 * @retval 0 read
 * @retval PM_STATUS_FAILED @p record is NULL or the settings cannot be read
 */
PMAPI_EXPORT int32_t pm_ubus_logstats_get(DevLogStats *record);

PMAPI_END_DECLS

#endif /* PMAPI_CONTROL_H_ */
