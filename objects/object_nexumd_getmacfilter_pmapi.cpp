#include "frame/log.hpp"
#include "frame/record_buffer.hpp"
#include "frame/status.hpp"
#include "frame/text.hpp"
#include "platform/firewall.h"
#include "platform/firewall.hpp"
#include "pmapi/config.h"
#include "pmapi/macfilter.h"

using namespace pm;

static constexpr char kSourceTag[] = "object_nexumd_getmacfilter_pmapi.c";

namespace {

using FirewallBase = RecordBuffer<FirewallBaseRecord>;

constexpr uint32_t kEntriesSize = 128;
constexpr char kItemStore[] = "/userconfig/nexumd_cfgfile";

bool readFirewallBase(const Trail &log, FirewallBase &base) {
  const int32_t status = pm_fw_get_base(kGatewayPath.text, &base);
  if (status == kOk) return true;
  PM_LOG(log, kError, status, "[pm_fw_get_base] failed, retcode = %d\n", status);
  return false;
}

}  // namespace

int32_t ubus_getmacFilterEnable(void) {
  FirewallBase base;
  return readFirewallBase(Trail(kSourceTag), base) ? base.get(base.macFilterEnable) : kFailure;
}

int32_t ubus_getmacFilterPolicy(void) {
  FirewallBase base;
  return readFirewallBase(Trail(kSourceTag), base) ? base.getSigned(base.macFilterPolicy)
                                                   : kFailure;
}

int32_t pm_ubus_get_mac_filter(UbusMacFilter *record) {
  const Trail log = entered(kSourceTag);
  if (log.lacks(record)) return kFailure;
  record->macFilterEnable = static_cast<uint32_t>(ubus_getmacFilterEnable());
  record->macFilterPolicy = static_cast<uint32_t>(ubus_getmacFilterPolicy());

  const char *item =
      record->macFilterPolicy == kWhiteList ? "MacFilter_WhiteList" : "MacFilter_BlackList";
  // The length of the item's name is what the daemon has always got of the list.
  char value[1024] = {};
  const int32_t status =
      pm_ubus_config_getitem(item, value, static_cast<int32_t>(strlen(item)), kItemStore);
  if (status != kOk) {
    PM_LOG(log, kError, status, "pm_ubus_config_getitem failed, iRet=%d\n", status);
    return kFailure;
  }
  copyText(record->entries, kEntriesSize, value);
  return kOk;
}
