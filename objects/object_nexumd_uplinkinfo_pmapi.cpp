#include <cstdio>
#include <cstring>

#include "frame/codes.hpp"
#include "frame/file.hpp"
#include "frame/instance.hpp"
#include "frame/log.hpp"
#include "frame/proxy.hpp"
#include "frame/record_buffer.hpp"
#include "frame/status.hpp"
#include "objects/shared/sample_modes.hpp"
#include "objects/shared/uplink_ipv6.hpp"
#include "objects/shared/uplink_rates.hpp"
#include "platform/host.h"
#include "platform/ports.h"
#include "platform/ports.hpp"
#include "platform/wan.h"
#include "platform/wan.hpp"
#include "pmapi/helpers.h"
#include "pmapi/uplinkinfo.h"

using namespace pm;

static constexpr char kSourceTag[] = "object_nexumd_uplinkinfo_pmapi.c";

namespace {

constexpr uint32_t kTextSize = 32;

/// Where a view keeps the text by which it is looked up.
struct KeyField {
  uint32_t viewId;
  uint32_t viewSize;
  uint32_t offset;
  uint32_t usable;
  bool reportsFailure; /**< a failed query is logged like a wrong number of matches */
};

template <class View, uint32_t Width>
consteval KeyField keyField(TypedField<FieldKind::kText, true, Width> field,
                            bool reportsFailure = false) {
  return {View::kId, View::kSize, field.offset, Width - 4, reportsFailure};
}

int32_t seekMatch(const Trail &log, const KeyField &field, const char *key, uint8_t *bytes) {
  prepareView(bytes, field.viewSize);
  putText(bytes, field.offset, field.usable, key, Mark::kMatch);
  InstanceTable<16> found;
  const int32_t status = vcorDbQryView(field.viewId, bytes, &found.list);
  if (status != kOk && !field.reportsFailure) return kFailure;
  if (status != kOk || found.reported() != 1) {
    PM_LOG(log, kError, status, "No Run Info [%s] [%d]", key, found.reported());
    return status != kOk ? kFailure : PM_STATUS_NOT_ONE_MATCH;
  }
  prepareView(bytes, field.viewSize);
  return vcorDbGetView(field.viewId, found.at(0).text, bytes);
}

/// Reads the one instance whose key field holds `key`. After a failure the view is zero: neither
/// the key nor half an answer shows.
int32_t readMatch(const Trail &log, const KeyField &field, const char *key, void *view) {
  const int32_t status = seekMatch(log, field, key, static_cast<uint8_t *>(view));
  if (status != kOk) memset(view, 0, field.viewSize);
  return status;
}

constexpr KeyField kByService = keyField<WanConnectionView>(WanConnectionView::serviceList, true);
constexpr KeyField kRouteByWan = keyField<RouteInterfaceView>(RouteInterfaceView::wanInstance);
constexpr KeyField kDssInfoByWan = keyField<DssInfoView>(DssInfoView::wanInstance);
constexpr KeyField kDssConfigByWan = keyField<DssConfigView>(DssConfigView::wanInstance);
constexpr KeyField kPrefixByWan = keyField<PrefixConfigView>(PrefixConfigView::wanInstance);

/// A view that cannot be read counts as empty.
void readNetworking(const Trail &log, ViewBuffer<NetworkingDeviceView> &networking) {
  if (const int32_t status = networking.read(kGatewayPath); status != kOk) {
    PM_LOG(log, kError, status, "DBVIEW_NETWORKING_DEV_INFO get failed! iRet:%d\n", status);
    networking.clear();
  }
}

}  // namespace

int32_t ubus_get_manger_mac(uint8_t mac[6]) {
  const Trail log = entered(kSourceTag);
  if (mac == nullptr) return kFailure;
  ViewBuffer<WanConnectionView> connection;
  if (const int32_t status = readMatch(log, kByService, "INTERNET", connection.bytes);
      status != kOk) {
    return status;
  }
  memcpy(mac, connection.get(connection.mac), 6);
  return kOk;
}

int32_t ubus_getPPPOEUserPwd(char *user, char *password) {
  const Trail log = entered(kSourceTag);
  if (user == nullptr || password == nullptr) return kFailure;
  ViewBuffer<NetworkingDeviceView> networking;
  readNetworking(log, networking);
  ViewBuffer<WanPppConnectionView> ppp;
  const int32_t status = ppp.readAt(networking.text(networking.wanInstance));
  if (log.readResult(status) != kOk) return kFailure;
  char delivered[kTextSize];
  copyText(delivered, ppp.text(ppp.userName));
  copyExact(user, delivered, sizeof delivered);
  PM_LOG(log, kInfo, 0, "pUser:%s\n", delivered);
  copyText(delivered, ppp.text(ppp.password));
  copyExact(password, delivered, sizeof delivered);
  PM_LOG(log, kInfo, 0, "pPwd:%s\n", delivered);
  return kOk;
}

namespace {

constexpr uint32_t kManagerReplySize = 2048;

/// A module that does not answer is logged and what the connection before it left is added again.
BandwidthAnswer askManagerForBandwidth(const Trail &log, const BandwidthRequestBuffer &request,
                                       BandwidthBuffer &counters) {
  alignas(8) uint8_t reply[kManagerReplySize];
  auto length = static_cast<uint16_t>(sizeof reply);
  memcpy(reply, counters.bytes, counters.kSize);
  const int32_t status = askManager(MANAGER_MODULE_BANDINFO, BANDINFO_MGR_GET_BANDWIDTH,
                                    request.bytes, request.kSize, reply, &length);
  memcpy(counters.bytes, reply, counters.kSize);
  if (status != kOk) {
    PM_LOG(log, kError, status, "net_json_get_wan_rate_rt CmSendMsg2MM fail,iRet = %d\n", status);
  }
  return {false, kOk};
}

}  // namespace

int32_t ubus_get_rate_rt(char *rxText, char *txText) {
  const Trail log = entered(kSourceTag);
  return sumUplinkRates(log, askManagerForBandwidth, PM_STATUS_UNREADABLE, rxText, txText);
}

namespace {

constexpr long kArpHeaderLength =
    sizeof "IP address       HW type     Flags       HW address            Mask     Device" - 1;

struct ArpEntry {
  char ipAddress[16];
  char hardwareType[8];
  char flags[8];
  char mac[32];
  char mask[20];
  char device[8];
};

/// Reads the beginning of the next line and passes over the rest of it.
bool readLine(FILE *table, char (&line)[128]) {
  if (fgets(line, sizeof line, table) == nullptr) return false;
  char rest[sizeof line];
  const char *piece = line;
  while (strchr(piece, '\n') == nullptr && fgets(rest, sizeof rest, table) != nullptr) piece = rest;
  return true;
}

/// The next line that has all the words of an entry.
bool readArpEntry(FILE *table, ArpEntry &entry) {
  char line[128];
  while (readLine(table, line)) {
    if (sscanf(line, "%15s %7s %7s %31s %19s %7s", entry.ipAddress, entry.hardwareType, entry.flags,
               entry.mac, entry.mask, entry.device) == 6) {
      return true;
    }
  }
  return false;
}

}  // namespace

int32_t ubus_getGatewayMac(char *mac) {
  const Trail log = entered(kSourceTag);
  if (mac == nullptr) return kFailure;
  FILE *table = openForReading("/proc/net/arp");
  if (table == nullptr) {
    PM_LOG(log, kTrace, 0, "/proc/net/arp can not open!");
    return kFailure;
  }
  if (fseek(table, kArpHeaderLength, SEEK_SET) != 0) {
    fclose(table);
    return kFailure;
  }
  // From here on the table stays open, kept as it was.
  ArpEntry entry = {};
  for (int32_t i = 0; readArpEntry(table, entry); ++i) {
    if (strstr(entry.device, "nbif") != nullptr) {
      copyExact(mac, entry.mac, kTextSize - 1);
      PM_LOG(log, kInfo, 0, "pGatewayMac:%s\n", entry.mac);
      return kOk;
    }
    PM_LOG(log, kInfo, 0,
           "i =%d,szIpAddr =%s,dwType =%s, dwStatus =%s,szMacAddr =%s,szMask =%s,"
           "szIntferaceName =%s \n",
           i, entry.ipAddress, entry.hardwareType, entry.flags, entry.mac, entry.mask,
           entry.device);
  }
  return kOk;
}

int32_t ubus_get_route_if_into(const char *instance, void *view) {
  const Trail log = entered(kSourceTag);
  if (instance == nullptr || view == nullptr) return kFailure;
  return readMatch(log, kRouteByWan, instance, view);
}

int32_t ubus_get_dssinto(const char *instance, void *view) {
  const Trail log = entered(kSourceTag);
  if (instance == nullptr || view == nullptr) return kFailure;
  return readMatch(log, kDssInfoByWan, instance, view);
}

int32_t ubus_get_dsscfg(const char *instance, void *view) {
  const Trail log = entered(kSourceTag);
  if (instance == nullptr || view == nullptr) return kFailure;
  return readMatch(log, kDssConfigByWan, instance, view);
}

int32_t ubus_get_prefixcfg(const char *instance, void *view) {
  const Trail log = entered(kSourceTag);
  if (instance == nullptr || view == nullptr) return kFailure;
  return readMatch(log, kPrefixByWan, instance, view);
}

namespace {

constexpr int32_t kWithIpv6 = 1;
constexpr uint32_t kLowHalf = 0xFFFF;

const char *ponName(const Trail &log) {
  uint32_t mask = 0;
  if (const int32_t status = GetUpMode(&mask); status != kOk) {
    PM_LOG(log, kError, status, "GetUpMode %d!", status);
    return "";
  }
  if ((mask & UP_MODE_MASK_GPON) != 0) return "GPON";
  return (mask & UP_MODE_MASK_XGPON) != 0 ? "XGPON" : "";
}

const char *uplinkName(const Trail &log, uint32_t mode) {
  const char *name = nameOf(kUplinkModes, mode);
  return name != nullptr ? name : ponName(log);
}

void fillMacs(const Trail &log, UplinkInfoRecord *record) {
  uint8_t mac[6] = {};
  if (const int32_t status = ubus_get_manger_mac(mac); status != kOk) {
    PM_LOG(log, kError, status, "ubus_get_manger_mac fail = %d \n", status);
  }
  PM_LOG(log, kInfo, 0, "ubus_get_manger_mac, %02x:%02x:%02x:%02x:%02x:%02x !\n", mac[0], mac[1],
         mac[2], mac[3], mac[4], mac[5]);
  char managerMac[sizeof record->managerMac] = {};
  MacToString(mac, managerMac, sizeof managerMac);
  ToUpperCase(managerMac);
  copyText(record->managerMac, managerMac);

  char gatewayMac[kTextSize] = {};
  ubus_getGatewayMac(gatewayMac);
  del_char(gatewayMac, ':');
  ToUpperCase(gatewayMac);
  PM_LOG(log, kInfo, 0, "GatewayMac=%s\n", gatewayMac);
  copyText(record->GatewayMac, gatewayMac);
}

void fillAccess(ViewBuffer<NetworkingDeviceView> &networking, UplinkInfoRecord *record) {
  record->accessMode = networking.getSigned(networking.accessMode);
  record->netIpMode = networking.getSigned(networking.netIpMode);
  char user[kTextSize] = {};
  char password[kTextSize] = {};
  if (networking.get(networking.accessMode) == kPppAccess) ubus_getPPPOEUserPwd(user, password);
  copyText(record->pppoeUserName, user);
  copyText(record->pppoePassword, password);
  printDecimal(record->runningTime, GetUpTime());
}

using LinkBuffer = RecordBuffer<LinkStatusRecord>;

/// Asks for the link of the gateway as a client in one band; a link that cannot be asked for is
/// down.
void readWlanLink(const Trail &log, uint32_t band, LinkBuffer &link) {
  link.clear();
  ProxyReply<2048> reply;
  const int32_t outcome =
      reply.outcome(reply.send(CTSGW_EVENT_GET_LINKSTAT_BY_STAMODE, &band, sizeof band));
  if (outcome != kOk) {
    PM_LOG(log, kError, outcome,
           "ctSgw_ssend_to_proxy CTSGW_EVENT_GET_LINKSTAT_BY_STAMODE error!\n");
    link.put(link.linkDown, 1);
    return;
  }
  reply.copyPayload(link.bytes, link.kSize);
}

void fillWlanLink(const Trail &log, UplinkInfoRecord *record) {
  LinkBuffer link;
  uint32_t band = kBand24G;
  readWlanLink(log, band, link);
  if (link.get(link.linkDown) != 0) {
    PM_LOG(log, kInfo, 0, "pm_wlan_get_linkStatus_bystamode 5G  %d\n", link.get(link.linkDown));
    band = kBand5G;
    readWlanLink(log, band, link);
  }
  const bool isDown = link.get(link.linkDown) != 0;
  PM_LOG(log, kInfo, 0, "wlan status %d\n ", link.get(link.linkDown));
  copyText(record->radioBand, isDown ? "" : nameOf(kBands, band));
  copyText(record->linkName, link.text(link.ssid));
  printDecimal(record->wlanStatus1, link.get(link.wlanStatus1));
  printDecimal(record->wlanStatus2, link.get(link.wlanStatus2));
  printDecimal(record->wlanStatus3, link.get(link.wlanStatus3));
  printDecimal(record->wlanStatus4, link.get(link.wlanStatus4));
  printDecimal(record->linkRate, link.get(link.linkRate));
  printDecimal(record->linkRate2, link.get(link.linkRate2));
}

int32_t readPortSpeed(const Trail &log) {
  constexpr int32_t kUnknownSpeed = -1;
  ProxyReply<2048> reply;
  const int32_t outcome = reply.outcome(reply.send(CTSGW_EVENT_GET_PORTLINKSTAT_TYPE, nullptr, 0));
  if (outcome != kOk) {
    PM_LOG(log, kError, outcome, "ctSgw_ssend_to_proxy CTSGW_EVENT_GET_PORTLINKSTAT_TYPE error!\n");
    return kUnknownSpeed;
  }
  int32_t speed = 0;
  return reply.copyPayload(&speed, sizeof speed) == sizeof speed ? speed : kUnknownSpeed;
}

constexpr CounterPlace kCounters[8] = {
    PortStatisticsRecord::counter280, PortStatisticsRecord::counter28,
    PortStatisticsRecord::counter316, PortStatisticsRecord::counter64,
    PortStatisticsRecord::counter460, PortStatisticsRecord::counter208,
    PortStatisticsRecord::counter496, PortStatisticsRecord::counter244};

void reportFailure(const Trail &log, const char *call, int32_t status) {
  if (status == kOk) return;
  PM_LOG(log, kError, status, "func %s fail,iRet=%d\n", call, status);
}

void fillPortCounters(const Trail &log, const InstancePath &port, UplinkInfoRecord *record) {
  RecordBuffer<PortStatisticsRecord> statistics;
  const int32_t status = pm_eth_get_port_basic_statstics(port.text, &statistics);
  if (status != kOk) statistics.clear();
  reportFailure(log, "pm_eth_get_port_basic_statstics", status);
  for (uint32_t i = 0; i < 8; ++i) {
    record->ethCounters[i] = statistics.get(kCounters[i]);
  }
}

void fillWiredLink(const Trail &log, uint32_t port, UplinkInfoRecord *record) {
  InstancePath instance("");
  reportFailure(log, "pm_switch_get_inst_id_by_port",
                pm_switch_get_inst_id_by_port(port, instance.text));
  instance.end();
  const int32_t speed = readPortSpeed(log);
  PM_LOG(log, kInfo, 0, "speedResult:%d\n", speed);
  const char *rate = nameOf(kUplinkSpeeds, static_cast<uint32_t>(speed), "");
  PM_LOG(log, kInfo, 0, "pm_wan_get_port_link_state_type Rate = %s \n", rate);
  record->radioBand[0] = '\0';
  record->linkName[0] = '\0';
  record->wlanStatus1[0] = '\0';
  record->wlanStatus2[0] = '\0';
  record->wlanStatus3[0] = '\0';
  record->wlanStatus4[0] = '\0';
  copyText(record->linkRate, rate);
  copyText(record->linkRate2, rate);
  fillPortCounters(log, instance, record);
}

void fillCurrentRate(const Trail &log, UplinkInfoRecord *record) {
  char rxText[kRateTextSize] = {};
  char txText[kRateTextSize] = {};
  reportFailure(log, "ubus_get_rate_rt", ubus_get_rate_rt(rxText, txText));
  PM_LOG(log, kInfo, 0, " RxRate_rt  RxRate_rt :%s TxRate_rt: %s", rxText, txText);
  copyText(record->RxRate_rt, rxText);
  copyText(record->TxRate_rt, txText);
}

int32_t fillRateBlock(const Trail &log, const si_net_sample_dev &key, int32_t mode,
                      const char *type, UplinkRateBlock &block) {
  copyText(block.statType, type);
  si_net_sample_statics statistics = {};
  if (const int32_t status = si_net_sample_list_statics(&key, &statistics, mode); status != kOk) {
    block.AverRxRate[0] = '\0';
    block.AverTxRate[0] = '\0';
    block.MaxRxRate[0] = '\0';
    block.MaxTxRate[0] = '\0';
    return status;
  }
  PM_LOG(log, kInfo, 0, "si_net_sample_list_statics succeed \n");
  PM_LOG(log, kInfo, 0, "AverRxRate is %d  : %d :%d :%d\n", statistics.rx_aver, statistics.tx_aver,
         statistics.rx_max, statistics.tx_max);
  printDecimal(block.AverRxRate, statistics.rx_aver);
  printDecimal(block.AverTxRate, statistics.tx_aver);
  printDecimal(block.MaxRxRate, statistics.rx_max);
  printDecimal(block.MaxTxRate, statistics.tx_max);
  return kOk;
}

void fillRateStatistics(const Trail &log, UplinkInfoRecord *record) {
  record->rateStatsValid = 1;
  si_net_sample_dev key = {};
  copyText(key.name, "uplink");
  if (const int32_t status = fillRateBlock(log, key, kUplinkIpv4, "IFA", record->ipv4Rates);
      status != kOk) {
    PM_LOG(log, kInfo, status, "si_net_sample_list_statics ifa failed [name %s] \n", key.name);
  }
  if (const int32_t status = fillRateBlock(log, key, kUplinkIpv6, "IF6", record->ipv6Rates);
      status != kOk) {
    PM_LOG(log, kInfo, status, "si_net_sample_list_statics if6 failed [name %s]\n", key.name);
  }
}

}  // namespace

int32_t pm_ubus_get_uplinkinfo(UplinkInfoRecord *record) {
  const Trail log = entered(kSourceTag);
  if (log.lacks(record)) return kFailure;
  UpModeInfo uplink{};
  if (const int32_t status = pm_upmode_info_get(&uplink); status != kOk) {
    PM_LOG(log, kError, status, "[%s] pm_upmode_info_get error, iret = %d\n", log.function, status);
    return status;
  }
  const uint32_t mode = uplink.mode & kLowHalf;
  copyText(record->uplinkType, uplinkName(log, mode));
  fillMacs(log, record);

  ViewBuffer<NetworkingDeviceView> networking;
  readNetworking(log, networking);
  fillAccess(networking, record);

  PM_LOG(log, kInfo, 0, "up_mode=%d\n", mode);
  if (mode == UP_MODE_WLAN) {
    fillWlanLink(log, record);
  } else {
    fillWiredLink(log, uplink.port & kLowHalf, record);
  }
  fillCurrentRate(log, record);
  if (record->netIpMode == kWithIpv6) {
    fillIpv6(log, InstancePath(networking.text(networking.wanInstance)), record);
  } else {
    clearIpv6(record);
  }
  fillRateStatistics(log, record);
  return kOk;
}
