// The attached devices: one by one, counted, sampled, and sent away.
#include <sys/sysinfo.h>

#include <cstdio>
#include <cstring>

#include "bench/bench.hpp"
#include "bench/platform/process.hpp"
#include "platform/attached_devices.h"
#include "platform/host.h"
#include "platform/ports.h"
#include "platform/proxy.h"
#include "platform/attached_devices.hpp"
#include "platform/wlan.hpp"
#include "pmapi/helpers.h"
#include "pmapi/roaming.h"
#include "pmapi/stainfo.h"
#include "pmapi/uplinkinfo.h"

using bench::answerTo;
using bench::get;
using bench::viewAnswer;
using bench::viewListAnswer;
using namespace platform;

namespace {

constexpr int32_t kIpv4 = 1;
constexpr uint32_t kMostHosts = WlanHostTable::Entries::kCount;
constexpr char kMacText[] = "02a1b2c30000";
constexpr uint32_t kMacBegin = 0xC3B2A102;
constexpr char kAssociation[] = "IGD.LD1.WLAN1.AD1";

StaInfoRecord station;
StaConfigResult connection;
StaNumRecord stationNumbers;
StaRssiRecord signalLevel;
struct sysinfo uptime;

constexpr uint32_t payload(const Field &field) {
  return PROXY_REPLY_STATUS_SIZE + field.offset;
}

void stations(uint32_t number) {
  answerTo<plib_adev_list_view>.paths(number, "IGD.LD1.Hosts.Adev");
  answerTo<plib_adev_list_view_all>.paths(number, "IGD.LD1.Hosts.Adev");
  bench::eventAnswer(CTSGW_EVENT_QUERY_ADEV_PARAM)
      .word(payload(DeviceRecord::accessType), 1)
      .text(payload(DeviceRecord::interfaceName), "wlan0")
      .text(payload(DeviceRecord::hostName), "tablet")
      .length(PROXY_REPLY_STATUS_SIZE + DeviceRecord::kSize);
  bench::eventAnswer(CTSGW_EVENT_GET_BW_STATS)
      .word(payload(StationStatisticsRecord::txRate), 1200)
      .word(payload(StationStatisticsRecord::rxRate), 3400)
      .length(PROXY_REPLY_STATUS_SIZE + StationStatisticsRecord::kSize);
  viewAnswer(DBVIEW_ACCESS_DEV)
      .set(AccessDeviceView::vendor, "Example")
      .text(AccessDeviceView::ipv6Address.offset, "2001:db8::2");
  answerTo<pm_bw_get_hard_stats>.set(StationStatisticsRecord::totalBytesSent, 1000);
  viewListAnswer(DBVIEW_WLAN_AD).paths(1, "IGD.LD1.WLAN1.AD");
  viewAnswer(DBVIEW_WLAN_AD)
      .set(AssociatedDeviceView::name, kAssociation)
      .set(AssociatedDeviceView::ssidInstance, "IGD.LD1.WLAN1")
      .set(AssociatedDeviceView::rssi, static_cast<uint32_t>(-60))
      .set(AssociatedDeviceView::linkRate, 866000)
      .set(AssociatedDeviceView::linkRate2, 866000);
  bench::Answer &config = answerTo<pm_wlan_get_config>;
  config.set(WlanConfigRecord::ssid, "home-network").set(WlanConfigRecord::channel, 36);
  answerTo<IPToStr>.text(0, "192.168.1.2");
}

/// So many associated stations; the one that is asked for comes last.
void hosts(uint32_t number) {
  uint8_t entries[kMostHosts * WlanHostEntry::kSize] = {};
  memcpy(entries + (number - 1) * WlanHostEntry::kSize + WlanHostEntry::mac.offset, &kMacBegin,
         sizeof kMacBegin);
  answerTo<StrToMAC>.word(0, kMacBegin);
  bench::Answer &table = answerTo<ctSgw_wlanGetHostInfo>;
  table.set(WlanHostTable::count, number)
      .bytes(WlanHostTable::entries.offset, entries, number * WlanHostEntry::kSize);
  bench::eventAnswer(CTSGW_EVENT_GET_WLANRADIOINFO)
      .word(payload(RadioInfoRecord::radioValue), 36)
      .length(PROXY_REPLY_STATUS_SIZE + RadioInfoRecord::kSize);
}

void traceMac() {
  printf("=======strtoMAc======%02x:%02x:%02x:%02x:%02x:%02x\n", 2, 0xA1, 0xB2, 0xC3, 0, 0);
}

void traceSignal(uint32_t) {
  traceMac();
  printf("radioType:%d\n", 0);
}

void traceDisconnect(uint32_t) {
  traceMac();
  printf("=======number=======%d\n", 1);
  printf("=======tViewName=======%s\n", kAssociation);
}

void noSamples(uint32_t) {
  bench::freeAllBlocks();
  g_net_sta_ifa_list = {&g_net_sta_ifa_list, &g_net_sta_ifa_list};
}

const bench::Cases cases{
    {.name = "station: record, attached devices",
     .platform = stations,
     .before = [](uint32_t) { memset(&station, 0, sizeof station); },
     .handler = [](uint32_t) { pm_ubus_get_sta_info(0, &station); },
     .items = {1, 12, 128},
     .logsErrors = true},
    {.name = "station: connection, attached devices",
     .platform = stations,
     .before = [](uint32_t) { memset(&connection, 0, sizeof connection); },
     .handler = [](uint32_t) { ubus_get_sta_config(0, &connection); },
     .items = {1, 12, 128},
     .logsErrors = true},
    {.name = "roaming: number of stations, attached devices",
     .platform = stations,
     .handler = [](uint32_t) { pm_ubus_sta_num_get(&stationNumbers); },
     .items = {1, 12, 128}},
    {.name = "samples: one of the stations, devices",
     .platform = stations,
     .before = noSamples,
     .handler = [](uint32_t) { if_sta_statics(kIpv4); },
     .items = {1, 12, 128}},
    {.name = "roaming: signal, associated stations",
     .platform = hosts,
     .before = [](uint32_t) { strcpy(signalLevel.macAddress, kMacText); },
     .handler = [](uint32_t) { pm_ubus_roaming_starssi_get(&signalLevel); },
     .besides = traceSignal,
     .items = {1, 12, kMostHosts}},
    {.name = "roaming: disconnect a station",
     .platform = stations,
     .handler = [](uint32_t) { pm_ubus_roaming_sta_disconnect(kMacText); },
     .besides = traceDisconnect},
};

void oneStation(uint32_t) {
  stations(1);
}

const bench::Singles facts{oneStation,
                           {{"ubus_getIpAddress", get<ubus_getIpAddress, 0>},
                            {"ubus_getHostName", get<ubus_getHostName, 0>},
                            {"ubus_getMacAddress", get<ubus_getMacAddress, 0>},
                            {"ubus_getStatype", get<ubus_getStatype, 0>},
                            {"wlan_get_ad_db_q", get<wlan_get_ad_db_q, kAssociation>}}};

const bench::Singles others{{.name = "ubus_getUptime",
                             .platform = oneStation,
                             .handler = get<ubus_getUptime, 0>,
                             .besides = [](uint32_t) { sysinfo(&uptime); }},
                            // Has no place for the platform's answer.
                            {.name = "wlan_get_ad", .handler = get<wlan_get_ad, kAssociation>}};

}  // namespace
