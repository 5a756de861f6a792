#include <cjson/cJSON.h>

#include <cstdlib>
#include <cstring>

#include "bench/bench.hpp"
#include "bench/platform/process.hpp"
#include "platform/device.h"
#include "platform/host.h"
#include "platform/proxy.h"
#include "platform/wan.hpp"
#include "platform/device.hpp"
#include "platform/wlan.hpp"
#include "platform/wan.h"
#include "pmapi/basicinfo.h"
#include "pmapi/meshtopology.h"

using bench::answerTo;
using bench::get;
using bench::viewAnswer;
using namespace platform;

namespace {

constexpr char kWanInstance[] = "IGD.WD1.WCD1.WCPPP1";
constexpr char kEmptyMesh[] = "{\"topology information\":[]}";

BasicInfoRecord record;
char interfaceName[128];
uint32_t ipv4;
uint8_t ipv6[16];
uint32_t mode;
volatile int32_t versionCode;

void identity(uint32_t) {
  viewAnswer(DBVIEW_DEVICE_INFO)
      .set(DeviceInfoView::vendor, "Example Networks")
      .set(DeviceInfoView::model, "HG-3200")
      .set(DeviceInfoView::serialNumber, "HG3200A1B2C3D4E5")
      .set(DeviceInfoView::firmwareVersion, "V2.0.1")
      .set(DeviceInfoView::softwareVersion, "V2.0.1P3")
      .set(DeviceInfoView::deviceType, "router");
  viewAnswer(DBVIEW_GATEWAY_IDENTITY)
      .set(GatewayIdentityView::productToken, "token")
      .set(GatewayIdentityView::captureEth, "ppp0")
      .set(GatewayIdentityView::cmei, "460011234567890")
      .set(GatewayIdentityView::authId, "auth-0001")
      .set(GatewayIdentityView::devKey, "0123456789abcdef0123456789abcdef");
}

/// Two connections; the second one carries the Internet over IPv4 and IPv6.
void wan(uint32_t connections) {
  answerTo<pm_e8_wanc_list_all_wanc_by_wand>.paths(connections, "IGD.WD1.WCD1.WCPPP");
  answerTo<plib_ifs_get_routeif_info>.set(RouteInfoRecord::flags, 1)
      .set(RouteInfoRecord::addressMode, 3)
      .set(RouteInfoRecord::isInternet1, 1)
      .set(RouteInfoRecord::ipv4Address, 0x0A000002)
      .set(RouteInfoRecord::ipv6Address, "abcdefghijklmnop");
  bench::viewListAnswer(DBVIEW_INTERFACE_INFO).paths(1, "IGD.IF");
  viewAnswer(DBVIEW_INTERFACE_INFO).set(InterfaceInfoView::interfaceName, "ppp0");
  answerTo<IPv6ToStr>.text(0, "2001:db8::1");
}

/// Connections none of which carries the Internet: the search looks at all of them.
void wanWithoutInternet(uint32_t connections) {
  wan(connections);
  answerTo<plib_ifs_get_routeif_info>.set(RouteInfoRecord::flags, 0);
}

void gateway(uint32_t items) {
  identity(items);
  wan(1);
  viewAnswer(DBVIEW_LAN_DEVICE).text(LanDeviceView::mac.offset, "\x02\x11\x22\x33\x44\x55");
  viewAnswer(DBVIEW_NETWORKING_DEV_INFO).set(NetworkingDeviceView::workingMode, 1);
  viewAnswer(DBVIEW_WAN_PPP_CONN).set(WanPppConnectionView::userName, "user@example.net");
  answerTo<pm_upmode_info_get>.word(0, UP_MODE_ETHERNET);
  answerTo<pm_send_msg_2mm>.word(0, 2).length(4);
  answerTo<itoa>.text(0, "1");
  answerTo<pm_get_version_config_type_int>.word(0, 7);
  bench::meshDump = kEmptyMesh;
}

/// What the mesh information costs in any case; a mesh of some size has its own row.
void emptyMesh(uint32_t) {
  void *volatile topology = calloc(1, sizeof(MeshTopologyRecord));
  cJSON_Delete(cJSON_Parse(kEmptyMesh));
  free(topology);
}

void searchWan(uint32_t) {
  ubus_get_router_ip_host_ipv46(&ipv4, ipv6, interfaceName, &mode);
}

const bench::Cases cases{
    {.name = "basic information: WAN search, idle links",
     .platform = wanWithoutInternet,
     .handler = searchWan,
     .items = {1, 8, 32}},
    {.name = "basic information: all fields",
     .platform = gateway,
     .before = [](uint32_t) { memset(&record, 0, sizeof record); },
     .handler = [](uint32_t) { pm_ubus_get_basicinfo(&record); },
     .besides = emptyMesh,
     .logsErrors = true},
};

const bench::Singles facts{
    gateway,
    {{"ubus_getProductToken", get<ubus_getProductToken>},
     {"ubus_getDeviceType", get<ubus_getDeviceType>},
     {"ubus_getdeviceVendor", get<ubus_getdeviceVendor>},
     {"ubus_getDeviceModel", get<ubus_getDeviceModel>},
     {"ubus_getDeviceSn", get<ubus_getDeviceSn>},
     {"ubus_getCMEI", get<ubus_getCMEI>},
     {"ubus_getSWVersion", get<ubus_getSWVersion>},
     {"ubus_getFWVersion", get<ubus_getFWVersion>},
     {"ubus_getAuthID", get<ubus_getAuthID>},
     {"ubus_getDevKey", get<ubus_getDevKey>},
     {"ubus_getCaptureEth", get<ubus_getCaptureEth>},
     {"ubus_setCaptureEth", [](uint32_t) { ubus_setCaptureEth("ppp0"); }},
     {"ubus_get_ifname_from_ifid", [](uint32_t) { ubus_get_ifname_from_ifid(kWanInstance); }},
     {"ubus_getDeviceMac", get<ubus_getDeviceMac>},
     {"ubus_getUplinkType", [](uint32_t) { ubus_getUplinkType(bench::output, 31); }},
     {"ubus_getWorkingMode", get<ubus_getWorkingMode>},
     {"ubus_getPPPOEUser", get<ubus_getPPPOEUser>},
     {"ubus_getRadio5", [](uint32_t) { ubus_getRadio5(); }},
     {"ubus_wlan_get_card_max", get<ubus_wlan_get_card_max>}}};

/// Asked for once: by the time that it is measured the answer is there.
const bench::Singles cached{{.name = "ubus_get_current_version_code",
                             .platform = gateway,
                             .handler = [](uint32_t) { ubus_get_current_version_code(); },
                             .floor = [](uint32_t) { static_cast<void>(versionCode); }}};

}  // namespace
