/**
 * @file wifiinfo.h
 * State and configuration of one SSID.
 *
 * SSIDs are chosen by a zero-based index: 0 is the first SSID of the 2.4 GHz radio, 4 the first of
 * the 5 GHz radio.
 */
#ifndef PMAPI_WIFIINFO_H_
#define PMAPI_WIFIINFO_H_

#include "pmapi/types.h"

PMAPI_BEGIN_DECLS

/** Wi-Fi information; each field is what the getter of that name gives. */
typedef struct WifiInfoRecord {
  char radio[32];
  int32_t enable; /**< the radio's */
  char transmitPower[32];
  char standard[32];
  char noiseLevel[32];
  int32_t interferencePercent; /**< 0 */
  char channel[32];
  int32_t index;
  char ssid[32];
  char securityMode[32];
  char pwd[32];
  int32_t maxAssociateNum;
  int32_t ssidAdvertisementEnabled;
  int32_t ssidEnable;
  int32_t bandwidth;
  int32_t encrypt;
} WifiInfoRecord;

/**
 * Fills the Wi-Fi information; a value that cannot be read stays empty or 0.
 * @param radioIndex zero-based SSID index
 * @param record zero-filled
 * @retval 0 filled
 * @retval PM_STATUS_FAILED @p record is NULL
 */
PMAPI_EXPORT uint32_t pm_ubus_get_wifi_info(int32_t radioIndex, WifiInfoRecord *record);

/**
 * @name Single fields
 * A text @p out has 32 zero-filled bytes and receives an unterminated copy of at most 31
 * characters. Codes without a text or number write nothing and return 0.
 * @retval 0 read
 * @retval PM_STATUS_FAILED the platform's record cannot be read, or @p out is NULL; nothing is
 *   written
 * @{
 */
/** Whether the radio is on: 1 or 0. */
PMAPI_EXPORT int32_t ubus_get_radios_Enable(int32_t radioIndex, uint32_t *out);
/** Whether the SSID is on: 1 or 0. */
PMAPI_EXPORT int32_t ubus_get_radios_SSIDEnable(int32_t radioIndex, uint32_t *out);
/**
 * Transmit power as stored, at most 11 characters from a field of 12 bytes; other indices than 0
 * and 4 give none.
 */
PMAPI_EXPORT int32_t ubus_get_radios_transmitPower(int32_t radioIndex, char out[32]);
/** 802.11 standard, such as "802.11bgnax". */
PMAPI_EXPORT int32_t ubus_get_radios_ssidStandard(int32_t radioIndex, char out[32]);
/** Noise level, decimal. */
PMAPI_EXPORT int32_t ubus_get_radios_noiseLevel(int32_t radioIndex, char out[32]);
/** Interference in percent. */
PMAPI_EXPORT int32_t ubus_get_radios_interferencePercent(int32_t radioIndex, uint32_t *out);
/** Channel number, decimal. */
PMAPI_EXPORT int32_t ubus_get_radios_Channel(int32_t radioIndex, char out[32]);
/** Band: "2.4G" or "5G". */
PMAPI_EXPORT int32_t ubus_get_config_Radio(int32_t radioIndex, char out[32]);
/** Last digit of the SSID's one-based number: index 9 gives 0. */
PMAPI_EXPORT int32_t ubus_get_config_Index(int32_t radioIndex, uint32_t *out);
/** Network name, from a field of 32 characters. */
PMAPI_EXPORT int32_t ubus_get_config_Ssid(int32_t radioIndex, char out[32]);
/** Security mode as WifiParameterRecord names it; WEP always reads as "WEP-64". */
PMAPI_EXPORT int32_t ubus_get_config_SecurityMode(int32_t radioIndex, char out[32]);
/**
 * WEP key or passphrase, from a field of 64 characters; a WPA3 network gives none.
 * @retval PM_STATUS_WEP_KEY_UNREADABLE the WEP key cannot be read
 * @retval PM_STATUS_PASSPHRASE_UNREADABLE the passphrase cannot be read
 */
PMAPI_EXPORT int32_t ubus_get_config_Pwd(int32_t radioIndex, char out[32]);
/** Most stations admitted. */
PMAPI_EXPORT int32_t ubus_get_config_MaxAssociateNum(int32_t radioIndex, uint32_t *out);
/** Whether the SSID is broadcast: 1 or 0. */
PMAPI_EXPORT int32_t ubus_get_config_SsidAdvertisementEnable(int32_t radioIndex, uint32_t *out);
/**
 * Channel width number, as RadioRecord takes it.
 * @return else the platform status of a failed read
 */
PMAPI_EXPORT int32_t ubus_get_info_bandwidth(int32_t radioIndex, uint32_t *out);
/**
 * Cipher number, 0 for open and WEP networks, else 1 to 3 as WifiParameterRecord takes it.
 * @return else the platform status of a failed read
 */
PMAPI_EXPORT int32_t ubus_get_info_encrypt(int32_t radioIndex, uint32_t *out);
/** @} */

PMAPI_END_DECLS

#endif /* PMAPI_WIFIINFO_H_ */
