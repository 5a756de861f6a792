// Every imported function that moves records, in the order of the platform's headers.
#include <algorithm>

#include "bench/platform/recorder.hpp"
#include "platform/attached_devices.hpp"
#include "platform/device.hpp"
#include "platform/firewall.hpp"
#include "platform/limits.hpp"
#include "platform/ports.hpp"
#include "platform/sampling.hpp"
#include "platform/timers.hpp"
#include "platform/traffic_rules.hpp"
#include "platform/wan.hpp"
#include "platform/wlan.hpp"
#include "platform/attached_devices.h"
#include "platform/config_database.h"
#include "platform/device.h"
#include "platform/firewall.h"
#include "platform/ports.h"
#include "platform/proxy.h"
#include "platform/timers.h"
#include "platform/traffic_rules.h"
#include "platform/wan.h"
#include "platform/wlan.h"

using namespace platform;

using bench::Answer;
using bench::answerTo;
using bench::fill;
using bench::fillTyped;
using bench::note;
using bench::noteFill;
using bench::noteTake;
using bench::plain;
using bench::take;
using bench::takeTyped;

namespace {

uint32_t viewSize(const void *view) {
  return view == nullptr ? 0 : *static_cast<const uint32_t *>(view);
}

/// Bytes of the room for paths, which callers hand over cleared.
uint32_t roomOf(const InstanceList *list) {
  return list->capacity * PLATFORM_INSTANCE_SIZE;
}
uint32_t roomOf(const MacFilterList *list) {
  return list->capacity * PLATFORM_INSTANCE_SIZE;
}
uint32_t roomOf(const CsiMacList *) {
  return PLATFORM_CSI_STATIONS_MAX * PLATFORM_INSTANCE_SIZE;
}

template <auto Function, class List, class... Args>
int32_t listing(List *list, Args... arguments) {
  note<Function>({roomOf(list)}, arguments...);
  return answerTo<Function>.giveList(list);
}

int32_t giveReply(const Answer &answer, void *reply, uint16_t *replyLength) {
  *replyLength = std::min(*replyLength, answer.replyLength());
  return answer.give(reply);
}

}  // namespace

int32_t platform::vcorDbGetView(uint32_t viewId, const char *instance, void *view) {
  noteFill<vcorDbGetView>(view, viewSize(view), viewId, instance, view);
  return bench::viewAnswer(viewId).give(view);
}

int32_t platform::vcorDbSetView(uint32_t viewId, const char *instance, void *view) {
  noteTake<vcorDbSetView>(view, viewSize(view), viewId, instance, view);
  return answerTo<vcorDbSetView>.give(view);
}

int32_t platform::vcorDbQryView(uint32_t viewId, void *keyView, InstanceList *list) {
  note<vcorDbQryView>({viewSize(keyView), roomOf(list)}, viewId, keyView, list);
  return bench::viewListAnswer(viewId).giveList(list);
}

int32_t platform::vcorDbLstView(uint32_t viewId, const char *parent, InstanceList *list, uint32_t capacity) {
  note<vcorDbLstView>({roomOf(list)}, viewId, parent, list, capacity);
  return bench::viewListAnswer(viewId).giveList(list);
}

int32_t platform::vcorDbAddView(uint32_t viewId, const char *parent, char identity[PLATFORM_INSTANCE_SIZE]) {
  note<vcorDbAddView>({}, viewId, parent, identity);
  return answerTo<vcorDbAddView>.give(identity);
}

int32_t platform::vcorDbDelView(uint32_t viewId, const char *instance) {
  return plain<vcorDbDelView>(viewId, instance);
}

int32_t platform::vcorDbSave() {
  return plain<vcorDbSave>();
}
int32_t platform::vcorDbSaveDbus() {
  return plain<vcorDbSaveDbus>();
}

int32_t platform::plib_adev_list_view(InstanceList *list) {
  return listing<plib_adev_list_view>(list, list);
}
int32_t platform::plib_adev_list_view_all(InstanceList *list) {
  return listing<plib_adev_list_view_all>(list, list);
}

int32_t platform::pm_dev_restart(uint32_t reason) {
  return plain<pm_dev_restart>(reason);
}
int32_t platform::pm_dev_restore_special(uint32_t kind, uint32_t a, uint32_t b, uint32_t c) {
  return plain<pm_dev_restore_special>(kind, a, b, c);
}
int32_t platform::pm_pdt_ctl_leds(uint32_t a, uint32_t b, uint32_t c, uint32_t d) {
  return plain<pm_pdt_ctl_leds>(a, b, c, d);
}
int32_t platform::pm_pdt_get_leds_status(uint32_t a, uint32_t b, uint32_t c, uint32_t d) {
  return plain<pm_pdt_get_leds_status>(a, b, c, d);
}
int32_t platform::pm_log_get_config(void *record) {
  return fill<pm_log_get_config>(record, 160, record);
}
int32_t platform::pm_log_set_config(void *record) {
  return take<pm_log_set_config>(record, 160, record);
}
int32_t platform::pm_get_version_config_type_int(int32_t *code) {
  note<pm_get_version_config_type_int>({}, code);
  return answerTo<pm_get_version_config_type_int>.give(code);
}
int32_t platform::pm_srm_get_update_cpu_info(const char *instance, void *record) {
  return fill<pm_srm_get_update_cpu_info>(record, 28, instance, record);
}

int32_t platform::pm_fw_get_base(const char *instance, void *record) {
  return fill<pm_fw_get_base>(record, 640, instance, record);
}
int32_t platform::pm_fw_set_base(const char *instance, void *record) {
  return take<pm_fw_set_base>(record, 640, instance, record);
}
int32_t platform::pm_mac_filterset(char identity[PLATFORM_INSTANCE_SIZE], void *record) {
  return take<pm_mac_filterset>(record, 392, identity, record);
}
int32_t platform::pm_mac_filterlist(const char *parent, MacFilterList *list) {
  return listing<pm_mac_filterlist>(list, parent, list);
}
int32_t platform::pm_mac_filterdel(const char *identity) {
  return plain<pm_mac_filterdel>(identity);
}

int32_t platform::pm_mac_prm_op(uint32_t operation, void *result, void *viewWord, void *parameters) {
  note<pm_mac_prm_op>({}, operation, result, viewWord, parameters);
  return answerTo<pm_mac_prm_op>.give(result);
}
int32_t platform::pm_wan_get_port_link_state_type(uint32_t *state, uint32_t *rate, uint32_t *third,
                                        uint32_t port) {
  note<pm_wan_get_port_link_state_type>({}, state, rate, third, port);
  *rate = 1;
  *third = 0;
  return answerTo<pm_wan_get_port_link_state_type>.give(state);
}
int32_t platform::pm_eth_get_port_link_state(const char *instance, void *record) {
  return fill<pm_eth_get_port_link_state>(record, 96, instance, record);
}
int32_t platform::pm_switch_get_inst_id_by_port(uint32_t port, char instance[PLATFORM_INSTANCE_SIZE]) {
  note<pm_switch_get_inst_id_by_port>({}, port, instance);
  return answerTo<pm_switch_get_inst_id_by_port>.give(instance);
}
int32_t platform::pm_eth_get_port_basic_statstics(const char *instance, void *record) {
  return fill<pm_eth_get_port_basic_statstics>(record, 504, instance, record);
}
int32_t platform::pm_bw_get_hard_stats(const char *instance, void *record) {
  return fill<pm_bw_get_hard_stats>(record, 348, instance, record);
}

int32_t platform::ctSgw_ssend_to_proxy(uint32_t event, const void *request, uint32_t requestLength,
                             void *reply, uint16_t *replyLength) {
  note<ctSgw_ssend_to_proxy>({requestLength, *replyLength}, event, request, requestLength, reply,
                             replyLength);
  return giveReply(bench::eventAnswer(event), reply, replyLength);
}
int32_t platform::pm_send_msg_2mm(const char *module, uint32_t messageClass, uint32_t messageId,
                        const void *request, uint32_t requestLength, uint32_t flags, void *reply,
                        uint16_t *replyLength) {
  note<pm_send_msg_2mm>({requestLength, *replyLength}, module, messageClass, messageId, request,
                        requestLength, flags, reply, replyLength);
  return giveReply(answerTo<pm_send_msg_2mm>, reply, replyLength);
}
int32_t platform::ASEND(uint32_t messageId, const void *data, uint32_t length, const char *module) {
  note<ASEND>({length}, messageId, data, length, module);
  return answerTo<ASEND>.give(nullptr);
}
int32_t platform::ctSgw_wlanGetHostInfo(WlanHostTable *table) {
  return fillTyped<ctSgw_wlanGetHostInfo>(table, table);
}

int32_t platform::pm_app_wake_up_control_get(void *request, void *control) {
  return fill<pm_app_wake_up_control_get>(control, 7584, request, control);
}
int32_t platform::pm_app_wake_up_control_set(void *request, void *control) {
  return take<pm_app_wake_up_control_set>(control, 7584, request, control);
}
int32_t platform::pm_wlan_ex_control_get(void *request, void *control) {
  return fill<pm_wlan_ex_control_get>(control, 7584, request, control);
}
int32_t platform::pm_wlan_ex_control_set(void *request, void *control) {
  return take<pm_wlan_ex_control_set>(control, 7584, request, control);
}

int32_t platform::pm_iptvvlanbind_set_config(const char *portPath, uint32_t vlanId) {
  return plain<pm_iptvvlanbind_set_config>(portPath, vlanId);
}
int32_t platform::pm_qos_qc_set_config(char identity[PLATFORM_INSTANCE_SIZE], void *record) {
  return take<pm_qos_qc_set_config>(record, 4072, identity, record);
}
int32_t platform::pm_qos_qc_del_config(const char *ruleName) {
  return plain<pm_qos_qc_del_config>(ruleName);
}

int32_t platform::pm_upmode_info_get(UpModeInfo *info) {
  return fillTyped<pm_upmode_info_get>(info, info);
}
int32_t platform::pm_upmode_info_set(const UpModeInfo *oldMode, const UpModeInfo *newMode, void *block) {
  return take<pm_upmode_info_set>(block, 512, oldMode, newMode, block);
}
int32_t platform::pm_e8_wanc_get_current_wandtype(void *record) {
  return fill<pm_e8_wanc_get_current_wandtype>(record, 32, record);
}
int32_t platform::pm_e8_wanc_list_all_wanc_by_wand(const char *parent, uint32_t wanDeviceType,
                                         WanConnectionList *list) {
  note<pm_e8_wanc_list_all_wanc_by_wand>(
      {WAN_CONNECTION_LIST_CAPACITY * PLATFORM_INSTANCE_SIZE, WAN_CONNECTION_WORK_AREA_1_SIZE,
       WAN_CONNECTION_WORK_AREA_2_SIZE, WAN_CONNECTION_WORK_AREA_3_SIZE},
      parent, wanDeviceType, list);
  return answerTo<pm_e8_wanc_list_all_wanc_by_wand>.giveList(list);
}
int32_t platform::pm_e8_wanc_set_comm_ppp_ext(char instance[128], void *record) {
  return take<pm_e8_wanc_set_comm_ppp_ext>(record, 6328, instance, record);
}
int32_t platform::pm_e8_wanc_set_comm_ip_ext(char instance[128], void *record) {
  return take<pm_e8_wanc_set_comm_ip_ext>(record, 4868, instance, record);
}
int32_t platform::si_ifsadapt_clear_wanc() {
  return plain<si_ifsadapt_clear_wanc>();
}
int32_t platform::pm_wanc_set_ppp_username_passwd(void *record) {
  return take<pm_wanc_set_ppp_username_passwd>(record, 192, record);
}
int32_t platform::pm_wanc_change_brg_route_mode(void *record, uint32_t flag) {
  return take<pm_wanc_change_brg_route_mode>(record, 6380, record, flag);
}
int32_t platform::plib_ifs_get_routeif_info(const char *instance, void *record) {
  return fill<plib_ifs_get_routeif_info>(record, 1340, instance, record);
}

int32_t platform::pm_wlan_get_config(const char *instance, WlanConfigRecord *record) {
  return fillTyped<pm_wlan_get_config>(record, instance, record);
}
int32_t platform::pm_wlan_set_config(const char *instance, WlanConfigRecord *record) {
  return takeTyped<pm_wlan_set_config>(record, instance, record);
}
int32_t platform::pm_wlan_get_config_driver(const char *instance, WlanDriverRecord *record) {
  return fillTyped<pm_wlan_get_config_driver>(record, instance, record);
}
int32_t platform::pm_wlan_get_txpower(const char *instance, WlanTxPowerRecord *record) {
  return fillTyped<pm_wlan_get_txpower>(record, instance, record);
}
int32_t platform::pm_wlan_set_txpower(const char *instance, WlanTxPowerRecord *record) {
  return takeTyped<pm_wlan_set_txpower>(record, instance, record);
}
int32_t platform::pm_wlan_get_wep(const char *keyInstance, WlanWepRecord *record) {
  return fillTyped<pm_wlan_get_wep>(record, keyInstance, record);
}
int32_t platform::pm_wlan_set_wep(const char *keyInstance, WlanWepRecord *record) {
  return takeTyped<pm_wlan_set_wep>(record, keyInstance, record);
}
int32_t platform::pm_wlan_get_psk(const char *keyInstance, WlanPskRecord *record) {
  return fillTyped<pm_wlan_get_psk>(record, keyInstance, record);
}
int32_t platform::pm_wlan_set_psk(const char *keyInstance, WlanPskRecord *record) {
  return takeTyped<pm_wlan_set_psk>(record, keyInstance, record);
}
int32_t platform::pm_wlan_get_card_max(WlanCardRecord *record) {
  return fillTyped<pm_wlan_get_card_max>(record, record);
}
int32_t platform::pm_wlan_set_wps(const char *instance, WlanWpsRecord *record) {
  return takeTyped<pm_wlan_set_wps>(record, instance, record);
}
int32_t platform::pm_wlan_set_pmf(const char *instance, uint32_t value) {
  return plain<pm_wlan_set_pmf>(instance, value);
}
int32_t platform::pm_wlan_set_scan_ap(const char *instance, WlanScanRequest *request) {
  return takeTyped<pm_wlan_set_scan_ap>(request, instance, request);
}
int32_t platform::pm_wlan_list_ap(const char *instance, WlanApList *list) {
  return fillTyped<pm_wlan_list_ap>(list, instance, list);
}
int32_t platform::pm_wlan_select_ap_bystamode(uint32_t radio, WlanSelectRecord *selection) {
  return takeTyped<pm_wlan_select_ap_bystamode>(selection, radio, selection);
}
int32_t platform::pm_wlan_get_csi_info(const char *instance, WlanCsiRecord *record) {
  return fillTyped<pm_wlan_get_csi_info>(record, instance, record);
}
int32_t platform::pm_wlan_set_csi_info(const char *instance, WlanCsiRecord *record) {
  return takeTyped<pm_wlan_set_csi_info>(record, instance, record);
}
int32_t platform::pm_wlan_add_csi_mac(const char *parent, WlanCsiMacRecord *record) {
  return takeTyped<pm_wlan_add_csi_mac>(record, parent, record);
}
int32_t platform::pm_wlan_del_csi_mac(const char *parent, WlanCsiMacRecord *record) {
  return takeTyped<pm_wlan_del_csi_mac>(record, parent, record);
}
int32_t platform::pm_wlan_list_csi_mac(const char *parent, CsiMacList *list) {
  return listing<pm_wlan_list_csi_mac>(list, parent, list);
}
int32_t platform::pm_wlan_get_csi_mac_par(const char *name, WlanCsiMacRecord *record) {
  return fillTyped<pm_wlan_get_csi_mac_par>(record, name, record);
}
int32_t platform::pm_wlan_set_easymesh(WlanEasyMeshRecord *record) {
  return takeTyped<pm_wlan_set_easymesh>(record, record);
}
int32_t platform::pm_wlan_get_wifibandsteering(WlanBandSteeringRecord *record) {
  return fillTyped<pm_wlan_get_wifibandsteering>(record, record);
}
int32_t platform::pm_wlan_set_wifibandsteering(WlanBandSteeringRecord *record) {
  return takeTyped<pm_wlan_set_wifibandsteering>(record, record);
}
int32_t platform::pm_wlan_set_same_ssid_2G(const char *instance24G, const char *instance5G) {
  return plain<pm_wlan_set_same_ssid_2G>(instance24G, instance5G);
}
int32_t platform::pm_wlan_list_ad(const char *instance, InstanceList *list) {
  return listing<pm_wlan_list_ad>(list, instance, list);
}
int32_t platform::pm_wlan_get_ad(const char *name, void *view) {
  return fill<pm_wlan_get_ad>(view, viewSize(view), name, view);
}
int32_t platform::pm_wlan_add_blklist(const char *name, void *view) {
  return take<pm_wlan_add_blklist>(view, viewSize(view), name, view);
}
int32_t platform::pm_wlan_del_ad(const char *name) {
  return plain<pm_wlan_del_ad>(name);
}
