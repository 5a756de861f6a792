// The search for the addresses of the router, the other half of the basic information.
#include <arpa/inet.h>

#include <cstring>

#include "frame/instance.hpp"
#include "frame/log.hpp"
#include "frame/record_buffer.hpp"
#include "frame/status.hpp"
#include "frame/text.hpp"
#include "platform/host.h"
#include "platform/wan.h"
#include "platform/wan.hpp"
#include "pmapi/basicinfo.h"

using namespace pm;

static constexpr char kSourceTag[] = "object_nexumd_basicinfo_pmapi.c";

char g_wanIPv4Addr[128];
char g_wanIPv6Addr[128];
char g_waninst[128];
uint32_t g_ipmode;

namespace {

constexpr uint32_t kRouteUsable = 1;
constexpr uint32_t kMaxWanConnections = 32;

using RouteBuffer = RecordBuffer<RouteInfoRecord>;

/// The list of WAN connections with the work areas that the platform wants beside it.
struct WanConnectionTable {
  WanConnectionList list{PLATFORM_BLOCK_MARKER,
                         WAN_CONNECTION_LIST_CAPACITY,
                         0,
                         paths,
                         workArea1,
                         workArea2,
                         workArea3};
  char paths[WAN_CONNECTION_LIST_CAPACITY][PLATFORM_INSTANCE_SIZE] = {};
  uint8_t workArea1[WAN_CONNECTION_WORK_AREA_1_SIZE] = {};
  uint8_t workArea2[WAN_CONNECTION_WORK_AREA_2_SIZE] = {};
  uint8_t workArea3[WAN_CONNECTION_WORK_AREA_3_SIZE] = {};
};

/// Lists the connections of the WAN device in use; the lines stand under the search's name.
int32_t listConnections(const Trail &log, WanConnectionTable &table) {
  RecordBuffer<WanDeviceTypeRecord> wanDevice;
  if (const int32_t status = pm_e8_wanc_get_current_wandtype(&wanDevice); status != kOk) {
    PM_LOG(log, kInfo, status, "func pm_e8_wanc_get_current_wandtype fail,iRet=%d", status);
    return status;
  }
  const uint32_t deviceType = wanDevice.get(wanDevice.wanDeviceType);
  PM_LOG(log, kTrace, 0, "tWANDType=%d", deviceType);
  if (const int32_t status =
          pm_e8_wanc_list_all_wanc_by_wand(kGatewayPath.text, deviceType, &table.list);
      status != kOk) {
    PM_LOG(log, kInfo, status, "func CmListAllWANCByWAND fail,iRet=%d", status);
    return status;
  }
  PM_LOG(log, kTrace, 0, "tWancList.tGeneralPara.dwCount=%d", table.list.dwCount);
  if (table.list.dwCount > kMaxWanConnections) {
    PM_LOG(log, kInfo, 0, "wanc count=%d, WANCID_MAX=%d", table.list.dwCount, kMaxWanConnections);
    return PM_STATUS_TOO_MANY_CONNECTIONS;
  }
  return kOk;
}

bool isInternetRoute(const RouteBuffer &route) {
  return (route.get(route.flags) & kRouteUsable) != 0 &&
         (route.get(route.isInternet1) == 1 || route.get(route.isInternet2) == 1);
}

/// Reads the route of one connection; false when the search has to go on with the next one.
bool readInternetRoute(const Trail &log, const InstancePath &connection, RouteBuffer &route) {
  if (const int32_t status = plib_ifs_get_routeif_info(connection.text, &route); status != kOk) {
    PM_LOG(log, kTrace, status, "plib_ifs_get_routeif_info error !,szInstIdentity=%s\n",
           connection.text);
    return false;
  }
  if (!isInternetRoute(route)) {
    PM_LOG(log, kTrace, 0, " this route wanctype is not internet, continue to find\n");
    return false;
  }
  PM_LOG(log, kTrace, 0,
         "tRouteInfo mod=%d. (1:E_IPV4,2:E_IPV6,3:E_BOTH),tRouteInfo.WANCType<%d>;"
         "szInstIdentity=%s\n",
         route.get(route.addressMode), route.get(route.wanType), connection.text);
  return true;
}

void cacheIpv4(const Trail &log, uint32_t ipv4, const InstancePath &connection) {
  memset(g_wanIPv4Addr, 0, sizeof g_wanIPv4Addr);
  copyText(g_wanIPv4Addr, inet_ntoa(in_addr{htonl(ipv4)}));
  PM_LOG(log, kInfo, 0, "g_wanIPv4Addr:%s\n", g_wanIPv4Addr);
  copyText(g_waninst, connection.text);
}

/// The cache is written over, not replaced: a shorter address keeps the tail of a longer one.
void cacheIpv6(const Trail &log, const uint8_t *ipv6) {
  char text[64] = {};
  IPv6ToStr(ipv6, text, sizeof text);
  text[sizeof text - 1] = '\0';
  PM_LOG(log, kTrace, 0, "host ipv6 : %s\n", text);
  copyExact(g_wanIPv6Addr, text, sizeof text - 1);
}

}  // namespace

int32_t ubus_get_router_ip_host_ipv46(uint32_t *ipv4, uint8_t ipv6[16], char *ifname,
                                      uint32_t *mode) {
  const Trail log(kSourceTag);
  if (ipv4 == nullptr || ipv6 == nullptr || ifname == nullptr || mode == nullptr) {
    PM_LOG(log, kInfo, 0, "Para is NULL");
    return kNullRecord;
  }
  WanConnectionTable table;
  if (const int32_t status = listConnections(log, table); status != kOk) return status;

  for (uint32_t i = 0; i < table.list.dwCount; ++i) {
    const InstancePath connection(table.paths[i]);
    RouteBuffer route;
    if (!readInternetRoute(log, connection, route)) continue;
    ubus_get_ifname_from_ifid(connection.text);
    copyExact(ifname, connection.text, sizeof connection.text);

    const uint32_t found = route.get(route.addressMode);
    if (found == kIpv4Only || found == kDualStack) {
      *mode = found;
      *ipv4 = route.get(route.ipv4Address);
      PM_LOG(log, kInfo, 0, "host ipv4 : %08X   \n", *ipv4);
      if (*ipv4 == 0) {
        PM_LOG(log, kInfo, 0, "cannot get wan ipv4, continue to find!!!\n");
        continue;
      }
      cacheIpv4(log, *ipv4, connection);
    }
    if (found == kIpv4Only) return kOk;
    if (found != kIpv6Only && found != kDualStack) return kFailure;
    // A connection that has both is reported as IPv6 once that address is taken.
    *mode = kIpv6Only;
    memcpy(ipv6, route.get(route.ipv6Address), 16);
    cacheIpv6(log, ipv6);
    return kOk;
  }
  return kFailure;
}

int32_t ubus_get_ifname_from_ifid(const char *ifId) {
  const Trail log(kSourceTag);
  PM_LOG(log, kInfo, 0, "now in get_ifname_from_ifid\n");
  if (ifId == nullptr) {
    PM_LOG(log, kError, 0, "if_id is null!!\n");
    return kFailure;
  }
  ViewBuffer<InterfaceInfoView> view;
  view.match(view.interfaceId, ifId);
  InstanceTable<16> found;
  if (const int32_t status = view.query(&found.list); status != kOk) {
    PM_LOG(log, kError, status, "vcorDbQryView DBVIEW_INTERFACE_INFO failed!!\n");
    return status;
  }
  if (found.reported() != 1) {
    PM_LOG(log, kError, 0, "tList.dwCount != 1 !!\n");
    return kFailure;
  }
  view.reset();
  if (const int32_t status = view.read(found.at(0)); status != kOk) {
    PM_LOG(log, kError, status, "vcorDbGetView DBVIEW_INTERFACE_INFO failed!!\n");
    return status;
  }
  const char *interfaceName = view.text(view.interfaceName);
  PM_LOG(log, kInfo, 0, "CaptureEth:%s\n", interfaceName);
  const int32_t status = ubus_setCaptureEth(interfaceName);
  if (status != kOk) PM_LOG(log, kError, status, "ubus_setCaptureEth failed!!\n");
  return status;
}
