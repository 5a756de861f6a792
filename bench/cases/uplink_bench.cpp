// How the gateway reaches the Internet.
#include <cstdio>
#include <cstring>

#include "bench/bench.hpp"
#include "bench/platform/process.hpp"
#include "platform/host.h"
#include "platform/ports.h"
#include "platform/proxy.h"
#include "platform/sampling.hpp"
#include "platform/wan.hpp"
#include "platform/wan.h"
#include "pmapi/uplinkinfo.h"
#include "pmapi/uplinkrate_config.h"

using bench::answerTo;
using bench::get;
using bench::viewAnswer;
using bench::viewListAnswer;
using namespace platform;

namespace {

constexpr int32_t kUplinkIpv4 = 3;
constexpr int32_t kSamples = 10;
constexpr char kWan[] = "IGD.WD1.WCD1.WCPPP1";

const si_net_sample sample{{nullptr, nullptr}, 1200, 3400};
const UplinkRateConfigRecord intervals{"IGD", "600", "60"};
UplinkInfoRecord uplink;
char user[32];
char password[32];
char rxRate[64];
char txRate[64];

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
  bench::freeAllBlocks();
  g_net_uplink_ifa_list = {&g_net_uplink_ifa_list, &g_net_uplink_ifa_list};
  g_net_uplink_if6_list = {&g_net_uplink_if6_list, &g_net_uplink_if6_list};
  for (int32_t i = 0; i < kSamples; ++i) si_sample_list_add(&sample, "uplink", kUplinkIpv4);
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

void routerOnIpv6(uint32_t) {
  routerOnPpp(true);
}

void connections(uint32_t number) {
  routerOnPpp(false);
  viewListAnswer(DBVIEW_WAN_CONN_DEV).paths(number, "IGD.WD1.WCD1.WCPPP");
}

const bench::Cases cases{
    {.name = "uplink: record, PPPoE",
     .platform = [](uint32_t) { routerOnPpp(false); },
     .before = uplinkSamples,
     .handler = readUplink,
     .besides = readArpTable},
    {.name = "uplink: record, PPPoE and IPv6",
     .platform = routerOnIpv6,
     .before = uplinkSamples,
     .handler = readUplink,
     .besides = readArpTable},
    {.name = "uplink: current rates, connections",
     .platform = connections,
     .handler = [](uint32_t) { ubus_get_rate_rt(rxRate, txRate); },
     .items = {1, 8, 32}},
    {.name = "uplink: rate configuration",
     .handler = [](uint32_t) { pm_ubus_uplinkrate_config_set(&intervals); }},
};

const bench::Singles parts{
    routerOnIpv6,
    {{"ubus_get_manger_mac", get<ubus_get_manger_mac>},
     {"ubus_getPPPOEUserPwd", [](uint32_t) { ubus_getPPPOEUserPwd(user, password); }},
     {"ubus_get_route_if_into", get<ubus_get_route_if_into, kWan>},
     {"ubus_get_dssinto", get<ubus_get_dssinto, kWan>},
     {"ubus_get_dsscfg", get<ubus_get_dsscfg, kWan>},
     {"ubus_get_prefixcfg", get<ubus_get_prefixcfg, kWan>}}};

const bench::Singles arp{{.name = "ubus_getGatewayMac",
                          .platform = [](uint32_t) { writeArpTable(); },
                          .handler = get<ubus_getGatewayMac>,
                          .besides = readArpTable}};

}  // namespace
