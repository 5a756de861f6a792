/**
 * @file wifiparameter.h
 * Configuration of one or several SSIDs.
 */
#ifndef PMAPI_WIFIPARAMETER_H_
#define PMAPI_WIFIPARAMETER_H_

#include "pmapi/types.h"

PMAPI_BEGIN_DECLS

/**
 * Parameters of one SSID. Radio and securityMode may be shortened to any beginning. A text that
 * fills its field runs on into the next one, up to the end of the record; numbers are passed on as
 * they are where nothing else is said.
 */
typedef struct WifiParameterRecord {
  char radio[8]; /**< "2.4G" or "5G"; an unknown text counts as "2.4G", with an error line */
  int32_t index; /**< SSID number, one-based */
  int32_t enable;
  char ssid[32]; /**< a C string of 33 characters or more is sent as an invalid field */
  /**
   * "None", "WEP-64", "WEP-128", "WPA-Personal", "WPA2-Personal", "MIXED-WPAPSK2", "WPA3-SAE" or
   * "MIXED-WPA2WPA3"; the first that matches in this order. An unknown text changes nothing.
   */
  char securityMode[32];
  int32_t encrypt; /**< cipher: 1, 3, or anything else for the default */
  /** WEP key or passphrase, also stored for "None"; of 65 characters or more an invalid field */
  char pwd[64];
  int32_t maxAssociateNum;
  int32_t ssidAdvertisementEnabled;
} WifiParameterRecord;

/**
 * Writes the configuration of an SSID and then its key. Name and key appear in the log.
 * @param record the parameters
 * @retval 0 written; the platform's "nothing changed" counts as written
 * @retval PM_STATUS_NULL_RECORD @p record is NULL
 * @retval PM_STATUS_KEY_REFUSED the key was refused; the configuration is written
 * @return else the platform status: of reading or writing the configuration, or of reading the key
 *   (the configuration is written by then)
 */
PMAPI_EXPORT uint32_t pm_ubus_wifiParameter_set(const WifiParameterRecord *record);

/**
 * Applies pm_ubus_wifiParameter_set() to each record; failures are logged.
 * @param records NULL applies nothing
 * @param count number of records; negative applies nothing
 * @return always 0
 */
PMAPI_EXPORT int32_t pm_ubus_wifiParameter_set_Multi(const WifiParameterRecord *records,
                                                     int32_t count);

PMAPI_END_DECLS

#endif /* PMAPI_WIFIPARAMETER_H_ */
