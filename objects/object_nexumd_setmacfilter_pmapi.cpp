#include "frame/instance.hpp"
#include "frame/log.hpp"
#include "frame/parse.hpp"
#include "frame/record_buffer.hpp"
#include "frame/status.hpp"
#include "frame/text.hpp"
#include "platform/firewall.h"
#include "platform/firewall.hpp"
#include "pmapi/macfilter.h"

using namespace pm;

static constexpr char kSourceTag[] = "object_nexumd_setmacfilter_pmapi.c";

namespace {

constexpr uint8_t kOn = 1;
constexpr uint32_t kEntryTypeSource = 2;
constexpr uint32_t kEntryAllProtocols = 4;
constexpr size_t kMacDigits = 12;
constexpr uint32_t kNameSize = 16;
constexpr uint32_t kTableSize = 32;

constexpr uint8_t kNoMac[6] = {};

using InstanceText = char[PLATFORM_INSTANCE_SIZE];

/// Brings the firewall's switches in line; writes only what differs.
int32_t applySwitches(const Trail &log, uint8_t enable, uint8_t policy) {
  RecordBuffer<FirewallBaseRecord> base;
  int32_t status = pm_fw_get_base(kGatewayPath.text, &base);
  if (status != kOk) {
    PM_LOG(log, kError, status, "[pm_fw_get_base] failed, retcode = %d\n", status);
    return kFailure;
  }
  const bool enableDiffers = base.get(base.macFilterEnable) != enable;
  const bool policyDiffers = base.get(base.macFilterPolicy) != policy;
  if (!enableDiffers && !policyDiffers) return kOk;

  if (enableDiffers) base.set(base.macFilterEnable, enable);
  if (policyDiffers) base.set(base.macFilterPolicy, policy);
  status = pm_fw_set_base(kGatewayPath.text, &base);
  if (status == kOk) return kOk;
  PM_LOG(log, kError, status, "[pm_fw_set_base] failed, retcode = %d\n", status);
  return PM_STATUS_NOT_WRITTEN;
}

int32_t net_parse_mac_filter_data(uint8_t enable, uint8_t policy, const uint8_t mac[6],
                                  const char *name) {
  const Trail log(kSourceTag);
  if (policy > 1 || enable > 1) {
    PM_LOG(log, kError, 0, "MacFiltr Data is NULL !\n");
    return kFailure;
  }
  if (const int32_t status = applySwitches(log, enable, policy); status != kOk) return status;
  if (memcmp(mac, kNoMac, sizeof kNoMac) == 0 || enable != kOn) return kOk;

  RecordBuffer<MacFilterEntryRecord> entry;
  entry.set(entry.type, kEntryTypeSource);
  entry.set(entry.protocol, kEntryAllProtocols);
  entry.set(entry.sourceMac, mac);
  entry.set(entry.deviceName, name);
  PM_LOG(log, kInfo, 0, "enable = %d, blacklist = %d, type = %d, protocol = %d\r\n", enable, policy,
         kEntryTypeSource, kEntryAllProtocols);

  InstanceText identity = {};
  if (const int32_t status = pm_mac_filterset(identity, &entry); status != kOk) {
    PM_LOG(log, kError, status, "pm_mac_filterset Error !\n");
    return kFailure;
  }
  PM_LOG(log, kInfo, 0, "szInstIdentity = %s \r\n", InstancePath(identity).text);
  return kOk;
}

int32_t net_del_mac_filter_data() {
  const Trail log(kSourceTag);
  InstanceText identities[kTableSize] = {};
  MacFilterList list{kTableSize, 0, identities};
  if (const int32_t status = pm_mac_filterlist(kGatewayPath.text, &list); status != kOk) {
    PM_LOG(log, kError, status, "net_del_mac_filter_data pm_mac_filterlist:!RET_PM_OK FAILURE!");
    return status;
  }
  const uint32_t count = clampCount(list.dwCount, kTableSize);
  for (uint32_t i = 0; i < count; ++i) {
    const InstancePath identity(identities[i]);
    ViewBuffer<MacFilterView> entry;
    entry.read(identity);
    pm_mac_filterdel(identity.text);
  }
  return kOk;
}

bool entriesAreWellFormed(const Trail &log, const char *entries) {
  std::string_view entry;
  while (nextListItem(entries, entry)) {
    const size_t slash = entry.find('/');
    if (slash == entry.npos || slash + 1 == entry.size()) {
      PM_LOG(log, kError, 0, "Dev Info do not have dev name\n");
      return false;
    }
    if (slash != kMacDigits) {
      PM_LOG(log, kError, 0, "MAC len is not equal 12 !\n");
      return false;
    }
  }
  return true;
}

/// `entry` is well-formed: a MAC's length, a "/" and a name.
void applyEntry(const Trail &log, uint8_t enable, uint8_t policy, std::string_view entry) {
  uint8_t mac[6];
  if (!parseMacDigits(entry.data(), mac)) {
    PM_LOG(log, kError, 0, "StrToMAC Error !\n");
    return;
  }
  entry.remove_prefix(kMacDigits + 1);
  char name[kNameSize];
  copyText(name, entry.size() < kNameSize ? entry.size() + 1 : kNameSize, entry.data());
  net_parse_mac_filter_data(enable, policy, mac, name);
}

}  // namespace

int32_t pm_ubus_macfilter_set(const UbusMacFilter *record) {
  const Trail log = entered(kSourceTag);
  if (log.lacks(record)) return kFailure;
  char entries[2048];
  copyText(entries, record->entries);
  PM_LOG(log, kInfo, 0, "macFilterEnable = %u, macFilterPolicy = %u, entries = %s\n",
         record->macFilterEnable, record->macFilterPolicy, entries);
  if (!entriesAreWellFormed(log, entries)) return PM_STATUS_MALFORMED_ENTRY;

  if (record->macFilterEnable == kOn) net_del_mac_filter_data();
  const auto enable = static_cast<uint8_t>(record->macFilterEnable);
  const auto policy = static_cast<uint8_t>(record->macFilterPolicy);
  if (entries[0] == '\0') {
    net_parse_mac_filter_data(enable, policy, kNoMac, "");
    vcorDbSaveDbus();
    return kOk;
  }
  const char *rest = entries;
  std::string_view entry;
  while (nextListItem(rest, entry)) applyEntry(log, enable, policy, entry);
  PM_LOG(log, kInfo, 0, "-----------after----------------------\r\n");
  vcorDbSaveDbus();
  return kOk;
}
