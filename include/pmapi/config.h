/**
 * @file config.h
 * The daemon's item store: a text file of lines "item=value".
 *
 * An item's name matches every line that contains it, anywhere, the value included: "interface"
 * also matches the line of "if5_interface". A short name is dangerous: an add of "a" rewrites, and
 * a delete of "a" blanks, every line with that letter in it. Lines are handled in pieces of 4095
 * characters. What a line has behind a zero byte is neither searched nor delivered, and stays as
 * long as the line does. Nothing is cached; each call also prints trace lines to standard output.
 *
 * The last line may lack its line feed: it is read like any other, gets one when it is replaced or
 * deleted or an item is appended behind it, and stays without one otherwise.
 *
 * Values are delivered for these items, and for a name that contains one of theirs, case included:
 * - as text: if5_gwAddress, if5_workkey, if5_userkey, ifa_deviceId, ifa_deviceToken,
 *   if6_factorySetting, if3_deviceMacSaved, if3_deviceId, if3_gwToken, if3_deviceToken,
 *   if3_andlinkToken, if3_reg_gwAddr, if3_g_gwmode, if3_ssid, if3_password, if3_encrypt,
 *   if3_channel, if3_usrkey, if3_lgwAddress, if3_cgwAddress, if3_lgwToken, if3_cgwToken,
 *   if3_g_SyncCode, MacFilter_WhiteList, MacFilter_BlackList, interface, reportInterval,
 *   sampleInterval
 * - as JSON: if5_token, ifa_ap_config, ifa_service_config, if6_ap_config, if6_service_config,
 *   IF5_ap_config
 */
#ifndef PMAPI_CONFIG_H_
#define PMAPI_CONFIG_H_

#include "pmapi/types.h"

PMAPI_BEGIN_DECLS

/** Item to store; allocate 4096 characters for the value. */
typedef struct UbusAddItem {
  char item[32];
  char value[]; /**< NUL-terminated */
} UbusAddItem;

/**
 * Replaces the value on every line that matches, or appends the item if none does.
 * The text before the name and the character after it stay; a line that ends with the name gets
 * "=". A replaced line is cut at 4095 characters, an appended one at 4094. The store is replaced
 * only after the new content is complete and flushed to disk.
 * @param record item, not empty, and value, both without line feed: others are logged as refused
 * @param path the store; never created here
 * @param temporaryPath on the same file system as @p path. A regular file there is the rest of an
 *   earlier rewrite and removed; a symbolic link, any other kind of file, and the store itself
 *   under whatever name are refused and stay
 * @retval 0 rewritten
 * @retval PM_STATUS_NULL_RECORD @p record is NULL
 * @retval PM_STATUS_FAILED the item, the value or the temporary path is refused, the store cannot
 * be opened, or the temporary file cannot be created or written in full (the store is as before);
 * or it cannot be moved into place (the temporary file then holds the whole store)
 */
PMAPI_EXPORT int32_t pm_ubus_config_additem(const UbusAddItem *record, const char *path,
                                            const char *temporaryPath);

/**
 * Reads the value on the first line that matches: at most 4095 characters.
 * A name that is in neither list above delivers nothing, with success; so does a text item that is
 * asked for as JSON or a JSON item that is asked for as text.
 * @param item name
 * @param destination with @p length not 0 a text of that many bytes, which is zeroed first; with
 *   @p length 0 a cJSON object, to which the parsed value is added under the item's listed name
 *   (a value that does not parse as cJSON gives it; 1000 levels deep it takes cJSON up
 *   to 96 KiB of stack to parse, and up to 120 KiB to print in the trace of another item);
 *   untouched on PM_STATUS_FAILED
 * @param length size of the text; a value of @p length characters or more is cut
 *   there and leaves no terminating zero
 * @param path the store, not NULL
 * @retval 0 a line matched
 * @retval PM_STATUS_FAILED @p item or @p destination is NULL, @p length is negative, the store
 *   cannot be opened, or no line matches
 */
PMAPI_EXPORT int32_t pm_ubus_config_getitem(const char *item, void *destination, int32_t length,
                                            const char *path);

/**
 * Blanks every line that matches; the empty lines stay. No match rewrites the store as it was.
 * @param item name, not empty and without line feed: others are logged as refused
 * @param path the store
 * @param temporaryPath as for pm_ubus_config_additem()
 * @retval 0 rewritten
 * @retval PM_STATUS_FAILED @p item is NULL or refused, or a file failed or was refused as in
 *   pm_ubus_config_additem()
 */
PMAPI_EXPORT int32_t pm_ubus_config_deleteitem(const char *item, const char *path,
                                               const char *temporaryPath);

PMAPI_END_DECLS

#endif /* PMAPI_CONFIG_H_ */
