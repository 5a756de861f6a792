#include "frame/instance.hpp"
#include "frame/log.hpp"
#include "frame/parse.hpp"
#include "frame/record_buffer.hpp"
#include "frame/status.hpp"
#include "platform/traffic_rules.h"
#include "platform/traffic_rules.hpp"
#include "pmapi/iptv.h"

using namespace pm;

static constexpr char kSourceTag[] = "object_nexumd_iptv_pmapi.c";

namespace {

constexpr uint32_t kMaxAcceptedVlan = 4096;
constexpr uint32_t kMaxReportedVlan = 4094;
constexpr char kEthPort[] = "IGD.LD1.ETH";
constexpr char kWlanPort[] = "IGD.LD1.WLAN";

constexpr uint32_t kCapacity = 32;
using BindingTable = InstanceTable<kCapacity>;

template <uint32_t Size>
void bindPorts(const char *stem, const uint32_t (&ports)[Size], uint32_t vlanId) {
  for (uint32_t i = 0; i < Size && ports[i] != 0; ++i) {
    const InstancePath port = InstancePath::numbered(stem, static_cast<int32_t>(ports[i]));
    pm_iptvvlanbind_set_config(port.text, vlanId);
  }
}

/// The number behind a path's stem; 0 for a path that is not even as long as the stem.
uint32_t portNumber(const char *path, const char *stem) {
  const size_t length = strlen(stem);
  return strlen(path) < length ? 0 : static_cast<uint32_t>(numberIn(path + length));
}

/// The next free place of a port list; ports beyond its size are not reported.
template <uint32_t Size>
void appendPort(uint32_t (&ports)[Size], uint32_t &count, uint32_t port) {
  if (count < Size) ports[count++] = port;
}

}  // namespace

int32_t pm_ubus_nexumd_iptv_set(UbusIptv record) {
  const Trail log = entered(kSourceTag);
  if (record.enable == 0) return pm_iptv_del();
  if (record.vlanId > kMaxAcceptedVlan) {
    PM_LOG(log, kError, 0, "pm_ubus_nexumd_iptv_set vlanid is out of range (0~4096)\n");
    return kFailure;
  }
  bindPorts(kEthPort, record.ethPorts, record.vlanId);
  bindPorts(kWlanPort, record.wlanPorts, record.vlanId);
  return PM_LOG(log, kInfo, 0, "pm_ubus_nexumd_iptv_set success \n");
}

int32_t pm_iptv_del(void) {
  const Trail log(kSourceTag);
  BindingTable table;
  if (const int32_t status = table.listView(DBVIEW_IPTVLANBIND); status != kOk) {
    PM_LOG(log, kError, status, "vcorDbQryView DBVIEW_IPTVLANBIND failure! iRet = %d.\n", status);
    return status;
  }
  PM_LOG(log, kInfo, 0, "vcorDbQryView DBVIEW_IPTVIVLANBIND tList.dwCount is %d \n",
         table.reported());
  for (uint32_t i = 0; i < table.count(); ++i) {
    ViewBuffer<IptvVlanBindingView> binding;
    // Kept as it was: for one that cannot be read, the platform is given the empty path.
    binding.read(table.at(i));
    const InstancePath port(binding.text(binding.portPath));
    pm_iptvvlanbind_set_config(port.text, 0);
  }
  return kOk;
}

int32_t pm_ubus_nexumd_iptv_get(UbusIptv *record) {
  const Trail log = entered(kSourceTag);
  if (log.lacks(record)) return kFailure;
  BindingTable table;
  if (const int32_t status = table.listView(DBVIEW_IPTVLANBIND); status != kOk) {
    PM_LOG(log, kError, status, "list vlan fail!");
    return kFailure;
  }
  if (table.count() == 0) return kFailure;

  record->enable = 1;
  uint32_t ethCount = 0;
  uint32_t wlanCount = 0;
  for (uint32_t i = 0; i < table.count(); ++i) {
    ViewBuffer<IptvVlanBindingView> binding;
    if (binding.read(table.at(i)) != kOk) continue;
    const uint32_t vlanId = binding.get(binding.vlanId);
    if (vlanId >= 1 && vlanId <= kMaxReportedVlan) record->vlanId = vlanId;
    const char *path = binding.text(binding.portPath);
    if (startsWith(path, kEthPort)) {
      appendPort(record->ethPorts, ethCount, portNumber(path, kEthPort));
    } else {
      appendPort(record->wlanPorts, wlanCount, portNumber(path, kWlanPort));
    }
  }
  PM_LOG(log, kInfo, 0, "pm_ubus_nexumd_iptv_get success end ");
  return kOk;
}
