// Rate samples, the uplink and the stations.
#include <cstdio>
#include <cstring>

#include "bench/bench.hpp"
#include "bench/platform/process.hpp"
#include "platform/attached_devices.h"
#include "platform/host.h"
#include "platform/ports.h"
#include "platform/proxy.h"
#include "platform/records/bandwidth.hpp"
#include "platform/records/device.hpp"
#include "platform/records/station_statistics.hpp"
#include "platform/records/wlan_config.hpp"
#include "platform/views/access_device.hpp"
#include "platform/views/associated_device.hpp"
#include "platform/views/networking_device.hpp"
#include "platform/views/route_interface.hpp"
#include "platform/views/wan_connection.hpp"
#include "platform/views/wan_ppp_connection.hpp"
#include "platform/wan.h"
#include "pmapi/roaming.h"
#include "pmapi/stainfo.h"
#include "pmapi/uplinkinfo.h"

using bench::answerTo;
using bench::viewAnswer;
using bench::viewListAnswer;
using namespace platform;

namespace {

constexpr int32_t kUplinkIpv4 = 3;
constexpr int32_t kInterval = 60;
constexpr int32_t kDefaultRing = 10;

const si_net_sample sample{{nullptr, nullptr}, 1200, 3400};
si_net_sample_dev wanted;
si_net_sample_statics reduced;
UplinkInfoRecord uplink;
StaInfoRecord station;
StaNumRecord stationNumbers;

void emptyList(ListLink &head) {
  head = {&head, &head};
}

void emptyLists() {
  bench::freeAllBlocks();
  emptyList(g_net_sta_ifa_list);
  emptyList(g_net_sta_if6_list);
  emptyList(g_net_uplink_ifa_list);
  emptyList(g_net_uplink_if6_list);
}

void fillRing(const char *key, int32_t samples) {
  g_ifa_SampleInterval = kInterval;
  g_ifa_ReportInterval = kInterval * samples;
  for (int32_t i = 0; i < samples; ++i) si_sample_list_add(&sample, key, kUplinkIpv4);
}

/// So many keys with full rings; the one that is asked for comes last.
void fillRings(uint32_t keys) {
  emptyLists();
  for (uint32_t i = 0; i < keys; ++i) {
    snprintf(wanted.name, sizeof wanted.name, "02:a1:b2:c3:d4:%02x", i);
    fillRing(wanted.name, kDefaultRing);
  }
}

void fillOneRing(uint32_t samples) {
  emptyLists();
  strcpy(wanted.name, "uplink");
  fillRing(wanted.name, static_cast<int32_t>(samples));
}

void addSample(uint32_t) {
  si_sample_list_add(&sample, wanted.name, kUplinkIpv4);
}
void reduceRing(uint32_t) {
  si_net_sample_list_statics(&wanted, &reduced, kUplinkIpv4);
}

void writeArpTable() {
  FILE *table = fopen("root/proc/net/arp", "w");
  if (table == nullptr) return;
  fputs("IP address       HW type     Flags       HW address            Mask     Device\n", table);
  fputs("192.168.1.2      0x1         0x2         02:a1:b2:c3:d4:e5     *        br0\n", table);
  fputs("10.0.0.1         0x1         0x2         02:00:5e:00:01:01     *        nbif1\n", table);
  fclose(table);
}

void routerOnPpp(bool withIpv6) {
  writeArpTable();
  answerTo<pm_upmode_info_get>.word(0, UP_MODE_ETHERNET);
  viewListAnswer(DBVIEW_WAN_CONN_DEV).paths(1, "IGD.WD1.WCD1.WCPPP");
  viewAnswer(DBVIEW_WAN_CONN_DEV).set(WanConnectionView::interfaceName, "ppp0");
  viewAnswer(DBVIEW_NETWORKING_DEV_INFO)
      .set(NetworkingDeviceView::accessMode, 2)
      .set(NetworkingDeviceView::wanInstance, "IGD.WD1.WCD1.WCPPP1")
      .set(NetworkingDeviceView::netIpMode, withIpv6);
  viewAnswer(DBVIEW_WAN_PPP_CONN)
      .set(WanPppConnectionView::userName, "user@example.net")
      .set(WanPppConnectionView::password, "secret");
  answerTo<pm_send_msg_2mm>.set(BandwidthReply::tx, 4096).set(BandwidthReply::rx, 65536).length(16);
  bench::eventAnswer(CTSGW_EVENT_GET_PORTLINKSTAT_TYPE).word(4, 2).length(8);
  for (const uint32_t view :
       {DBVIEW_ROUTE_IF, DBVIEW_DSS_INFO, DBVIEW_DSS_CFG, DBVIEW_PREFIX_CFG}) {
    viewListAnswer(view).paths(1, "IGD.IPV6.");
  }
  viewAnswer(DBVIEW_ROUTE_IF).set(RouteInterfaceView::connectionState, 2);
  answerTo<IPv6ToStr>.text(0, "2001:db8::1");
  answerTo<itoa>.text(0, "7200");
}

void uplinkSamples(uint32_t) {
  fillOneRing(kDefaultRing);
  memset(&uplink, 0, sizeof uplink);
}

void readUplink(uint32_t) {
  pm_ubus_get_uplinkinfo(&uplink);
}

/// The gateway's MAC is in a table of the system, which stays open.
void readArpTable(uint32_t) {
  char words[6][32];
  FILE *table = fopen("/proc/net/arp", "r");
  if (table == nullptr || fseek(table, 77, SEEK_SET) != 0) return;
  while (fscanf(table, "%15s %7s %7s %31s %19s %7s\n", words[0], words[1], words[2], words[3],
                words[4], words[5]) == 6) {
  }
}

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
      .set(AssociatedDeviceView::ssidInstance, "IGD.LD1.WLAN1")
      .set(AssociatedDeviceView::rssi, static_cast<uint32_t>(-60))
      .set(AssociatedDeviceView::linkRate, 866000)
      .set(AssociatedDeviceView::linkRate2, 866000);
  answerTo<pm_wlan_get_config>.set(WlanConfigRecord::ssid, "home-network").set(WlanConfigRecord::channel, 36);
  answerTo<IPToStr>.text(0, "192.168.1.2");
}

const bench::Cases cases{
    {.name = "samples: add to a full ring, keys",
     .before = fillRings,
     .handler = addSample,
     .items = {1, 10, 100}},
    {.name = "samples: add to a full ring, samples",
     .before = fillOneRing,
     .handler = addSample,
     .items = {10, 100}},
    {.name = "samples: reduce a ring, keys",
     .before = fillRings,
     .handler = reduceRing,
     .items = {1, 10, 100}},
    {.name = "samples: reduce a ring, samples",
     .before = fillOneRing,
     .handler = reduceRing,
     .items = {10, 100}},
    {.name = "uplink: record, PPPoE",
     .platform = [](uint32_t) { routerOnPpp(false); },
     .before = uplinkSamples,
     .handler = readUplink,
     .besides = readArpTable},
    {.name = "uplink: record, PPPoE and IPv6",
     .platform = [](uint32_t) { routerOnPpp(true); },
     .before = uplinkSamples,
     .handler = readUplink,
     .besides = readArpTable},
    {.name = "station: record, attached devices",
     .platform = stations,
     .before = [](uint32_t) { memset(&station, 0, sizeof station); },
     .handler = [](uint32_t) { pm_ubus_get_sta_info(0, &station); },
     .items = {1, 12, 128},
     .logsErrors = true},
    {.name = "roaming: number of stations, attached devices",
     .platform = stations,
     .handler = [](uint32_t) { pm_ubus_sta_num_get(&stationNumbers); },
     .items = {1, 12, 128}},
};

}  // namespace
