// The uplink and the WAN connections.
#pragma once

#include "platform/codes.hpp"
#include "platform/layout.hpp"
#include "platform/wan.h"

namespace platform {

/// How the gateway is connected; one instance, "IGD".
struct NetworkingDeviceView : View<DBVIEW_NETWORKING_DEV_INFO, 2136> {
  FIELD(Word, workingMode, 36, note("1 is router mode"));
  FIELD(Word, accessMode, 68, codes(kAccessModes), note("any other is IP"));
  FIELD(Text<128>, wanInstance, 100, note("the Internet connection"));
  FIELD(Word, uplinkMode, 2100, note("2 is a Wi-Fi client"));
  FIELD(Word, ipv6Enable, 2132, codes(kSwitch));
  /// The same word, as those call it who report how the uplink is addressed.
  static constexpr Word netIpMode = ipv6Enable;
};

/// A WAN connection of any kind, found by the services that it carries ("INTERNET").
struct WanConnectionView : View<DBVIEW_WAN_CONN_DEV, 3212> {
  FIELD(Text<32>, name, 36);
  FIELD(Text<64>, serviceList, 100, note("such as \"INTERNET\""));
  FIELD(Text<32>, interfaceName, 196);
  FIELD(Mac, mac, 260);
};

/// The IP settings of a WAN connection. The words are copied one by one into WanIpExtRecord; those
/// named staticAddressing only for a connection with static addressing.
struct WanIpConnectionView : View<DBVIEW_WAN_IP_CONN, 808> {
  FIELD(Text<32>, name, 36);
  FIELD(Word, staticAddressing1, 100);
  FIELD(Word, staticAddressing2, 132);
  FIELD(Word, staticAddressing3, 164);
  FIELD(Word, setting196, 196);
  FIELD(Word, staticAddressing4, 228);
  FIELD(Word, staticAddressing5, 260);
  FIELD(Word, staticAddressing6, 292);
  FIELD(Word, setting388, 388);
};

/// The PPP settings of a WAN connection; the words are copied one by one into WanPppExtRecord.
struct WanPppConnectionView : View<DBVIEW_WAN_PPP_CONN, 1800> {
  FIELD(Text<32>, name, 36);
  FIELD(Text<64>, userName, 100, kSecret);
  FIELD(Text<64>, password, 196, kSecret);
  FIELD(Word, setting324, 324);
  FIELD(Word, setting484, 484);
  FIELD(Word, setting1220, 1220);
};

/// A network interface, found by the id of what it belongs to, such as a WAN instance.
struct InterfaceInfoView : View<DBVIEW_INTERFACE_INFO, 808> {
  FIELD(Text<32>, name, 36);
  FIELD(Text<32>, interfaceId, 100);
  FIELD(Text<128>, interfaceName, 676);
};

/// IPv6 routing state of a WAN connection.
struct RouteInterfaceView : View<DBVIEW_ROUTE_IF, 2208> {
  FIELD(Text<32>, name, 36);
  FIELD(Text<32>, wanInstance, 100);
  FIELD(Bytes<16>, ipv6Address, 164);
  FIELD(Bytes<16>, ipv6Gateway, 208);
  FIELD(Word, connectionState, 2204, codes(kConnectionStates));
};

/// How a WAN connection obtains its IPv6 prefix.
struct DssConfigView : View<DBVIEW_DSS_CFG, 1224> {
  FIELD(Text<32>, name, 36);
  FIELD(Text<32>, wanInstance, 100);
  FIELD(Word, prefixMode, 164);
};

/// IPv6 addressing that a WAN connection was given.
struct DssInfoView : View<DBVIEW_DSS_INFO, 4384> {
  FIELD(Text<32>, name, 36);
  FIELD(Text<32>, wanInstance, 100);
  FIELD(Word, addressOrigin, 164, codes(kAddressOrigins));
  FIELD(Bytes<16>, dnsServer1, 196);
  FIELD(Bytes<16>, dnsServer2, 240);
  FIELD(Bytes<16>, dnsServer3, 284);
  FIELD(Word, preferredLifetime, 328, unit("s"));
  FIELD(Word, validLifetime, 360, unit("s"));
};

/// The IPv6 prefix of a WAN connection.
struct PrefixConfigView : View<DBVIEW_PREFIX_CFG, 652> {
  FIELD(Text<32>, name, 36);
  FIELD(Text<32>, wanInstance, 100);
  FIELD(Word, prefixOrigin, 164, codes(kPrefixOrigins));
  FIELD(Bytes<16>, prefix, 196);
  FIELD(Word, prefixLength, 240, unit("bit"), range(0, 128));
};

/// The kind of WAN device in use, from pm_e8_wanc_get_current_wandtype.
struct WanDeviceTypeRecord : Record<32> {
  FIELD(Word, wanDeviceType, 28);
};

/// What pm_upmode_info_get fills, in the room that pm_upmode_info_set asks for.
struct UpModeBlock : Record<512> {
  FIELD(PlainWord, mode, 0, codes(kUplinkModes));
  FIELD(PlainWord, port, 4, note("the low 16 bits are the port's number"));
};

/// An IP connection as pm_e8_wanc_set_comm_ip_ext rewrites it. Settings without a known meaning
/// bear their offset.
struct WanIpExtRecord : Record<4868> {
  FIELD(Word, setting28, 28);
  FIELD(Text<64>, serviceList, 732);
  FIELD(Word, setting860, 860);
  FIELD(Word, setting1020, 1020);
  FIELD(Word, setting1212, 1212);
  FIELD(Word, staticAddressing1, 1244);
  FIELD(Word, staticAddressing2, 1276);
  FIELD(Word, staticAddressing3, 1308);
  FIELD(Word, staticAddressing4, 1340);
  FIELD(Word, staticAddressing5, 1372);
  FIELD(Word, staticAddressing6, 1404);
  FIELD(Word, setting1760, 1760);
  FIELD(Word, setting1792, 1792);
  FIELD(Word, setting2048, 2048);
  FIELD(Word, setting2464, 2464);
  FIELD(Word, setting2496, 2496);
  FIELD(Word, setting2756, 2756);
  FIELD(Word, setting2920, 2920);
  FIELD(Word, setting3028, 3028);
  FIELD(Word, setting3060, 3060);
  FIELD(Word, setting4016, 4016);
  FIELD(Word, ipv6Enable, 4048, codes(kSwitch));
  FIELD(Word, setting4080, 4080);
  FIELD(Word, setting4112, 4112);
  FIELD(Text<16>, text4464, 4464);
  FIELD(Word, setting4512, 4512);
};

/// A PPP connection as pm_e8_wanc_set_comm_ppp_ext rewrites it. Settings without a known meaning
/// bear their offset.
struct WanPppExtRecord : Record<6328> {
  FIELD(Word, setting28, 28);
  FIELD(Text<64>, serviceList, 732);
  FIELD(Word, setting860, 860);
  FIELD(Word, setting1020, 1020);
  FIELD(Word, setting1212, 1212);
  FIELD(Text<128>, userName, 1536, kSecret);
  FIELD(Text<128>, password, 1696, kSecret);
  FIELD(Word, setting1920, 1920);
  FIELD(Word, setting1984, 1984);
  FIELD(Word, setting2016, 2016);
  FIELD(Word, setting2144, 2144);
  FIELD(Word, setting3784, 3784);
  FIELD(Word, setting3848, 3848);
  FIELD(Word, setting3880, 3880);
  FIELD(Word, setting4140, 4140);
  FIELD(Word, setting4304, 4304);
  FIELD(Word, setting4412, 4412);
  FIELD(Word, setting4444, 4444);
  FIELD(Word, setting5476, 5476);
  FIELD(Word, ipv6Enable, 5508, codes(kSwitch));
  FIELD(Word, setting5540, 5540);
  FIELD(Word, setting5572, 5572);
  FIELD(Text<16>, text5924, 5924);
  FIELD(Word, setting5972, 5972);
};

/// Bridge or route mode with the connection that it needs, as pm_wanc_change_brg_route_mode takes
/// it. The slots begin at 52 and repeat those of WanIpExtRecord from there.
struct WorkingModeRecord : Record<6380> {
  FIELD(PlainWord, workingMode, 0, note("as the daemon sent it"));
  FIELD(PlainWord, internetType, 4, note("as the daemon sent it"));
  FIELD(Word, setting80, 80);
  FIELD(Text<64>, serviceList, 784);
  FIELD(Word, setting912, 912);
  FIELD(Word, setting1072, 1072);
  FIELD(Word, setting1264, 1264);
  FIELD(Pointer, addressingType, 1812, note("to a text"));
  FIELD(Word, mtu, 1844, unit("byte"));
  FIELD(Word, setting2100, 2100);
  FIELD(Word, setting4068, 4068);
  FIELD(Word, ipv6Enable, 4100, codes(kSwitch));
  FIELD(Word, setting4132, 4132);
  FIELD(Word, setting4164, 4164);
  FIELD(Text<16>, text4516, 4516);
  FIELD(Word, setting4564, 4564);
};

/// The PPPoE account of the WAN connection.
struct PppoeAccountRecord : Record<192> {
  FIELD(Text<64>, userName, 28, kSecret);
  FIELD(Text<64>, password, 124, kSecret);
};

/// The route of one WAN connection, from plib_ifs_get_routeif_info. The IPv4 address has its first
/// octet in the most significant byte.
struct RouteInfoRecord : Record<1340> {
  FIELD(PlainWord, flags, 296, note("bit 0: the route is usable"));
  FIELD(PlainWord, wanType, 312);
  FIELD(PlainWord, addressMode, 340, codes(kAddressModes));
  FIELD(PlainWord, isInternet1, 344, codes(kSwitch));
  FIELD(PlainWord, ipv4Address, 348, kIpv4);
  FIELD(PlainWord, isInternet2, 376, codes(kSwitch));
  FIELD(PlainBytes<16>, ipv6Address, 396);
};

/// Payload of CTSGW_EVENT_GET_LINKSTAT_BY_STAMODE: the link of the gateway as a Wi-Fi client.
struct LinkStatusRecord : Record<80> {
  FIELD(PlainWord, linkDown, 0, codes(kSwitch));
  FIELD(PlainText<36>, ssid, 20);
  FIELD(PlainWord, wlanStatus1, 56);
  FIELD(PlainWord, wlanStatus4, 60);
  FIELD(PlainWord, wlanStatus2, 64);
  FIELD(PlainWord, wlanStatus3, 68);
  FIELD(PlainWord, linkRate, 72);
  FIELD(PlainWord, linkRate2, 76);
};

/// Request of the same event.
struct LinkStatusRequest : Record<4> {
  FIELD(PlainWord, band, 0, codes(kBands));
};

/// Payload of CTSGW_EVENT_GET_PORTLINKSTAT_TYPE.
struct PortSpeedReply : Record<4> {
  FIELD(PlainWord, speed, 0, codes(kUplinkSpeeds), unit("Mbit/s"));
};

LAYOUTS(WanLayouts, NetworkingDeviceView, WanConnectionView, WanIpConnectionView,
        WanPppConnectionView, InterfaceInfoView, RouteInterfaceView, DssConfigView, DssInfoView,
        PrefixConfigView, WanDeviceTypeRecord, UpModeBlock, WanIpExtRecord, WanPppExtRecord,
        WorkingModeRecord, PppoeAccountRecord, RouteInfoRecord, LinkStatusRecord, LinkStatusRequest,
        PortSpeedReply);

}  // namespace platform
