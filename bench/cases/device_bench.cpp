// The gateway as a device: hardware, port, account, working mode, speed test.
#include <cstring>

#include "bench/bench.hpp"
#include "platform/device.h"
#include "platform/host.h"
#include "platform/ports.h"
#include "platform/proxy.h"
#include "platform/device.hpp"
#include "pmapi/detection.h"
#include "pmapi/hardwareinfo.h"
#include "pmapi/port.h"
#include "pmapi/pppoe.h"
#include "pmapi/workingmode.h"

using namespace platform;

using bench::answerTo;

namespace {

const UbusWorkingMode routerMode{1, 1};

alignas(UbusPppoe) char account[sizeof(UbusPppoe) + 68];
alignas(HttpSpeedRequest) char speedTest[260];
HardwareInfoRecord hardware;
PortInfoRecord port;
HttpSpeedResult speed;

void figures(uint32_t) {
  const MemInfo memory{262144, 131072, 8192, 32768};
  answerTo<GetCpuType>.word(0, 2);
  answerTo<GetFlashSizeTotal>.word(0, 131072);
  answerTo<GetRamSizeTotal>.word(0, memory.total);
  answerTo<GetMemInfo>.bytes(0, &memory, sizeof memory);
  answerTo<pm_srm_get_update_cpu_info>.set(platform::CpuInfoRecord::cpuUsage, 12);
}

void describeAccount(uint32_t) {
  strcpy(account, "user@example.net");
  strcpy(account + sizeof(UbusPppoe), "secret");
}

void describeSpeedTest(uint32_t) {
  strcpy(speedTest, "http://speed.example.net/100MB");
}

void finishedSpeedTest(uint32_t) {
  bench::eventAnswer(CTSGW_EVENT_GET_HTTPDOWNLOAD_DIAGNOSTICSRESULT)
      .set(HttpDownloadReply::state, "Completed")
      .set(HttpDownloadReply::rate, 96 * 1024)
      .length(HttpDownloadReply::rate.end());
}

const bench::Cases cases{
    {.name = "hardware: record",
     .platform = figures,
     .before = [](uint32_t) { memset(&hardware, 0, sizeof hardware); },
     .handler = [](uint32_t) { pm_ubus_get_hardware_info(&hardware); }},
    {.name = "port: LAN port",
     .before = [](uint32_t) { memset(&port, 0, sizeof port); },
     .handler = [](uint32_t) { pm_ubus_get_portinfo(1, "IGD.LD1.ETH1", &port); }},
    {.name = "PPPoE: account",
     .platform = describeAccount,
     .handler = [](uint32_t) { pm_ubus_pppoe_set(reinterpret_cast<const UbusPppoe *>(account)); }},
    {.name = "working mode", .handler = [](uint32_t) { pm_ubus_workingmode_set(&routerMode); }},
    {.name = "speed test: start",
     .platform = describeSpeedTest,
     .handler =
         [](uint32_t) {
           ubus_set_httpspeed_diagnostics(reinterpret_cast<const HttpSpeedRequest *>(speedTest));
         }},
    {.name = "speed test: result",
     .platform = finishedSpeedTest,
     .handler = [](uint32_t) { ubus_get_httpspeed_result(&speed); }},
};

}  // namespace
