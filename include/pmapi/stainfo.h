/**
 * @file stainfo.h
 * One attached device, chosen by its zero-based position in the platform's list.
 *
 * Each function reads the list anew. Device queries for an index outside 0 to 127 carry an empty
 * path; the access-device view is always that of index + 1.
 */
#ifndef PMAPI_STAINFO_H_
#define PMAPI_STAINFO_H_

#include "pmapi/types.h"

PMAPI_BEGIN_DECLS

/** How a station is connected. */
typedef struct StaConfigResult {
  int32_t valid;       /**< 1 when the rates were obtained */
  char band[32];       /**< Wi-Fi: "2.4G" or "5G" */
  char wlanName[32];   /**< Wi-Fi: network name; at most 31, from a field of 32 characters */
  char rssi[32];       /**< Wi-Fi: signal, decimal */
  char radioValue[32]; /**< Wi-Fi: the radio's value, decimal */
  char linkRate[32];   /**< Wi-Fi: negotiated rate / 1000; wired: "10", "100", "1000" or empty */
  char linkRate2[32];  /**< Wi-Fi: the other direction's rate / 1000; wired: as linkRate */
  char rxRate[32];     /**< counter / 1024 with three decimals */
  char txRate[32];
} StaConfigResult;

/** Station information; band to txRate are those of StaConfigResult. */
typedef struct StaInfoRecord {
  char ipAddress[32];
  char ipv6Address[1024];
  char hostName[32];
  char vendor[64];
  char macAddress[16];    /**< twelve lower-case digits */
  char staType[32];       /**< "phone", "pad", "pc", "stb", "ap", "iot" or "other" */
  char onlineTime[32];    /**< seconds since the station connected */
  char accessTime[32];    /**< last connection, as the platform writes it */
  int32_t staConfigValid; /**< valid of StaConfigResult */
  int32_t adevValue;      /**< a word of the access-device view, passed on */
  char band[32];
  char wlanName[32];
  char rssi[32];
  char radioValue[32];
  char linkRate[32];
  char linkRate2[32];
  char rxRate[32];
  char txRate[32];
  uint64_t totalBytesSent PMAPI_ALIGN8;
  uint64_t totalBytesReceived PMAPI_ALIGN8;
  uint64_t totalPacketsSent PMAPI_ALIGN8;
  uint64_t totalPacketsReceived PMAPI_ALIGN8;
} StaInfoRecord;

/**
 * Fills the station information. A getter's failure leaves its field empty.
 * @param index zero-based
 * @param record zero-filled
 * @retval 0 filled
 * @retval PM_STATUS_UNREADABLE the access-device view or the traffic counters cannot be read; the
 *   fields before that step are filled
 * @retval PM_STATUS_FAILED @p record is NULL
 */
PMAPI_EXPORT int32_t pm_ubus_get_sta_info(int32_t index, StaInfoRecord *record);

/**
 * @name Single fields
 * @p out: 32 zero-filled bytes; unterminated copy of at most 31 characters of the text, which the
 * library makes itself where no field is named. ubus_getUptime() terminates.
 * @retval 0 written
 * @retval PM_STATUS_LIST_UNREADABLE the devices cannot be listed
 * @retval PM_STATUS_FAILED @p out is NULL
 * @return else the status of the call to the proxy, or of its reply; nothing is written then
 * @{
 */
/** IPv4 address. */
PMAPI_EXPORT int32_t ubus_getIpAddress(int32_t index, char out[32]);
/** Host name, from a field of 64 characters. */
PMAPI_EXPORT int32_t ubus_getHostName(int32_t index, char out[32]);
/** MAC, twelve lower-case digits. */
PMAPI_EXPORT int32_t ubus_getMacAddress(int32_t index, char out[32]);
/** Kind of device, as staType of StaInfoRecord. */
PMAPI_EXPORT int32_t ubus_getStatype(int32_t index, char out[32]);
/** Seconds since the station connected, over one wrap of the uptime counter. */
PMAPI_EXPORT int32_t ubus_getUptime(int32_t index, char out[32]);
/** @} */

/**
 * Reads how a station is connected.
 * @param index zero-based
 * @param result zero-filled; what precedes a failing step stays filled
 * @retval 0 read; also, with valid left at 0, for a station on neither "wlan" nor "eth" and when
 *   the proxy knows nothing of the device
 * @retval PM_STATUS_LIST_UNREADABLE the devices cannot be listed
 * @retval PM_STATUS_FAILED @p result is NULL, the wired port cannot be looked up, the MAC does not
 *   match exactly one association, or the counters cannot be read
 * @return else the platform status of the association or of the Wi-Fi configuration
 */
PMAPI_EXPORT int32_t ubus_get_sta_config(int32_t index, StaConfigResult *result);

PMAPI_END_DECLS

#endif /* PMAPI_STAINFO_H_ */
