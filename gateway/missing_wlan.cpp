#include "gateway/missing.hpp"
#include "platform/wlan.h"

using namespace gateway;

int32_t pm_wlan_get_config(const char *instance, WlanConfigRecord *) {
  return notThereYet("pm_wlan_get_config", instance);
}
int32_t pm_wlan_set_config(const char *instance, WlanConfigRecord *) {
  return notThereYet("pm_wlan_set_config", instance);
}
int32_t pm_wlan_get_config_driver(const char *instance, WlanDriverRecord *) {
  return notThereYet("pm_wlan_get_config_driver", instance);
}
int32_t pm_wlan_get_txpower(const char *instance, WlanTxPowerRecord *) {
  return notThereYet("pm_wlan_get_txpower", instance);
}
int32_t pm_wlan_set_txpower(const char *instance, WlanTxPowerRecord *) {
  return notThereYet("pm_wlan_set_txpower", instance);
}
int32_t pm_wlan_get_wep(const char *keyInstance, WlanWepRecord *) {
  return notThereYet("pm_wlan_get_wep", keyInstance);
}
int32_t pm_wlan_set_wep(const char *keyInstance, WlanWepRecord *) {
  return notThereYet("pm_wlan_set_wep", keyInstance);
}
int32_t pm_wlan_get_psk(const char *keyInstance, WlanPskRecord *) {
  return notThereYet("pm_wlan_get_psk", keyInstance);
}
int32_t pm_wlan_set_psk(const char *keyInstance, WlanPskRecord *) {
  return notThereYet("pm_wlan_set_psk", keyInstance);
}
int32_t pm_wlan_get_card_max(WlanCardRecord *) {
  return notThereYet("pm_wlan_get_card_max");
}
int32_t pm_wlan_set_wps(const char *instance, WlanWpsRecord *) {
  return notThereYet("pm_wlan_set_wps", instance);
}
int32_t pm_wlan_set_pmf(const char *instance, uint32_t) {
  return notThereYet("pm_wlan_set_pmf", instance);
}
int32_t pm_wlan_set_scan_ap(const char *instance, WlanScanRequest *) {
  return notThereYet("pm_wlan_set_scan_ap", instance);
}
int32_t pm_wlan_list_ap(const char *instance, WlanApList *) {
  return notThereYet("pm_wlan_list_ap", instance);
}
int32_t pm_wlan_select_ap_bystamode(uint32_t, WlanSelectRecord *) {
  return notThereYet("pm_wlan_select_ap_bystamode");
}
int32_t pm_wlan_get_csi_info(const char *instance, WlanCsiRecord *) {
  return notThereYet("pm_wlan_get_csi_info", instance);
}
int32_t pm_wlan_set_csi_info(const char *instance, WlanCsiRecord *) {
  return notThereYet("pm_wlan_set_csi_info", instance);
}
int32_t pm_wlan_add_csi_mac(const char *parent, WlanCsiMacRecord *) {
  return notThereYet("pm_wlan_add_csi_mac", parent);
}
int32_t pm_wlan_del_csi_mac(const char *parent, WlanCsiMacRecord *) {
  return notThereYet("pm_wlan_del_csi_mac", parent);
}
int32_t pm_wlan_list_csi_mac(const char *parent, CsiMacList *) {
  return notThereYet("pm_wlan_list_csi_mac", parent);
}
int32_t pm_wlan_get_csi_mac_par(const char *name, WlanCsiMacRecord *) {
  return notThereYet("pm_wlan_get_csi_mac_par", name);
}
int32_t pm_wlan_get_wifibandsteering(WlanBandSteeringRecord *) {
  return notThereYet("pm_wlan_get_wifibandsteering");
}
int32_t pm_wlan_set_wifibandsteering(WlanBandSteeringRecord *) {
  return notThereYet("pm_wlan_set_wifibandsteering");
}
int32_t pm_wlan_set_same_ssid_2G(const char *instance24G, const char *) {
  return notThereYet("pm_wlan_set_same_ssid_2G", instance24G);
}
int32_t pm_wlan_list_ad(const char *instance, InstanceList *) {
  return notThereYet("pm_wlan_list_ad", instance);
}
int32_t pm_wlan_get_ad(const char *name, void *) {
  return notThereYet("pm_wlan_get_ad", name);
}
int32_t pm_wlan_add_blklist(const char *name, void *) {
  return notThereYet("pm_wlan_add_blklist", name);
}
int32_t pm_wlan_del_ad(const char *name) {
  return notThereYet("pm_wlan_del_ad", name);
}
