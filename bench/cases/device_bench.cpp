// Hardware figures, and IPv6 switched on over PPPoE.
#include <cstring>

#include "bench/bench.hpp"
#include "platform/device.h"
#include "platform/host.h"
#include "platform/records/cpu_info.hpp"
#include "platform/views/networking_device.hpp"
#include "platform/views/wan_ppp_connection.hpp"
#include "pmapi/control.h"
#include "pmapi/hardwareinfo.h"

using bench::answerTo;
using bench::viewAnswer;
using platform::NetworkingDeviceView;
using platform::WanPppConnectionView;

namespace {

constexpr uint32_t kRouterMode = 1;
constexpr uint32_t kPpp = 2;

HardwareInfoRecord hardware;

void figures(uint32_t) {
  const MemInfo memory{262144, 131072, 8192, 32768};
  answerTo<GetCpuType>.word(0, 2);
  answerTo<GetFlashSizeTotal>.word(0, 131072);
  answerTo<GetRamSizeTotal>.word(0, memory.total);
  answerTo<GetMemInfo>.bytes(0, &memory, sizeof memory);
  answerTo<pm_srm_get_update_cpu_info>.set(platform::CpuInfoRecord::cpuUsage, 12);
}

void routerOnPpp(uint32_t) {
  viewAnswer(DBVIEW_NETWORKING_DEV_INFO)
      .set(NetworkingDeviceView::workingMode, kRouterMode)
      .set(NetworkingDeviceView::accessMode, kPpp)
      .set(NetworkingDeviceView::wanInstance, "IGD.WD1.WCD1.WCPPP1");
  viewAnswer(DBVIEW_WAN_PPP_CONN)
      .set(WanPppConnectionView::userName, "user@example.net")
      .set(WanPppConnectionView::password, "secret");
}

const bench::Cases cases{
    {.name = "hardware: record",
     .platform = figures,
     .before = [](uint32_t) { memset(&hardware, 0, sizeof hardware); },
     .handler = [](uint32_t) { pm_ubus_get_hardware_info(&hardware); }},
    {.name = "control: IPv6 on, PPP",
     .platform = routerOnPpp,
     .handler = [](uint32_t) { pm_ubus_ipv6enable_set(1); }},
    {.name = "control: network lock", .handler = [](uint32_t) { pm_ubus_set_locknet(1); }},
};

}  // namespace
