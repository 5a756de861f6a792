// Restart, locks, counters, LEDs, IPv6 and log settings.
#include <cstdio>
#include <cstdlib>

#include "bench/bench.hpp"
#include "platform/device.h"
#include "platform/wan.hpp"
#include "pmapi/control.h"

using namespace platform;

using bench::viewAnswer;

namespace {

constexpr uint32_t kRouterMode = 1;
constexpr uint32_t kPpp = 2;

const uint32_t on = 1;
const DevLogStats logging{1, 2, 0};
DevLogStats loggingRead;
uint32_t word;
int32_t count;

void routerOnPpp(uint32_t) {
  viewAnswer(DBVIEW_NETWORKING_DEV_INFO)
      .set(NetworkingDeviceView::workingMode, kRouterMode)
      .set(NetworkingDeviceView::accessMode, kPpp)
      .set(NetworkingDeviceView::wanInstance, "IGD.WD1.WCD1.WCPPP1");
  viewAnswer(DBVIEW_WAN_PPP_CONN)
      .set(WanPppConnectionView::userName, "user@example.net")
      .set(WanPppConnectionView::password, "secret");
}

void writeFile(const char *path, const char *text) {
  FILE *file = fopen(path, "w");
  if (file == nullptr) return;
  fputs(text, file);
  fclose(file);
}

void writeCounter(uint32_t) {
  writeFile("root/proc/ffe/hff_enable", "1\n");
  writeFile("root/proc/ffe/hff_skip_num", "250\n");
}

void readNumber(const char *path) {
  char line[8];
  FILE *file = fopen(path, "r");
  if (file == nullptr || fgets(line, sizeof line, file) == nullptr) return;
  fclose(file);
  count = atoi(line);
}

void readCounter(uint32_t) {
  readNumber("/proc/ffe/hff_enable");
  readNumber("/proc/ffe/hff_skip_num");
}

const bench::Cases cases{
    {.name = "control: restart of the gateway",
     .handler = [](uint32_t) { pm_ubus_control_set(1); }},
    {.name = "control: restart of a radio", .handler = [](uint32_t) { pm_ubus_control_set(3); }},
    {.name = "control: network lock", .handler = [](uint32_t) { pm_ubus_set_locknet(1); }},
    {.name = "control: lock status", .handler = [](uint32_t) { pm_ubus_lockstatus_get(&word); }},
    {.name = "control: hardware NAT clean", .handler = [](uint32_t) { pm_ubus_set_hwnetClean(); }},
    {.name = "control: kernel counter set",
     .handler = [](uint32_t) { pm_ubus_set_kernelcount(1); }},
    {.name = "control: kernel counter get",
     .platform = writeCounter,
     .handler = [](uint32_t) { pm_ubus_get_kernelcount(&count); },
     .besides = readCounter},
    {.name = "control: PMF set", .handler = [](uint32_t) { pm_ubus_set_pmfctrl(&on); }},
    {.name = "control: PMF get", .handler = [](uint32_t) { pm_ubus_get_pmfctrl(&word); }},
    {.name = "control: special settings restored",
     .handler = [](uint32_t) { pm_ubus_dev_restore_special(1, 0, 0, 0); }},
    {.name = "control: LEDs set", .handler = [](uint32_t) { pm_ubus_led_control(1, 1, 0, 0); }},
    {.name = "control: LEDs get", .handler = [](uint32_t) { pm_ubus_led_get(1, 0, 0, 0); }},
    {.name = "control: IPv6 on, PPP",
     .platform = routerOnPpp,
     .handler = [](uint32_t) { pm_ubus_ipv6enable_set(1); }},
    {.name = "control: IPv6 get", .handler = [](uint32_t) { pm_ubus_ipv6enable_get(&word); }},
    {.name = "control: log settings set",
     .handler = [](uint32_t) { pm_ubus_set_devlogstats(&logging); }},
    {.name = "control: log settings get",
     .handler = [](uint32_t) { pm_ubus_logstats_get(&loggingRead); }},
};

}  // namespace
