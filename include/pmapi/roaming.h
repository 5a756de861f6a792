/**
 * @file roaming.h
 * Roaming of stations, band steering, and stations by medium.
 *
 * Roaming and band steering share one record of the platform: switching band steering also switches
 * roaming and replaces its thresholds.
 */
#ifndef PMAPI_ROAMING_H_
#define PMAPI_ROAMING_H_

#include "pmapi/types.h"

PMAPI_BEGIN_DECLS

/** Roaming settings; thresholds are signal levels. */
typedef struct RoamingRecord {
  int32_t roamingSwitch; /**< 1 on, any other value off */
  int32_t lowRSSI24G;
  int32_t lowRSSI5G;
  int32_t packetLoss; /**< this and those after it: read as 0, ignored by the setter */
  int32_t retryRatio;
  int32_t xIndex;
  int32_t detectPeriod;
  int32_t rssiCheckDelta;
  int32_t dismissTime;
} RoamingRecord;

/** Band steering. */
typedef struct BandSteeringRecord {
  uint8_t reserved[156];      /**< neither read nor written */
  int32_t bandSteeringStatus; /**< 1 on, any other value off */
  int32_t rssiThreshold;      /**< 2.4 GHz */
  int32_t rssiThreshold5G;
} BandSteeringRecord;

/** Signal of one station. */
typedef struct StaRssiRecord {
  uint8_t reserved[36]; /**< neither read nor written */
  char macAddress[32];  /**< in: twelve digits or six pairs with ":" */
  char radio[8];        /**< out: "2.4G" or "5G" */
  char rssi[32];        /**< out: dBm, decimal */
  char radioValue[32];  /**< out: first value of the radio's information, decimal */
} StaRssiRecord;

/** Attached devices by medium. */
typedef struct StaNumRecord {
  int32_t ethNum;
  int32_t wlan24GNum;
  int32_t wlan5GNum;
} StaNumRecord;

/**
 * @name Settings
 * @retval 0 read
 * @retval PM_STATUS_FAILED the platform's record cannot be read, or @p out is NULL; @p out is
 *   untouched
 * @{
 */
/** Whether roaming is on. */
PMAPI_EXPORT int32_t ubus_getRoamingSwitch(uint32_t *out);
/** Low-signal threshold of 2.4 GHz. */
PMAPI_EXPORT int32_t ubus_getLowRSSI24G(uint32_t *out);
/** Low-signal threshold of 5 GHz. */
PMAPI_EXPORT int32_t ubus_getLowRSSI5G(uint32_t *out);
/** The same value as ubus_getLowRSSI24G(). */
PMAPI_EXPORT int32_t ubus_getRssiThreshold(uint32_t *out);
/** The same value as ubus_getLowRSSI5G(). */
PMAPI_EXPORT int32_t ubus_getRssiThreshold5G(uint32_t *out);
/** Whether band steering is on, from the first SSID. */
PMAPI_EXPORT int32_t ubus_getBandSteeringStatus(uint32_t *out);
/** @} */

/**
 * Sets the roaming switch and both thresholds.
 * @param roamingSwitch 1 on, any other value off
 * @param low24G,low5G signal levels, two's complement
 * @retval 0 set
 * @retval PM_STATUS_FAILED the platform refused, PLATFORM_NOTHING_CHANGED included
 */
PMAPI_EXPORT int32_t ubus_setLowRSSI(int32_t roamingSwitch, uint32_t low24G, uint32_t low5G);

/**
 * @name Settings that this platform does not have
 * @return always 0, without effect
 * @{
 */
/** No effect. */
PMAPI_EXPORT int32_t ubus_getPacketLoss(void);
/** No effect. */
PMAPI_EXPORT int32_t ubus_getRetryRatio(void);
/** No effect. */
PMAPI_EXPORT int32_t ubus_getXIndex(void);
/** No effect. */
PMAPI_EXPORT int32_t ubus_getDetectPeriod(void);
/** No effect. */
PMAPI_EXPORT int32_t ubus_getRssiCheckDelta(void);
/** No effect. */
PMAPI_EXPORT int32_t ubus_getDismissTime(void);
/** No effect. */
PMAPI_EXPORT int32_t ubus_setPacketLoss(void);
/** No effect. */
PMAPI_EXPORT int32_t ubus_setRetryRatio(void);
/** No effect. */
PMAPI_EXPORT int32_t ubus_setXIndex(void);
/** No effect. */
PMAPI_EXPORT int32_t ubus_setDetectPeriod(void);
/** No effect. */
PMAPI_EXPORT int32_t ubus_setRssiCheckDelta(void);
/** No effect. */
PMAPI_EXPORT int32_t ubus_setDismissTime(void);
/** @} */

/**
 * Reads the roaming settings; what cannot be read is 0.
 * @param record filled whole
 * @retval 0 filled
 * @retval PM_STATUS_FAILED @p record is NULL
 */
PMAPI_EXPORT int32_t pm_ubus_roaming_get(RoamingRecord *record);

/**
 * Sets the roaming switch and thresholds.
 * @param record its first three fields
 * @retval 0 set
 * @retval PM_STATUS_NULL_RECORD @p record is NULL
 * @retval PM_STATUS_FAILED the platform refused, PLATFORM_NOTHING_CHANGED included
 */
PMAPI_EXPORT int32_t pm_ubus_roaming_set(const RoamingRecord *record);

/**
 * Puts a station on the block list and removes its association, which disconnects it.
 * Traces its steps on standard output. A refusal of the block list is ignored.
 * @param mac twelve digits or six pairs with ":"
 * @retval 0 disconnected
 * @retval PM_STATUS_FAILED @p mac is NULL or no MAC, it does not match exactly one association, or
 *   that cannot be read
 * @return else the platform status of the query, the list or the removal
 */
PMAPI_EXPORT int32_t pm_ubus_roaming_sta_disconnect(const char *mac);

/**
 * Reads the signal of one associated station. Traces its steps on standard output. Only a negative
 * result of the call to the proxy says that the radio's information cannot be read: after a
 * positive one, and after a refusal in the reply, radioValue is what the reply holds, "0" when it
 * holds none.
 * @param record macAddress is read, radio, rssi and radioValue are written on success
 * @retval 0 read
 * @retval PM_STATUS_FAILED @p record is NULL, macAddress is no MAC, the associated stations cannot
 *   be listed, the station is not among them, or the radio's information cannot be read
 */
PMAPI_EXPORT int32_t pm_ubus_roaming_starssi_get(StaRssiRecord *record);

/**
 * Switches band steering, and roaming with it, sets both thresholds, and gives the first 5 GHz SSID
 * the name of the first 2.4 GHz one, whether switching on or off.
 * @param record status and thresholds
 * @retval 0 done
 * @retval PM_STATUS_NULL_RECORD @p record is NULL
 * @retval PM_STATUS_FAILED the first SSID was refused, or the shared record, there
 *   PLATFORM_NOTHING_CHANGED included; what precedes it stays written
 * @return else the platform status of the renaming, PLATFORM_NOTHING_CHANGED included
 */
PMAPI_EXPORT int32_t pm_ubus_roaming_bandsteering_set(const BandSteeringRecord *record);

/**
 * Reads band steering; what cannot be read is 0.
 * @param record status and thresholds are written
 * @retval 0 filled
 * @retval PM_STATUS_FAILED @p record is NULL
 */
PMAPI_EXPORT int32_t pm_ubus_roaming_bandsteering_get(BandSteeringRecord *record);

/**
 * Counts the attached devices by medium; a device that cannot be placed is not counted. A failed
 * read of an SSID is printed on standard output.
 * @param record written on success only
 * @retval 0 counted
 * @retval PM_STATUS_FAILED @p record is NULL or the devices cannot be listed
 */
PMAPI_EXPORT int32_t pm_ubus_sta_num_get(StaNumRecord *record);

PMAPI_END_DECLS

#endif /* PMAPI_ROAMING_H_ */
