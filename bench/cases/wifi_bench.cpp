#include <cstdio>
#include <cstring>

#include "bench/bench.hpp"
#include "platform/host.h"
#include "platform/records/wlan_config.hpp"
#include "platform/records/wlan_driver.hpp"
#include "platform/records/wlan_keys.hpp"
#include "platform/records/wlan_scan.hpp"
#include "platform/records/wlan_tx_power.hpp"
#include "pmapi/wifi_statsinfo.h"
#include "pmapi/wifiinfo.h"
#include "pmapi/wifiparameter.h"
#include "pmapi/wlan_neighborinfo.h"

using bench::answerTo;

namespace {

constexpr uint32_t kSecurityWpa2 = 3;
constexpr int32_t kSsids = 8;

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
     .handler = [](uint32_t) { pm_ubus_get_wifi_statsinfo("IGD.LD1.WLAN1", &statistics); }},
    {.name = "Wi-Fi: parameter set, SSIDs",
     .platform = radio,
     .before = fillParameters,
     .handler =
         [](uint32_t ssids) {
           pm_ubus_wifiParameter_set_Multi(parameters, static_cast<int32_t>(ssids));
         },
     .besides = traceSecurity,
     .items = {1, 4, kSsids}},
    {.name = "Wi-Fi: neighbours, access points",
     .platform = accessPoints,
     .handler = [](uint32_t) { pm_ubus_wlan_neighborinfo_get_2g(&neighbors); },
     .items = {1, 32, 256}},
};

}  // namespace
