/* Radios, SSIDs, their keys, scans and associated stations. */
#ifndef PLATFORM_WLAN_H
#define PLATFORM_WLAN_H

#include "platform/config_database.h"

PLATFORM_BEGIN_DECLS

/* Laid out in wlan.hpp. */
typedef struct AssociatedDeviceView AssociatedDeviceView;

/* Laid out in wlan.hpp. */
typedef struct WlanConfigRecord WlanConfigRecord;
typedef struct WlanDriverRecord WlanDriverRecord;
typedef struct WlanTxPowerRecord WlanTxPowerRecord;
typedef struct WlanWepRecord WlanWepRecord;
typedef struct WlanPskRecord WlanPskRecord;
typedef struct WlanCardRecord WlanCardRecord;
typedef struct WlanWpsRecord WlanWpsRecord;
typedef struct WlanScanRequest WlanScanRequest;
typedef struct WlanApList WlanApList;
typedef struct WlanSelectRecord WlanSelectRecord;
typedef struct WlanCsiRecord WlanCsiRecord;
typedef struct WlanCsiMacRecord WlanCsiMacRecord;
typedef struct WlanEasyMeshRecord WlanEasyMeshRecord;
typedef struct WlanBandSteeringRecord WlanBandSteeringRecord;

/** Where the CSI station list goes: room for 32 instance names. */
typedef struct CsiMacList {
  uint32_t nameSize; /**< 32, set by the caller */
  uint32_t dwCount;  /**< stations found */
  char (*instances)[PLATFORM_INSTANCE_SIZE];
} CsiMacList;

#define PLATFORM_CSI_STATIONS_MAX 32

/* Getters fill a record that the caller zeroed. Setters apply the marked fields of a record, and
   answer PLATFORM_NOTHING_CHANGED when all of them stood already. 0 is success. */

/** One SSID and the radio under it: "IGD.LD1.WLAN1" to "IGD.LD1.WLAN8". */
PLATFORM_IMPORT int32_t pm_wlan_get_config(const char *instance, WlanConfigRecord *record);
PLATFORM_IMPORT int32_t pm_wlan_set_config(const char *instance, WlanConfigRecord *record);
/** Figures and counters of the driver for the same instances. */
PLATFORM_IMPORT int32_t pm_wlan_get_config_driver(const char *instance, WlanDriverRecord *record);
/** "IGD.TxPower1" is the 2.4 GHz radio, "IGD.TxPower2" the 5 GHz radio. */
PLATFORM_IMPORT int32_t pm_wlan_get_txpower(const char *instance, WlanTxPowerRecord *record);
PLATFORM_IMPORT int32_t pm_wlan_set_txpower(const char *instance, WlanTxPowerRecord *record);
/** Key instances are the SSID's with ".WEP1" to ".WEP4", and ".PSK1". */
PLATFORM_IMPORT int32_t pm_wlan_get_wep(const char *keyInstance, WlanWepRecord *record);
PLATFORM_IMPORT int32_t pm_wlan_set_wep(const char *keyInstance, WlanWepRecord *record);
PLATFORM_IMPORT int32_t pm_wlan_get_psk(const char *keyInstance, WlanPskRecord *record);
PLATFORM_IMPORT int32_t pm_wlan_set_psk(const char *keyInstance, WlanPskRecord *record);
PLATFORM_IMPORT int32_t pm_wlan_get_card_max(WlanCardRecord *record);
/** Starts WPS on the SSID's instance with ".WPS". */
PLATFORM_IMPORT int32_t pm_wlan_set_wps(const char *instance, WlanWpsRecord *record);
/** Protected management frames of one radio. */
PLATFORM_IMPORT int32_t pm_wlan_set_pmf(const char *instance, uint32_t value);

/** Starts a scan on "IGD.LD1.WLANBase1" or "IGD.LD1.WLANBase2"; the result takes seconds. */
PLATFORM_IMPORT int32_t pm_wlan_set_scan_ap(const char *instance, WlanScanRequest *request);
/** The access points heard by the last scan of the SSID's radio. */
PLATFORM_IMPORT int32_t pm_wlan_list_ap(const char *instance, WlanApList *list);
/** Joins an access point as a client; radio 0 is 2.4 GHz, 1 is 5 GHz. */
PLATFORM_IMPORT int32_t pm_wlan_select_ap_bystamode(uint32_t radio, WlanSelectRecord *selection);

/** "IGD.CsiInfo1" is the 2.4 GHz radio, "IGD.CsiInfo2" the 5 GHz radio. */
PLATFORM_IMPORT int32_t pm_wlan_get_csi_info(const char *instance, WlanCsiRecord *record);
PLATFORM_IMPORT int32_t pm_wlan_set_csi_info(const char *instance, WlanCsiRecord *record);
/** The stations whose CSI is collected; `parent` is "IGD". */
PLATFORM_IMPORT int32_t pm_wlan_add_csi_mac(const char *parent, WlanCsiMacRecord *record);
PLATFORM_IMPORT int32_t pm_wlan_del_csi_mac(const char *parent, WlanCsiMacRecord *record);
PLATFORM_IMPORT int32_t pm_wlan_list_csi_mac(const char *parent, CsiMacList *list);
PLATFORM_IMPORT int32_t pm_wlan_get_csi_mac_par(const char *name, WlanCsiMacRecord *record);

PLATFORM_IMPORT int32_t pm_wlan_set_easymesh(WlanEasyMeshRecord *record);
PLATFORM_IMPORT int32_t pm_wlan_get_wifibandsteering(WlanBandSteeringRecord *record);
PLATFORM_IMPORT int32_t pm_wlan_set_wifibandsteering(WlanBandSteeringRecord *record);
/** Gives the 5 GHz SSID the name of the 2.4 GHz SSID. */
PLATFORM_IMPORT int32_t pm_wlan_set_same_ssid_2G(const char *instance24G, const char *instance5G);

/** Lists the associated stations of the SSID that `instance` belongs to. */
PLATFORM_IMPORT int32_t pm_wlan_list_ad(const char *instance, InstanceList *list);
/** Reads an associated station, by its name, into AssociatedDeviceView. */
PLATFORM_IMPORT int32_t pm_wlan_get_ad(const char *name, AssociatedDeviceView *view);
/** Puts that station on the block list. */
PLATFORM_IMPORT int32_t pm_wlan_add_blklist(const char *name, AssociatedDeviceView *view);
/** Removes the association, which disconnects the station. */
PLATFORM_IMPORT int32_t pm_wlan_del_ad(const char *name);

PLATFORM_END_DECLS

#endif
