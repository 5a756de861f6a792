#include "gateway/missing.hpp"
#include "platform/wlan.h"

using namespace gateway;

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
