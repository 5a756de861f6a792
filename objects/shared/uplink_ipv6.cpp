#include "objects/shared/uplink_ipv6.hpp"

#include <cstring>

#include "frame/codes.hpp"
#include "frame/record_buffer.hpp"
#include "platform/host.h"
#include "platform/wan.hpp"

namespace pm {

namespace {

constexpr uint32_t kAddressTextSize = 128;
constexpr uint32_t kPrefixTextSize = 32;

/// The IPv6 side of the Internet connection: four views of it, each empty when it cannot be read.
struct Ipv6State {
  ViewBuffer<RouteInterfaceView> route;
  ViewBuffer<DssInfoView> dss;
  ViewBuffer<DssConfigView> dssConfig;
  ViewBuffer<PrefixConfigView> prefix;
};

void readIpv6(const Trail &log, const InstancePath &wan, Ipv6State &state) {
  PM_LOG(log, kInfo, 0, "the result of ubus_get_route_if_into = %d\n",
         ubus_get_route_if_into(wan.text, state.route.bytes));
  PM_LOG(log, kInfo, 0, "the result of ubus_get_dssinto = %d\n",
         ubus_get_dssinto(wan.text, state.dss.bytes));
  PM_LOG(log, kInfo, 0, "the result of tDssCfg = %d\n",
         ubus_get_dsscfg(wan.text, state.dssConfig.bytes));
  PM_LOG(log, kInfo, 0, "the result of tPrefixcfg = %d\n",
         ubus_get_prefixcfg(wan.text, state.prefix.bytes));
}

/// Prints an address, and ends its text whatever the platform does.
void printAddress(const uint8_t *address, char (&text)[kAddressTextSize],
                  uint32_t room = kAddressTextSize) {
  IPv6ToStr(address, text, room);
  text[room - 1] = '\0';
}

template <uint32_t Size>
void copyAddress(char (&field)[Size], const uint8_t *address, uint32_t room = kAddressTextSize) {
  char text[kAddressTextSize] = {};
  printAddress(address, text, room);
  copyText(field, text);
}

void fillDnsServers(const Trail &log, const ViewBuffer<DssInfoView> &dss,
                    UplinkInfoRecord *record) {
  const uint8_t *servers[] = {dss.get(dss.dnsServer1), dss.get(dss.dnsServer2),
                              dss.get(dss.dnsServer3)};
  char list[3 * kAddressTextSize] = {};
  uint32_t length = 0;
  for (const uint8_t *server : servers) {
    char text[kAddressTextSize] = {};
    printAddress(server, text);
    if (ChkIPv6(server) == -1) continue;
    if (length > 0) list[length++] = ',';
    copyText(list + length, sizeof list - length, text);
    length += static_cast<uint32_t>(strlen(list + length));
  }
  PM_LOG(log, kInfo, 0, "dhsv6_servers=%s\n", list);
  copyText(record->dhsv6_servers, list);
}

}  // namespace

void fillIpv6(const Trail &log, const InstancePath &wan, UplinkInfoRecord *record) {
  Ipv6State state;
  readIpv6(log, wan, state);
  const auto &route = state.route;
  const auto &dss = state.dss;
  const auto &prefix = state.prefix;
  copyText(record->v6Status,
           nameOf(kConnectionStates, route.get(route.connectionState), "Unconnected "));
  PM_LOG(log, kInfo, 0, "v6Status=%s\n", record->v6Status);
  copyText(record->v6AddressOrigin, nameOf(kAddressOrigins, dss.get(dss.addressOrigin), ""));
  PM_LOG(log, kInfo, 0, "v6AddressOrigin=%s\n", record->v6AddressOrigin);
  copyAddress(record->v6IPAddress, route.get(route.ipv6Address));
  PM_LOG(log, kInfo, 0, "v6IPAddress=%s\n", record->v6IPAddress);
  fillDnsServers(log, dss, record);
  record->v6PrefixMode = state.dssConfig.getSigned(state.dssConfig.prefixMode);
  copyText(record->v6PrefixOrigin, nameOf(kPrefixOrigins, prefix.get(prefix.prefixOrigin), ""));
  PM_LOG(log, kInfo, 0, "v6PrefixOrigin=%s\n", record->v6PrefixOrigin);
  copyAddress(record->v6Prefix, prefix.get(prefix.prefix), kPrefixTextSize);
  PM_LOG(log, kInfo, 0, "v6Prefix=%s\n", record->v6Prefix);
  itoa(dss.getSigned(dss.preferredLifetime), record->PreferLifetime, 10);
  PM_LOG(log, kInfo, 0, "PreferLifetime=%s\n", record->PreferLifetime);
  itoa(dss.getSigned(dss.validLifetime), record->ValidLifetime, 10);
  PM_LOG(log, kInfo, 0, "ValidLifetime=%s\n", record->ValidLifetime);
  copyAddress(record->defaultIPv6Gateway, route.get(route.ipv6Gateway));
  PM_LOG(log, kInfo, 0, "defaultIPv6Gateway=%s\n", record->defaultIPv6Gateway);
}

void clearIpv6(UplinkInfoRecord *record) {
  record->v6Status[0] = '\0';
  record->v6AddressOrigin[0] = '\0';
  record->v6IPAddress[0] = '\0';
  record->dhsv6_servers[0] = '\0';
  record->v6PrefixMode = 0;
  record->v6PrefixOrigin[0] = '\0';
  record->v6Prefix[0] = '\0';
  record->PreferLifetime[0] = '\0';
  record->ValidLifetime[0] = '\0';
  record->defaultIPv6Gateway[0] = '\0';
}

}  // namespace pm
