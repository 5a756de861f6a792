#include "objects/shared/wan_rewriting.hpp"

#include "frame/status.hpp"
#include "platform/wan.h"
#include "platform/wan.hpp"

namespace pm {

namespace {

/// Room for a WAN connection's path as the networking-device view holds it.
constexpr uint32_t kWanPathSize = 128;

constexpr FixedWord kPppDefaults[] = {
    fixed(WanPppExtRecord::setting28, 1),    fixed(WanPppExtRecord::setting860, 1),
    fixed(WanPppExtRecord::setting1020, -1), fixed(WanPppExtRecord::setting1212, 0),
    fixed(WanPppExtRecord::setting1984, 0),  fixed(WanPppExtRecord::setting3784, 3),
    fixed(WanPppExtRecord::setting3848, 7),  fixed(WanPppExtRecord::setting3880, 1),
    fixed(WanPppExtRecord::setting4140, 7),  fixed(WanPppExtRecord::setting4304, 7),
    fixed(WanPppExtRecord::setting4412, 1),  fixed(WanPppExtRecord::setting4444, 3),
    fixed(WanPppExtRecord::setting5476, 0),  fixed(WanPppExtRecord::ipv6Enable, 1),
    fixed(WanPppExtRecord::setting5540, 0),  fixed(WanPppExtRecord::setting5572, 0),
    fixed(WanPppExtRecord::setting5972, 1)};

constexpr CarriedWord kPppCarried[] = {
    carried(WanPppConnectionView::setting484, WanPppExtRecord::setting1920),
    carried(WanPppConnectionView::setting324, WanPppExtRecord::setting2016),
    carried(WanPppConnectionView::setting1220, WanPppExtRecord::setting2144)};

constexpr FixedWord kIpDefaults[] = {
    fixed(WanIpExtRecord::setting28, 1),    fixed(WanIpExtRecord::setting860, 1),
    fixed(WanIpExtRecord::setting1020, -1), fixed(WanIpExtRecord::setting1212, 0),
    fixed(WanIpExtRecord::setting2048, 3),  fixed(WanIpExtRecord::setting2464, 7),
    fixed(WanIpExtRecord::setting2496, 1),  fixed(WanIpExtRecord::setting2756, 7),
    fixed(WanIpExtRecord::setting2920, 7),  fixed(WanIpExtRecord::setting3028, 1),
    fixed(WanIpExtRecord::setting3060, 3),  fixed(WanIpExtRecord::setting4016, 0),
    fixed(WanIpExtRecord::ipv6Enable, 1),   fixed(WanIpExtRecord::setting4080, 0),
    fixed(WanIpExtRecord::setting4112, 0),  fixed(WanIpExtRecord::setting4512, 1)};

constexpr CarriedWord kIpCarried[] = {
    carried(WanIpConnectionView::setting196, WanIpExtRecord::setting1760),
    carried(WanIpConnectionView::setting388, WanIpExtRecord::setting1792)};

constexpr CarriedWord kStaticAddressing[] = {
    carried(WanIpConnectionView::staticAddressing1, WanIpExtRecord::staticAddressing1),
    carried(WanIpConnectionView::staticAddressing2, WanIpExtRecord::staticAddressing2),
    carried(WanIpConnectionView::staticAddressing3, WanIpExtRecord::staticAddressing3),
    carried(WanIpConnectionView::staticAddressing4, WanIpExtRecord::staticAddressing4),
    carried(WanIpConnectionView::staticAddressing5, WanIpExtRecord::staticAddressing5),
    carried(WanIpConnectionView::staticAddressing6, WanIpExtRecord::staticAddressing6)};

int32_t clearConnections(const Trail &log) {
  const int32_t status = si_ifsadapt_clear_wanc();
  if (status == kOk) return kOk;
  PM_LOG(log, kError, status, "[%s] si_ifsadapt_clear_wanc iRet=%d\n", log.function, status);
  return kFailure;
}

int32_t rewritePpp(const Trail &log, const char *path) {
  ViewBuffer<WanPppConnectionView> ppp;
  if (const int32_t status = ppp.readAt(path); status != kOk) {
    PM_LOG(log, kError, status, "getdbview wancppp error, iRet is %d\n", status);
    return status;
  }
  if (clearConnections(log) != kOk) return kFailure;

  RecordBuffer<WanPppExtRecord> connection;
  connection.set(kPppDefaults);
  connection.carry(ppp.bytes, kPppCarried);
  connection.set(connection.serviceList, WAN_SERVICE_INTERNET);
  connection.set(connection.userName, ppp.text(ppp.userName));
  connection.set(connection.password, ppp.text(ppp.password));
  connection.set(connection.text5924, WAN_NO_LAN_BINDING);
  char instance[kWanPathSize] = {};
  const int32_t status = pm_e8_wanc_set_comm_ppp_ext(instance, &connection);
  if (appliedOrUnchanged(status)) return kOk;
  PM_LOG(log, kError, status, "[%s] pm_e8_wanc_set_comm_ppp_ext failed! iret:%d\n", log.function,
         status);
  return status;
}

int32_t rewriteIp(const Trail &log, const char *path, bool isStatic) {
  ViewBuffer<WanIpConnectionView> ip;
  if (const int32_t status = ip.readAt(path); status != kOk) {
    PM_LOG(log, kError, status, "getdbview wancip error, iRet is %d\n", status);
    return status;
  }
  if (clearConnections(log) != kOk) return kFailure;

  RecordBuffer<WanIpExtRecord> connection;
  connection.set(kIpDefaults);
  connection.carry(ip.bytes, kIpCarried);
  if (isStatic) connection.carry(ip.bytes, kStaticAddressing);
  connection.set(connection.serviceList, WAN_SERVICE_INTERNET);
  connection.set(connection.text4464, WAN_NO_LAN_BINDING);
  char instance[kWanPathSize] = {};
  const int32_t status = pm_e8_wanc_set_comm_ip_ext(instance, &connection);
  if (appliedOrUnchanged(status)) return kOk;
  PM_LOG(log, kError, status, "[%s] pm_e8_wanc_set_comm_ip_ext failed! iRet:%d\n", log.function,
         status);
  return status;
}

}  // namespace

int32_t rewriteConnection(const Trail &log, NetworkingBuffer &networking) {
  char path[kWanPathSize] = {};
  copyText(path, networking.text(networking.wanInstance));
  {
    ViewBuffer<WanConnectionView> connection;
    if (const int32_t status = connection.readAt(path); status != kOk) {
      PM_LOG(log, kError, status, "getdbview wanc error, iRet is %d\n", status);
      return status;
    }
  }
  const uint32_t kind = networking.get(networking.accessMode);
  return kind == kPppAccess ? rewritePpp(log, path) : rewriteIp(log, path, kind == kStaticAccess);
}

}  // namespace pm
