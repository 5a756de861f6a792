// The small handlers: one setting, one switch or one table each.
#include <cstring>

#include "bench/bench.hpp"
#include "platform/device.h"
#include "platform/host.h"
#include "platform/ports.h"
#include "platform/proxy.h"
#include "platform/records/port.hpp"
#include "platform/records/wlan_config.hpp"
#include "platform/records/wlan_csi.hpp"
#include "platform/records/wlan_scan.hpp"
#include "platform/traffic_rules.h"
#include "platform/views/eth_port_config.hpp"
#include "platform/views/uplink_rate_config.hpp"
#include "platform/wan.h"
#include "pmapi/control.h"
#include "pmapi/iptv.h"
#include "pmapi/mesh_role.h"
#include "pmapi/port.h"
#include "pmapi/pppoe.h"
#include "pmapi/qos.h"
#include "pmapi/roaming.h"
#include "pmapi/set_radio.h"
#include "pmapi/setmeshroam.h"
#include "pmapi/timedtask.h"
#include "pmapi/uplinkrate_config.h"
#include "pmapi/wifi_csi.h"
#include "pmapi/wifi_switch.h"
#include "pmapi/wifi_wps.h"
#include "pmapi/wlanconnect.h"
#include "pmapi/workingmode.h"

using bench::answerTo;
using bench::viewListAnswer;

namespace {

constexpr uint32_t kRules = 10;

const uint32_t on = 1;
const DevLogStats logging{1, 2, 0};
const UbusIptv binding{1, 85, {1, 2}, {3}};
const MeshRoleRecord meshRole{1};
const MeshRoamRecord meshRoaming{1};
const RoamingRecord roaming{1, -75, -70, 0, 0, 0, 0, 0, 0};
const BandSteeringRecord steering{{}, 1, -65, -60};
const RadioRecord radio{"2.4G", "100", "6", 1};
const WifiSwitchRecord wifiSwitch{"5G", 1};
const WlanConnectRecord upstream{"upstream", "correct horse"};
const UplinkRateConfigRecord rates{"IGD", "600", "60"};
const CsiEnableSetRecord csiEnable{"All", 1};
const UbusWifiTimer timer{1, 1, 0x3E, 2, 28800, 79200, 1};
const UbusWorkingMode routerMode{1, 1};

alignas(UbusPppoe) char account[sizeof(UbusPppoe) + 68];
alignas(UbusQos) char rules[sizeof(UbusQos) + kRules * sizeof(UbusQosRule)];
PortInfoRecord port;
RoamingRecord roamingRead;
BandSteeringRecord steeringRead;
DevLogStats loggingRead;
CsiEnableRecord csiRead;
UbusIptv bindingRead;
uint32_t word;

void describeAccount(uint32_t) {
  strcpy(account, "user@example.net");
  strcpy(account + sizeof(UbusPppoe), "secret");
}

void describeRules(uint32_t count) {
  auto *qos = reinterpret_cast<UbusQos *>(rules);
  memset(rules, 0, sizeof rules);
  qos->qosCommon = 1;
  qos->count = count;
  for (uint32_t i = 0; i < count; ++i) {
    strcpy(qos->rules[i].ip1, "192.168.1.2");
    strcpy(qos->rules[i].port1, "443");
    strcpy(qos->rules[i].label, "video");
  }
}

void upstreamIsHeard(uint32_t) {
  answerTo<pm_wlan_list_ap>.set(WlanApList::count, 1)
      .text(WlanApList::entries.offset + platform::WlanApEntry::ssid.offset, "upstream");
}

const bench::Cases cases{
    {.name = "control: PMF set", .handler = [](uint32_t) { pm_ubus_set_pmfctrl(&on); }},
    {.name = "control: PMF get", .handler = [](uint32_t) { pm_ubus_get_pmfctrl(&word); }},
    {.name = "control: lock status", .handler = [](uint32_t) { pm_ubus_lockstatus_get(&word); }},
    {.name = "control: hardware NAT clean", .handler = [](uint32_t) { pm_ubus_set_hwnetClean(); }},
    {.name = "control: kernel counter set",
     .handler = [](uint32_t) { pm_ubus_set_kernelcount(1); }},
    {.name = "control: log settings set",
     .handler = [](uint32_t) { pm_ubus_set_devlogstats(&logging); }},
    {.name = "control: log settings get",
     .handler = [](uint32_t) { pm_ubus_logstats_get(&loggingRead); }},
    {.name = "port: LAN port",
     .before = [](uint32_t) { memset(&port, 0, sizeof port); },
     .handler = [](uint32_t) { pm_ubus_get_portinfo(1, "IGD.LD1.ETH1", &port); }},
    {.name = "PPPoE: account",
     .platform = describeAccount,
     .handler = [](uint32_t) { pm_ubus_pppoe_set(reinterpret_cast<const UbusPppoe *>(account)); }},
    {.name = "working mode", .handler = [](uint32_t) { pm_ubus_workingmode_set(&routerMode); }},
    {.name = "IPTV: bind", .handler = [](uint32_t) { pm_ubus_nexumd_iptv_set(binding); }},
    {.name = "IPTV: bindings, get",
     .platform =
         [](uint32_t number) { viewListAnswer(DBVIEW_IPTVLANBIND).paths(number, "IGD.IPTV"); },
     .handler = [](uint32_t) { pm_ubus_nexumd_iptv_get(&bindingRead); },
     .items = {1, 10}},
    {.name = "QoS: rules, set",
     .platform = describeRules,
     .handler = [](uint32_t) { pm_ubus_nexumd_qos_set(reinterpret_cast<const UbusQos *>(rules)); },
     .items = {1, kRules}},
    {.name = "QoS: rules, get",
     .platform =
         [](uint32_t number) {
           viewListAnswer(DBVIEW_QOS_CLASSIFICATION).paths(number, "IGD.QOS");
           answerTo<IPToStr>.text(0, "192.168.1.2");
         },
     .handler = [](uint32_t) { pm_ubus_nexumd_qos_get(reinterpret_cast<UbusQos *>(rules)); },
     .items = {1, kRules}},
    {.name = "timer: add", .handler = [](uint32_t) { pm_ubus_nexumd_wifi_timer_add(&timer); }},
    {.name = "mesh: role", .handler = [](uint32_t) { pm_ubus_meshrole_set(&meshRole); }},
    {.name = "mesh: roaming", .handler = [](uint32_t) { pm_ubus_set_meshroam(&meshRoaming); }},
    {.name = "roaming: get", .handler = [](uint32_t) { pm_ubus_roaming_get(&roamingRead); }},
    {.name = "roaming: set", .handler = [](uint32_t) { pm_ubus_roaming_set(&roaming); }},
    {.name = "roaming: band steering get",
     .handler = [](uint32_t) { pm_ubus_roaming_bandsteering_get(&steeringRead); }},
    {.name = "roaming: band steering set",
     .handler = [](uint32_t) { pm_ubus_roaming_bandsteering_set(&steering); }},
    {.name = "uplink: rate configuration",
     .handler = [](uint32_t) { pm_ubus_uplinkrate_config_set(&rates); }},
    {.name = "Wi-Fi: radio", .handler = [](uint32_t) { pm_ubus_radio_set(&radio); }},
    {.name = "Wi-Fi: switch", .handler = [](uint32_t) { pm_ubus_wifi_switch_set(&wifiSwitch); }},
    {.name = "Wi-Fi: WPS", .handler = [](uint32_t) { pm_ubus_wifi_wps_set("2.4G"); }},
    {.name = "Wi-Fi: CSI set", .handler = [](uint32_t) { pm_ubus_set_csi_enable(&csiEnable); }},
    {.name = "Wi-Fi: CSI get", .handler = [](uint32_t) { pm_ubus_get_csi_enable(&csiRead); }},
    {.name = "Wi-Fi: join a network",
     .platform = upstreamIsHeard,
     .handler = [](uint32_t) { pm_ubus_wlanconnect_set(&upstream); }},
};

}  // namespace
