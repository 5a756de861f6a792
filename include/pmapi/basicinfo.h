/**
 * @file basicinfo.h
 * Identity, versions, addresses and uplink facts of the gateway.
 */
#ifndef PMAPI_BASICINFO_H_
#define PMAPI_BASICINFO_H_

#include "pmapi/types.h"

PMAPI_BEGIN_DECLS

/** Basic information; filled by pm_ubus_get_basicinfo(). */
typedef struct BasicInfoRecord {
  char productToken[32]; /**< the token of this product line, the same on every gateway */
  char deviceType[32];
  char deviceVendor[32];
  char deviceModel[32];
  char deviceSn[32];
  char cmei[32];
  char softwareVersion[32];
  char firmwareVersion[32];
  char protocolVersion[32]; /**< "1.4.1" */
  char authId[32];
  char devKey[128];
  char reservedText[32]; /**< empty */
  int32_t versionType;   /**< 2 */
  char testFlag[32];     /**< "Test" */
  char captureEth[32];   /**< interface on which traffic is observed */
  char deviceMac[32];    /**< LAN MAC, twelve upper-case digits */
  char wanIpv4[128];     /**< #g_wanIPv4Addr */
  char wanIpv6[128];     /**< #g_wanIPv6Addr */
  int32_t meshSupport;   /**< 1 */
  int32_t meshInfoCode;  /**< number at the start of the mesh role text, else 0 */
  char uplinkType[32];   /**< "WLAN", "Ethernet" or empty */
  char workingMode[32];  /**< the platform's working-mode number in decimal */
  int32_t dualBand;      /**< 1 with exactly two Wi-Fi cards, else 0 */
  char pppoeUser[32];
} BasicInfoRecord;

/**
 * @name WAN address caches
 * They live as long as the process and are empty at load. A search that finds nothing leaves them
 * as they were, so they may be older than the last search.
 * @{
 */
/** Dotted IPv4 address of the last WAN connection found. */
extern PMAPI_EXPORT char g_wanIPv4Addr[128];
/** IPv6 address of the last WAN connection found; a shorter one leaves the older one's tail. */
extern PMAPI_EXPORT char g_wanIPv6Addr[128];
/** Instance path of the connection that #g_wanIPv4Addr belongs to. */
extern PMAPI_EXPORT char g_waninst[128];
/**
 * Address mode of the last search of pm_ubus_get_basicinfo(): 1 IPv4, 2 after IPv6 was read, 3
 * after a failure on a connection with both that lacked its IPv4 address.
 */
extern PMAPI_EXPORT uint32_t g_ipmode;
/** @} */

/**
 * Fills the whole basic-information record.
 * Runs the WAN search, which rewrites the capture interface in the platform's configuration, and
 * fetches the mesh topology (one block of 2.3 MB for the time of the call).
 * @param record not NULL (not checked), zero-filled; a fact that cannot be read stays empty or 0
 * @return always 0
 */
PMAPI_EXPORT int32_t pm_ubus_get_basicinfo(BasicInfoRecord *record);

/**
 * @name Text getters
 * @p destination: 32 zero-filled bytes (128 for the device key); receives an unterminated copy of
 * at most 31 (127) characters.
 * @retval 0 copied
 * @retval PM_STATUS_FAILED the view cannot be read, or @p destination is NULL; nothing is written
 * @{
 */
/** Product token as the platform stores it, from a field of 32 characters. */
PMAPI_EXPORT int32_t ubus_getProductToken(char destination[32]);
/** Device type, from a field of 64 characters. */
PMAPI_EXPORT int32_t ubus_getDeviceType(char destination[32]);
/** Vendor, from a field of 64 characters. */
PMAPI_EXPORT int32_t ubus_getdeviceVendor(char destination[32]);
/** Model, from a field of 64 characters. */
PMAPI_EXPORT int32_t ubus_getDeviceModel(char destination[32]);
/** Serial number, from a field of 64 characters. */
PMAPI_EXPORT int32_t ubus_getDeviceSn(char destination[32]);
/** CMEI, from a field of 32 characters. */
PMAPI_EXPORT int32_t ubus_getCMEI(char destination[32]);
/** Software version, from a field of 64 characters. */
PMAPI_EXPORT int32_t ubus_getSWVersion(char destination[32]);
/** Firmware version, from a field of 64 characters. */
PMAPI_EXPORT int32_t ubus_getFWVersion(char destination[32]);
/** Authentication id, from a field of 32 characters. */
PMAPI_EXPORT int32_t ubus_getAuthID(char destination[32]);
/** Device key, from a field of 128 characters; @p destination has 128 bytes. */
PMAPI_EXPORT int32_t ubus_getDevKey(char destination[128]);
/**
 * Capture interface, from a field of 32 characters.
 * @return else the platform status of a failed read
 */
PMAPI_EXPORT int32_t ubus_getCaptureEth(char destination[32]);
/** User name of the first PPP connection, from a field of 64 characters. */
PMAPI_EXPORT int32_t ubus_getPPPOEUser(char destination[32]);
/** @} */

/**
 * LAN MAC address.
 * @param destination receives twelve lower-case digits and a zero
 * @retval 0 written
 * @retval PM_STATUS_FAILED the view cannot be read or @p destination is NULL
 */
PMAPI_EXPORT int32_t ubus_getDeviceMac(char destination[13]);

/**
 * Kind of uplink: "WLAN", "Ethernet", or @p text untouched for any other.
 * @param text zero-filled
 * @param length most characters written; a word that is shorter is terminated
 * @retval 0 the uplink mode was read
 * @retval PM_STATUS_FAILED @p text is NULL
 * @return else the platform status
 */
PMAPI_EXPORT int32_t ubus_getUplinkType(char *text, int32_t length);

/**
 * Working mode number of the platform.
 * @param mode written on success only
 * @retval PM_STATUS_FAILED @p mode is NULL
 * @return 0 or the platform status
 */
PMAPI_EXPORT int32_t ubus_getWorkingMode(uint32_t *mode);

/**
 * Tells whether the identity view can be read.
 * @retval 0 it can
 * @retval PM_STATUS_FAILED it cannot
 */
PMAPI_EXPORT int32_t ubus_getRadio5(void);

/**
 * Number of Wi-Fi cards.
 * @param count written on success only; bytes that the platform did not answer stay as they were
 * @retval 0 read
 * @retval PM_STATUS_FAILED @p count is NULL
 * @return else the platform status
 */
PMAPI_EXPORT int32_t ubus_wlan_get_card_max(uint32_t *count);

/**
 * Version code, read once and then kept for the process.
 * @return the code; PM_STATUS_FAILED if it cannot be read
 */
PMAPI_EXPORT int32_t ubus_get_current_version_code(void);

/**
 * Searches the WAN connections, in the platform's order, for the one that carries Internet traffic.
 * Refreshes #g_wanIPv4Addr, #g_wanIPv6Addr and #g_waninst with what it finds. Each candidate on the
 * way becomes the capture interface in the platform's configuration. One with IPv4 that is passed
 * over for want of an address has already written @p ipv4 (0), @p mode (1, with IPv6 too 3) and
 * @p ifname, also when the search then fails. Uses about 90 KB of stack.
 * @param ipv4 host address, most significant byte first octet; not written by IPv6 alone
 * @param ipv6 16 bytes; written by the connection found only, and not for IPv4 alone
 * @param ifname 32 zero-filled bytes; unterminated copy of the last candidate's instance path, at
 *   most 31 characters; a shorter one leaves the tail of an earlier candidate's
 * @param mode 1 for an IPv4 connection, 2 whenever the IPv6 address was read
 * @retval 0 found
 * @retval PM_STATUS_NULL_RECORD an argument is NULL
 * @retval PM_STATUS_TOO_MANY_CONNECTIONS more than 32 connections
 * @retval PM_STATUS_FAILED no connection qualifies
 * @return else the platform status of the device type or the list
 */
PMAPI_EXPORT int32_t ubus_get_router_ip_host_ipv46(uint32_t *ipv4, uint8_t ipv6[16],
                                                   char ifname[32], uint32_t *mode);

/**
 * Looks up the Linux interface behind a WAN connection and makes it the capture interface.
 * @param ifId interface id (the connection's instance path); one of 33 characters or more is sent
 *   to the platform as an invalid key
 * @retval 0 written
 * @retval PM_STATUS_FAILED @p ifId is NULL, the id does not match exactly one interface, or the
 *   write failed
 * @return else the platform status of the query or the read
 */
PMAPI_EXPORT int32_t ubus_get_ifname_from_ifid(const char *ifId);

/**
 * Writes the capture interface into the platform's configuration.
 * @param name one of 33 characters or more is sent as an invalid field
 * @retval 0 written
 * @retval PM_STATUS_FAILED @p name is NULL, or the platform refused
 */
PMAPI_EXPORT int32_t ubus_setCaptureEth(const char *name);

PMAPI_END_DECLS

#endif /* PMAPI_BASICINFO_H_ */
