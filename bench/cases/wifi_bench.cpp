#include <cstdio>
#include <cstring>

#include "bench/bench.hpp"
#include "platform/host.h"
#include "platform/wlan.hpp"
#include "pmapi/set_radio.h"
#include "pmapi/wifi_statsinfo.h"
#include "pmapi/wifi_switch.h"
#include "pmapi/wifi_wps.h"
#include "pmapi/wifiinfo.h"
#include "pmapi/wifiparameter.h"
#include "pmapi/wlan_neighborinfo.h"
#include "pmapi/wlanconnect.h"

using namespace platform;

using bench::answerTo;
using bench::get;

namespace {

constexpr uint32_t kSecurityWpa2 = 3;
constexpr int32_t kSsids = 8;
constexpr char kSsid[] = "IGD.LD1.WLAN1";

const RadioRecord radioSettings{"2.4G", "100", "6", 1};
const WifiSwitchRecord wifiSwitch{"5G", 1};
const WlanConnectRecord upstream{"upstream", "correct horse"};

WifiInfoRecord info;
WifiStatsRecord statistics;
WifiParameterRecord parameters[kSsids];
NeighborInfoRecord neighbors;

void radio(uint32_t) {
  answerTo<pm_wlan_get_config>.set(WlanConfigRecord::ssid, "home-network")
      .set(WlanConfigRecord::securityMode, kSecurityWpa2)
      .set(WlanConfigRecord::radioEnable, 1)
      .set(WlanConfigRecord::ssidEnable, 1)
      .set(WlanConfigRecord::channel, 11)
      .set(WlanConfigRecord::maxAssociateNum, 32);
  answerTo<pm_wlan_get_config_driver>.set(WlanDriverRecord::noiseLevel, 90)
      .set(WlanDriverRecord::totalBytesSent, 1000)
      .set(WlanDriverRecord::totalPacketsSent, 10);
  answerTo<pm_wlan_get_txpower>.set(WlanTxPowerRecord::txPower, "100");
  answerTo<pm_wlan_get_psk>.set(WlanPskRecord::passphrase, "correct horse");
}

void fillParameters(uint32_t) {
  for (WifiParameterRecord &record : parameters) {
    record = {.radio = "2.4G",
              .index = 1,
              .enable = 1,
              .ssid = "home-network",
              .securityMode = "WPA2-Personal",
              .encrypt = 3,
              .pwd = "correct horse",
              .maxAssociateNum = 32,
              .ssidAdvertisementEnabled = 1};
  }
}

void accessPoints(uint32_t heard) {
  auto &list = answerTo<pm_wlan_list_ap>.set(WlanApList::count, heard);
  for (uint32_t i = 0; i < heard; ++i) {
    list.text(WlanApList::entries.offset + i * platform::WlanApEntry::kSize, "neighbour");
  }
  answerTo<MACToStr>.text(0, "02:11:22:33:44:55");
}

void upstreamIsHeard(uint32_t) {
  answerTo<pm_wlan_list_ap>.set(WlanApList::count, 1)
      .text(WlanApList::entries.offset + platform::WlanApEntry::ssid.offset, "upstream");
}

void traceSecurity(uint32_t ssids) {
  for (uint32_t i = 0; i < ssids; ++i) printf("ENTER securityMode %s \r\n", "WPA2-Personal");
}

const bench::Cases cases{
    {.name = "Wi-Fi: information record",
     .platform = radio,
     .before = [](uint32_t) { memset(&info, 0, sizeof info); },
     .handler = [](uint32_t) { pm_ubus_get_wifi_info(0, &info); }},
    {.name = "Wi-Fi: statistics record",
     .platform = radio,
     .before = [](uint32_t) { memset(&statistics, 0, sizeof statistics); },
     .handler = [](uint32_t) { pm_ubus_get_wifi_statsinfo(kSsid, &statistics); }},
    {.name = "Wi-Fi: parameter set",
     .platform = radio,
     .before = fillParameters,
     .handler = [](uint32_t) { pm_ubus_wifiParameter_set(parameters); },
     .besides = [](uint32_t) { traceSecurity(1); }},
    {.name = "Wi-Fi: parameter set, SSIDs",
     .platform = radio,
     .before = fillParameters,
     .handler =
         [](uint32_t ssids) {
           pm_ubus_wifiParameter_set_Multi(parameters, static_cast<int32_t>(ssids));
         },
     .besides = traceSecurity,
     .items = {1, 4, kSsids}},
    {.name = "Wi-Fi: radio", .handler = [](uint32_t) { pm_ubus_radio_set(&radioSettings); }},
    {.name = "Wi-Fi: switch", .handler = [](uint32_t) { pm_ubus_wifi_switch_set(&wifiSwitch); }},
    {.name = "Wi-Fi: WPS", .handler = [](uint32_t) { pm_ubus_wifi_wps_set("2.4G"); }},
    {.name = "Wi-Fi: join a network",
     .platform = upstreamIsHeard,
     .handler = [](uint32_t) { pm_ubus_wlanconnect_set(&upstream); }},
    {.name = "Wi-Fi: 2.4 GHz neighbours, access points",
     .platform = accessPoints,
     .handler = [](uint32_t) { pm_ubus_wlan_neighborinfo_get_2g(&neighbors); },
     .items = {1, 32, 256}},
    {.name = "Wi-Fi: 5 GHz neighbours, access points",
     .platform = accessPoints,
     .handler = [](uint32_t) { pm_ubus_wlan_neighborinfo_get_5g(&neighbors); },
     .items = {1, 32, 256}},
};

const bench::Singles fields{
    radio,
    {{"ubus_get_config_Radio", get<ubus_get_config_Radio, 0>},
     {"ubus_get_config_Ssid", get<ubus_get_config_Ssid, 0>},
     {"ubus_get_config_SecurityMode", get<ubus_get_config_SecurityMode, 0>},
     {"ubus_get_config_Pwd", get<ubus_get_config_Pwd, 0>},
     {"ubus_get_config_MaxAssociateNum", get<ubus_get_config_MaxAssociateNum, 0>},
     {"ubus_get_config_SsidAdvertisementEnable", get<ubus_get_config_SsidAdvertisementEnable, 0>},
     {"ubus_get_info_bandwidth", get<ubus_get_info_bandwidth, 0>},
     {"ubus_get_info_encrypt", get<ubus_get_info_encrypt, 0>},
     {"ubus_get_radios_Enable", get<ubus_get_radios_Enable, 0>},
     {"ubus_get_radios_SSIDEnable", get<ubus_get_radios_SSIDEnable, 0>},
     {"ubus_get_radios_Channel", get<ubus_get_radios_Channel, 0>},
     {"ubus_get_radios_ssidStandard", get<ubus_get_radios_ssidStandard, 0>},
     {"ubus_get_radios_transmitPower", get<ubus_get_radios_transmitPower, 0>},
     {"ubus_get_radios_noiseLevel", get<ubus_get_radios_noiseLevel, 0>},
     {"ubus_get_radios_interferencePercent", get<ubus_get_radios_interferencePercent, 0>},
     {"ubus_getRadio", get<ubus_getRadio, kSsid>},
     {"ubus_getSsid", get<ubus_getSsid, kSsid>},
     {"ubus_getTotalBytesSent", get<ubus_getTotalBytesSent, kSsid>},
     {"ubus_getTotalBytesReceived", get<ubus_getTotalBytesReceived, kSsid>},
     {"ubus_getTotalPacketsSent", get<ubus_getTotalPacketsSent, kSsid>},
     {"ubus_getTotalPacketsReceived", get<ubus_getTotalPacketsReceived, kSsid>},
     {"ubus_getErrorsSent", get<ubus_getErrorsSent, kSsid>},
     {"ubus_getErrorsReceived", get<ubus_getErrorsReceived, kSsid>},
     {"ubus_getDiscardPacketsSent", get<ubus_getDiscardPacketsSent, kSsid>},
     {"ubus_getDiscardPacketsReceived", get<ubus_getDiscardPacketsReceived, kSsid>}}};

}  // namespace
