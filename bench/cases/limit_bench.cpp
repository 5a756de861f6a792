// Limits of many devices: rates, and URL keywords as rules of the firewall.
#include <cstdio>
#include <cstring>

#include "bench/bench.hpp"
#include "bench/platform/process.hpp"
#include "platform/view_ids.h"
#include "pmapi/limit.h"

using bench::get;

namespace {

constexpr uint32_t kMostDevices = 100;
constexpr uint32_t kUrls = 4;
constexpr char kUrlList[] = "games,videos,music,chat";
constexpr int32_t kInPeriod = 1;
constexpr uint8_t kMac[6] = {2, 0xA1, 0xB2, 0xC3, 0xD4, 0};

UbusDeviceLimit limits[kMostDevices];
UbusDeviceLimit limitsRead[kMostDevices];
LmtUrlCfg urls;
int32_t count;

/// Forgets the devices of the last call; their blocks are free again.
void noLimits(uint32_t) {
  bench::freeAllBlocks();
  g_ubus_devlmt_list = {&g_ubus_devlmt_list, &g_ubus_devlmt_list};
  g_ubus_lmtUrl_list = {&g_ubus_lmtUrl_list, &g_ubus_lmtUrl_list};
  g_ubus_devlmt_inst = 0;
}

void describeDevices(uint32_t devices) {
  memset(limits, 0, sizeof limits);
  for (uint32_t i = 0; i < devices; ++i) {
    snprintf(limits[i].deviceMac, sizeof limits[i].deviceMac, "02A1B2C3D4%02X", i);
    strcpy(limits[i].TxRate, "512");
    strcpy(limits[i].RxRate, "1024");
    strcpy(limits[i].LimitUrl, kUrlList);
  }
}

/// No two MACs begin alike, so that the keywords of each device are looked for from the start.
void describeStrangers(uint32_t devices) {
  describeDevices(devices);
  for (uint32_t i = 0; i < devices; ++i) {
    snprintf(limits[i].deviceMac, sizeof limits[i].deviceMac, "%02XA1B2C3D4E5", i + 1);
  }
}

void describeDeviceInPeriod(uint32_t) {
  describeDevices(1);
  limits[0].LmtMode = kInPeriod;
  limits[0].LimitWeek = 0x3E;
  limits[0].LimitStartTime = 28800;
  limits[0].LimitEndTime = 79200;
  bench::viewListAnswer(DBVIEW_TIME_POLICY).paths(1, "IGD.TimePolicy");
}

void setLimits(uint32_t devices) {
  pm_ubus_nexumd_limit_set(limits, static_cast<int32_t>(devices));
}

void setOneLimit(uint32_t) {
  device_limit_cfg_data(&limits[0]);
}

/// Two programs per keyword, each with a command line of its own.
void writeCommands(uint32_t devices) {
  char command[256];
  for (uint32_t i = 0; i < devices * kUrls * 2; ++i) {
    snprintf(command, sizeof command,
             "%s %s ubusfilter -m mac --mac-source %.31s -m urlfilter --urlkey \"%.*s\" -j DROP ",
             "ip6tables", "-A", "02:a1:b2:c3:d4:00", 6, "videos");
  }
}

void writeCommandsOfOne(uint32_t) {
  writeCommands(1);
}

/// The texts alone.
void writeLimits(uint32_t devices) {
  for (uint32_t i = 0; i < devices; ++i) {
    strcpy(limitsRead[i].deviceMac, limits[i].deviceMac);
    strcpy(limitsRead[i].TxRate, limits[i].TxRate);
    strcpy(limitsRead[i].RxRate, limits[i].RxRate);
    strcpy(limitsRead[i].LimitUrl, limits[i].LimitUrl);
  }
}

const bench::Cases cases{
    {.name = "limit: set with 4 URLs, devices",
     .platform = describeDevices,
     .before = noLimits,
     .handler = setLimits,
     .besides = writeCommands,
     .items = {1, 10, kMostDevices}},
    {.name = "limit: get, devices",
     .platform = describeStrangers,
     .before = [](uint32_t devices) { noLimits(devices), setLimits(devices); },
     .handler = [](uint32_t) { pm_ubus_nexumd_limit_get(limitsRead, &count); },
     .besides = writeLimits,
     .items = {1, 10, kMostDevices}},
    {.name = "limit: one device with 4 URLs",
     .platform = describeDevices,
     .before = [](uint32_t) { describeDevices(1), noLimits(1); },
     .handler = setOneLimit,
     .besides = writeCommandsOfOne},
    {.name = "limit: one device with 4 URLs, in a period",
     .platform = describeDeviceInPeriod,
     .before = noLimits,
     .handler = setOneLimit,
     .besides = writeCommandsOfOne},
    {.name = "limit: commands of 4 URLs",
     .before =
         [](uint32_t) {
           strcpy(urls.mac, "02:a1:b2:c3:d4:00");
           strcpy(urls.LimitURL, kUrlList);
         },
     .handler = [](uint32_t) { si_ubus_lmturl_command(&urls, "-A"); },
     .besides = writeCommandsOfOne},
};

const bench::Singles steps{
    [](uint32_t) { bench::viewListAnswer(DBVIEW_DEV_LIMIT).paths(1, "IGD.DevLimit"); },
    {{"is_mac_exist", get<is_mac_exist, kMac>},
     {"si_ubus_devLimit_register_timepolicy",
      [](uint32_t) { si_ubus_devLimit_register_timepolicy(kInPeriod, 1792); }}}};

}  // namespace
