/**
 * @file helpers.h
 * Small conversions and lookups. They log nothing and keep no state.
 */
#ifndef PMAPI_HELPERS_H_
#define PMAPI_HELPERS_H_

#include "pmapi/types.h"

PMAPI_BEGIN_DECLS

/**
 * @name MAC address to text
 * @p mac holds 6 bytes, @p text receives the digits and a terminating zero, @p length is the size
 * of @p text in bytes.
 * @retval 1 written
 * @retval 0 a pointer is NULL or @p length is too small; @p text is untouched
 * @{
 */
/** Lower-case pairs with ":", as in 00:1a:2b:3c:4d:5e; @p length of 18 at least. */
PMAPI_EXPORT int32_t MACToStr2(const uint8_t mac[6], char *text, uint32_t length);
/** Twelve upper-case digits; @p length of 13 at least. */
PMAPI_EXPORT int32_t MacToStr(const uint8_t mac[6], char *text, uint32_t length);
/** Twelve lower-case digits; @p length of 13 at least. */
PMAPI_EXPORT int32_t MacToString(const uint8_t mac[6], char *text, uint32_t length);
/** @} */

/** Value 0 to 15 of one hexadecimal digit of either case; 0xFFFFFFFF for any other character. */
PMAPI_EXPORT uint32_t HexCharToVal(char digit);

/**
 * Decimal number at the start of a text, as atoi() reads it.
 * @param text NUL-terminated, not NULL; without a number it counts as 0
 * @param out receives the number, not NULL
 * @return always 1
 */
PMAPI_EXPORT int32_t StrToInt(const char *text, int32_t *out);

/** Upper-cases a NUL-terminated text in place (not NULL). @return its length in characters */
PMAPI_EXPORT int32_t ToUpperCase(char *text);

/** Removes every @p unwanted from a NUL-terminated text in place (not NULL), closing the gaps. */
PMAPI_EXPORT void del_char(char *text, char unwanted);

/**
 * Tells the items of the item store whose values are JSON from those that are plain texts.
 * @param item NUL-terminated name, not NULL; it is enough that it contains one of the JSON items'
 *   names, case included
 * @retval 1 the value is JSON
 * @retval 0 the value is a text
 */
PMAPI_EXPORT int32_t IsJsonObjOrArray(const char *item);

/**
 * Size of a file in bytes.
 * @param path not NULL
 * @return the size, or PM_STATUS_FAILED if the file cannot be opened
 */
PMAPI_EXPORT int32_t file_size(const char *path);

/** Seconds since the system was started. */
PMAPI_EXPORT int32_t GetUpTime(void);

/**
 * Reads the association view (205) of one station.
 * @param instance path, at most 31 characters of it count; not NULL
 * @param view 1664 bytes, 4-aligned, not NULL; cleared, given its header and filled
 * @return 0 or the platform status of the read
 */
PMAPI_EXPORT int32_t wlan_get_ad_db_q(const char *instance, void *view);

/**
 * Asks for the association view (205) without giving the platform a buffer.
 * Kept for callers that link to it: @p view is never written. Use wlan_get_ad_db_q() to read.
 * @param instance path, at most 31 characters of it count; not NULL
 * @param view ignored
 * @return the platform's answer to a read without a buffer
 */
PMAPI_EXPORT int32_t wlan_get_ad(const char *instance, void *view);

/**
 * @name Attached-device filter
 * One function under two names.
 * @param deviceRecord the platform's 792-byte device record, 4-aligned, not NULL
 * @retval 1 the device counts
 * @retval 0 it does not: the word at 64 is 1, the interface name at 92 contains "eth" or "wlan",
 *   the word at 68 is not 0, and the word at 72 is neither 0 nor -1
 * @{
 */
/** Used by the sampling of stations. */
PMAPI_EXPORT int32_t check_dev_valid(const void *deviceRecord);
/** Used by the count of stations. */
PMAPI_EXPORT int32_t net_json_check_dev_valid(const void *deviceRecord);
/** @} */

PMAPI_END_DECLS

#endif /* PMAPI_HELPERS_H_ */
