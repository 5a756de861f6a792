/**
 * @file wifi_statsinfo.h
 * Traffic counters of one SSID, named by its instance path such as "IGD.LD1.WLAN1".
 */
#ifndef PMAPI_WIFI_STATSINFO_H_
#define PMAPI_WIFI_STATSINFO_H_

#include "pmapi/types.h"

PMAPI_BEGIN_DECLS

/** Wi-Fi statistics; each field is what the getter of that name gives. */
typedef struct WifiStatsRecord {
  char radio[32];
  char ssid[32];
  uint64_t totalBytesSent PMAPI_ALIGN8;
  uint64_t totalBytesReceived PMAPI_ALIGN8;
  uint64_t totalPacketsSent PMAPI_ALIGN8;
  uint64_t totalPacketsReceived PMAPI_ALIGN8;
  uint64_t errorsSent PMAPI_ALIGN8;
  uint64_t errorsReceived PMAPI_ALIGN8;
  uint64_t discardPacketsSent PMAPI_ALIGN8;
  uint64_t discardPacketsReceived PMAPI_ALIGN8;
} WifiStatsRecord;

/**
 * Fills the statistics; a value that cannot be read stays empty or 0. Reads the driver eight times.
 * @param instance path of the SSID, not NULL
 * @param record zero-filled
 * @retval 0 filled
 * @retval PM_STATUS_FAILED @p record is NULL
 */
PMAPI_EXPORT int32_t pm_ubus_get_wifi_statsinfo(const char *instance, WifiStatsRecord *record);

/**
 * @name Single fields
 * @p instance is the path of the SSID, not NULL. A text @p out has 32 zero-filled bytes and
 * receives an unterminated copy of at most 31 characters. Packet, error and discard counters are
 * 32 bits wide in the driver.
 * @retval 0 read
 * @retval PM_STATUS_FAILED the platform's record cannot be read, or @p out is NULL; nothing is
 *   written
 * @{
 */
/** Band: "2.4G", "5G", or nothing for any other. */
PMAPI_EXPORT int32_t ubus_getRadio(const char *instance, char out[32]);
/** Network name, from a field of 32 characters. */
PMAPI_EXPORT int32_t ubus_getSsid(const char *instance, char out[32]);
/** Bytes sent. */
PMAPI_EXPORT int32_t ubus_getTotalBytesSent(const char *instance, uint64_t *out);
/** Bytes received. */
PMAPI_EXPORT int32_t ubus_getTotalBytesReceived(const char *instance, uint64_t *out);
/** Packets sent. */
PMAPI_EXPORT int32_t ubus_getTotalPacketsSent(const char *instance, uint64_t *out);
/** Packets received. */
PMAPI_EXPORT int32_t ubus_getTotalPacketsReceived(const char *instance, uint64_t *out);
/** Errors while sending. */
PMAPI_EXPORT int32_t ubus_getErrorsSent(const char *instance, uint64_t *out);
/** Errors while receiving. */
PMAPI_EXPORT int32_t ubus_getErrorsReceived(const char *instance, uint64_t *out);
/** Packets discarded while sending. */
PMAPI_EXPORT int32_t ubus_getDiscardPacketsSent(const char *instance, uint64_t *out);
/** Packets discarded while receiving. */
PMAPI_EXPORT int32_t ubus_getDiscardPacketsReceived(const char *instance, uint64_t *out);
/** @} */

PMAPI_END_DECLS

#endif /* PMAPI_WIFI_STATSINFO_H_ */
