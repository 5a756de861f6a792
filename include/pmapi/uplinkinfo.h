/**
 * @file uplinkinfo.h
 * How the gateway reaches the Internet, and the rings of rate samples behind its statistics.
 *
 * Before the first sample the daemon makes each of the four list heads point at itself. One call of
 * if_sta_statics() or if_uplink_statics() takes one sample: the daemon's timer drives them.
 */
#ifndef PMAPI_UPLINKINFO_H_
#define PMAPI_UPLINKINFO_H_

#include "pmapi/types.h"

PMAPI_BEGIN_DECLS

/** Node of a sample list: the ring of one key. Allocated as 64 bytes, never removed. */
typedef struct si_net_sample_dev {
  ListLink link;
  char name[32];    /**< the key, at most 31 characters */
  int32_t count;    /**< samples in the ring */
  ListLink samples; /**< si_net_sample, oldest first */
} si_net_sample_dev;

/** One sample. Allocated as 20 bytes. */
typedef struct si_net_sample {
  ListLink link;
  int32_t tx;
  int32_t rx;
} si_net_sample;

/** Maxima (0 at least) and averages (rounded toward 0) of one ring. */
typedef struct si_net_sample_statics {
  int32_t rx_max;
  int32_t tx_max;
  int32_t rx_aver;
  int32_t tx_aver;
} si_net_sample_statics;

/** Rate statistics of the uplink; the four values are decimal texts, empty without samples. */
typedef struct UplinkRateBlock {
  char statType[32]; /**< "IFA" for IPv4, "IF6" for IPv6 */
  char AverRxRate[32];
  char AverTxRate[32];
  char MaxRxRate[32];
  char MaxTxRate[32];
} UplinkRateBlock;

/**
 * Uplink information. Fields from v6Status to defaultIPv6Gateway are empty unless netIpMode is 1.
 *
 * What a part that cannot be read leaves: a text empty and a number 0, but managerMac
 * "000000000000", v6Status "Unconnected ", the IPv6 addresses and the prefix what the platform
 * prints for 16 zero bytes ("::"), and both lifetimes "0". A Wi-Fi uplink whose link cannot be
 * asked for has wlanStatus1 to linkRate2 "0".
 */
typedef struct UplinkInfoRecord {
  char uplinkType[32]; /**< "Ethernet", "WLAN", "GPON", "XGPON" or empty */
  char managerMac[15]; /**< management MAC, twelve upper-case digits */
  char GatewayMac[32]; /**< MAC of the upstream gateway, upper-case digits without ":" */
  uint8_t reserved;
  int32_t netIpMode;      /**< 1: the IPv6 fields are filled */
  int32_t accessMode;     /**< 2: PPPoE */
  char pppoeUserName[32]; /**< with PPPoE, else empty */
  char pppoePassword[32]; /**< with PPPoE, else empty */
  char runningTime[32];   /**< seconds since start */
  char radioBand[32];     /**< linked Wi-Fi uplink: "2.4G" or "5G" */
  char linkName[32];      /**< Wi-Fi uplink: name of the link */
  char wlanStatus1[32];   /**< Wi-Fi uplink: words of the link status, decimal */
  char wlanStatus2[32];
  char wlanStatus3[128];
  char wlanStatus4[32];
  char linkRate[32];  /**< Wi-Fi: word of the link status; else "10", "100", "1000" or empty */
  char linkRate2[32]; /**< Wi-Fi: word of the link status; else as linkRate */
  char RxRate_rt[64]; /**< current rate, the platform's counter / 1024 with three decimals */
  char TxRate_rt[64];
  char v6Status[32];        /**< "Connected" or "Unconnected " with its blank */
  char v6AddressOrigin[32]; /**< "AutoConfigured", "Static", "DHCPv6" or empty */
  char v6IPAddress[32];     /**< cut at 31 characters */
  char dhsv6_servers[32];   /**< DNS servers with "," between them, cut at 31 characters */
  int32_t v6PrefixMode;
  char v6PrefixOrigin[32]; /**< "Static", "PrefixDelegation" or empty */
  char v6Prefix[32];
  char PreferLifetime[32];              /**< decimal */
  char ValidLifetime[32];               /**< decimal */
  char defaultIPv6Gateway[32];          /**< cut at 31 characters */
  int32_t rateStatsValid;               /**< 1 */
  UplinkRateBlock ipv4Rates;            /**< rates of #g_net_uplink_ifa_list */
  UplinkRateBlock ipv6Rates;            /**< rates of #g_net_uplink_if6_list */
  uint64_t ethCounters[8] PMAPI_ALIGN8; /**< port counters; not for a Wi-Fi uplink */
} UplinkInfoRecord;

/** @name Sample lists
 * Heads of si_net_sample_dev nodes; zero at load.
 * @{ */
/** Stations, IPv4: mode 1. */
extern PMAPI_EXPORT ListLink g_net_sta_ifa_list;
/** Stations, IPv6: mode 2. */
extern PMAPI_EXPORT ListLink g_net_sta_if6_list;
/** Uplink, IPv4: mode 3. */
extern PMAPI_EXPORT ListLink g_net_uplink_ifa_list;
/** Uplink, IPv6: mode 4. */
extern PMAPI_EXPORT ListLink g_net_uplink_if6_list;
/** @} */

/** @name Intervals
 * Every sampling call that can read the platform's configuration sets them: the first two from it,
 * the other two to 600 and 60.
 * @{ */
/** Report interval, IPv4; 600 at load. */
extern PMAPI_EXPORT int32_t g_ifa_ReportInterval;
/** Sample interval, IPv4; 60 at load. */
extern PMAPI_EXPORT int32_t g_ifa_SampleInterval;
/** Report interval, IPv6; 600. */
extern PMAPI_EXPORT int32_t g_if6_ReportInterval;
/** Sample interval, IPv6; 60. */
extern PMAPI_EXPORT int32_t g_if6_SampleInterval;
/** @} */

/**
 * Adds a copy of a sample to the ring of a key, making the ring first if it is new.
 * A ring holds #g_ifa_ReportInterval / #g_ifa_SampleInterval samples when both are above 59, else
 * 10, in all four lists. A full ring loses its oldest sample; one that has become too long does not
 * shrink.
 * @param sample only tx and rx are read
 * @param key not NULL, at most 31 characters. A longer one is cut in its ring and so never matches
 *   it: like an empty key, it makes a new ring each time, and that ring is never freed
 * @param mode list, 1 to 4; its head must have been set
 * @retval 0 added, or there was no memory for a new ring
 * @retval PM_STATUS_FAILED @p sample is NULL, @p mode is unknown, or there was no memory for the
 *   sample
 */
PMAPI_EXPORT int32_t si_sample_list_add(const si_net_sample *sample, const char *key, int32_t mode);

/**
 * Unlinks a sample and returns its memory; the ring's count is the caller's to correct.
 * @param sample in a ring; NULL is ignored
 */
PMAPI_EXPORT void si_net_sample_list_del(si_net_sample *sample);

/**
 * Computes the statistics of one ring.
 * @param key only its name is read
 * @param result written on success only
 * @param mode list, 1 to 4
 * @retval 0 computed
 * @retval PM_STATUS_FAILED a pointer is NULL, @p mode is unknown, the key has no samples, or the
 *   head of the list was never set
 */
PMAPI_EXPORT int32_t si_net_sample_list_statics(const si_net_sample_dev *key,
                                                si_net_sample_statics *result, int32_t mode);

/**
 * Takes one station sample; asks the platform for every attached device. It is filed under an empty
 * key, so statistics do not find it.
 * @param mode 1 IPv4, 2 IPv6; any other is logged and adds nothing
 * @retval 0 done, also when the sampling configuration cannot be read or the sample was not added
 * @retval PM_STATUS_LIST_UNREADABLE the attached devices cannot be listed
 */
PMAPI_EXPORT int32_t if_sta_statics(int32_t mode);

/**
 * Takes one uplink sample under the key "uplink"; tx and rx both hold the receive rate.
 * @param mode 1 IPv4, 2 IPv6; any other is logged and adds nothing
 * @retval 0 done, also when the rate cannot be read (it counts as 0) or the sample was not added
 * @retval PM_STATUS_FAILED the sampling configuration cannot be read
 */
PMAPI_EXPORT int32_t if_uplink_statics(int32_t mode);

/**
 * Fills the uplink information. A part that cannot be read is logged and leaves what
 * UplinkInfoRecord says.
 * Leaves one file descriptor open per call, see ubus_getGatewayMac().
 * @param record zero-filled
 * @retval 0 filled
 * @retval PM_STATUS_FAILED @p record is NULL
 * @return else the platform status of the uplink mode; nothing is filled then
 */
PMAPI_EXPORT int32_t pm_ubus_get_uplinkinfo(UplinkInfoRecord *record);

/**
 * Management MAC: that of the connection named "INTERNET".
 * @param mac 6 bytes, written on success only
 * @retval 0 read
 * @retval PM_STATUS_FAILED the query failed or @p mac is NULL
 * @retval PM_STATUS_NOT_ONE_MATCH the name does not match exactly one connection
 * @return else the platform status of the read
 */
PMAPI_EXPORT int32_t ubus_get_manger_mac(uint8_t mac[6]);

/**
 * PPPoE account of the Internet connection. User and password appear in the log.
 * @param user,password 32 zero-filled bytes each; unterminated copies of at most 31 characters from
 *   fields of 64 characters
 * @retval 0 read
 * @retval PM_STATUS_FAILED the connection cannot be read, or a pointer is NULL
 */
PMAPI_EXPORT int32_t ubus_getPPPOEUserPwd(char user[32], char password[32]);

/**
 * Current rates, summed over all WAN connections: counter / 1024 with three decimals.
 * A connection whose counters cannot be read is logged, and the counters of the one before it are
 * added once more.
 * @param rxText,txText 64 bytes each
 * @retval 0 written
 * @retval PM_STATUS_NULL_TEXT a pointer is NULL
 * @retval PM_STATUS_UNREADABLE the connections cannot be listed or one cannot be read; nothing is
 *   written
 */
PMAPI_EXPORT int32_t ubus_get_rate_rt(char rxText[64], char txText[64]);

/**
 * MAC of the upstream gateway, from the kernel's ARP table: pairs with ":".
 * The table's file stays open unless the result is PM_STATUS_FAILED: one descriptor per call is not
 * given back.
 * @param mac 32 zero-filled bytes; unterminated copy of at most 31 characters from a word of at
 *   most 31, untouched when the table has no such entry
 * @retval 0 table read, entry found or not
 * @retval PM_STATUS_FAILED the table cannot be opened or skipped to its first entry, or @p mac is
 *   NULL
 */
PMAPI_EXPORT int32_t ubus_getGatewayMac(char mac[32]);

/**
 * @name IPv6 views of a WAN connection
 * @p instance is the key, at most 32 characters; a longer one is sent as an invalid field. @p view
 * is 4-aligned; it is cleared, given its header and filled. After a failure it is all zero.
 * @retval 0 read
 * @retval PM_STATUS_FAILED the query failed, or a pointer is NULL
 * @retval PM_STATUS_NOT_ONE_MATCH the key does not match exactly one instance
 * @return else the platform status of the read
 * @{
 */
/** Route interface; @p view has 2208 bytes. */
PMAPI_EXPORT int32_t ubus_get_route_if_into(const char *instance, void *view);
/** DSS information; @p view has 4384 bytes. */
PMAPI_EXPORT int32_t ubus_get_dssinto(const char *instance, void *view);
/** DSS configuration; @p view has 1224 bytes. */
PMAPI_EXPORT int32_t ubus_get_dsscfg(const char *instance, void *view);
/** Prefix configuration; @p view has 652 bytes. */
PMAPI_EXPORT int32_t ubus_get_prefixcfg(const char *instance, void *view);
/** @} */

PMAPI_END_DECLS

#endif /* PMAPI_UPLINKINFO_H_ */
