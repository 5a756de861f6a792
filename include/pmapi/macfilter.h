/**
 * @file macfilter.h
 * MAC filter of the firewall.
 */
#ifndef PMAPI_MACFILTER_H_
#define PMAPI_MACFILTER_H_

#include "pmapi/types.h"

PMAPI_BEGIN_DECLS

/** MAC filter; allocate 2048 characters for the entries. */
typedef struct UbusMacFilter {
  uint32_t macFilterEnable; /**< 1 on, 0 off; 0xFFFFFFFF when it cannot be read */
  uint32_t macFilterPolicy; /**< 0 black list, 1 white list; 0xFFFFFFFF when it cannot be read */
  char entries[];           /**< devices as MAC/name, the MAC of twelve digits, "," between them */
} UbusMacFilter;

/** Whether the filter is on. @return 0 or 1; PM_STATUS_FAILED when it cannot be read */
PMAPI_EXPORT int32_t ubus_getmacFilterEnable(void);

/**
 * Policy of the filter.
 * @return 0 black list, 1 white list; PM_STATUS_FAILED when it cannot be read
 */
PMAPI_EXPORT int32_t ubus_getmacFilterPolicy(void);

/**
 * Reads the filter: state and policy from the firewall, the list in force from the item store.
 * @param record zero-filled; entries receives at most 19 characters of the list, for the item is
 *   read with the length of its name
 * @retval 0 read; a firewall that cannot be read shows in the two numbers only
 * @retval PM_STATUS_FAILED the item store cannot be read or has no such list (both numbers are
 *   filled), or @p record is NULL
 */
PMAPI_EXPORT int32_t pm_ubus_get_mac_filter(UbusMacFilter *record);

/**
 * Sets state and policy and, when switching on, replaces the firewall's entries (the first 32 of
 * them) by the given ones; switching off keeps them. The list in the item store is not changed.
 * @param record at most 2047 characters of entries are read, names are cut at 15 characters.
 *   Without entries the state and policy alone are set (and the old entries removed if it is on); a
 *   list of nothing but "," removes the old entries if it is on and sets nothing. Old entries are
 *   removed for a state of exactly 1; of state and policy the platform gets the lowest byte
 * @retval 0 done; every failure of the platform is logged only. An entry whose MAC is not
 *   hexadecimal, that the platform refuses, or that comes with a state or policy byte above 1 is
 *   left out; so is, without a line in the log, the MAC of twelve zeros
 * @retval PM_STATUS_MALFORMED_ENTRY an entry has no name, or a MAC that is not 12 characters long;
 *   nothing was changed
 * @retval PM_STATUS_FAILED @p record is NULL
 */
PMAPI_EXPORT int32_t pm_ubus_macfilter_set(const UbusMacFilter *record);

PMAPI_END_DECLS

#endif /* PMAPI_MACFILTER_H_ */
