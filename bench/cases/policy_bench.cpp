// Limits of many devices, and a full MAC filter list.
#include <cstdio>
#include <cstring>
#include <string>

#include "bench/bench.hpp"
#include "bench/platform/process.hpp"
#include "pmapi/limit.h"
#include "pmapi/macfilter.h"

namespace {

constexpr uint32_t kMostDevices = 100;
constexpr uint32_t kUrls = 4;
constexpr size_t kEntriesCapacity = 2048;

UbusDeviceLimit limits[kMostDevices];
alignas(UbusMacFilter) char filterBytes[sizeof(UbusMacFilter) + kEntriesCapacity];

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
    strcpy(limits[i].LimitUrl, "games,videos,music,chat");
  }
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

void describeFilter(uint32_t entries) {
  auto *filter = reinterpret_cast<UbusMacFilter *>(filterBytes);
  filter->macFilterEnable = 1;
  filter->macFilterPolicy = 0;
  std::string text;
  for (uint32_t i = 0; i < entries; ++i) {
    char entry[32];
    snprintf(entry, sizeof entry, "%s02a1b2c3d4%02x/pad%u", i == 0 ? "" : ",", i, i);
    text += entry;
  }
  strcpy(filterBytes + sizeof(UbusMacFilter), text.c_str());
}

const bench::Cases cases{
    {.name = "limit: set with 4 URLs, devices",
     .platform = describeDevices,
     .before = noLimits,
     .handler =
         [](uint32_t devices) { pm_ubus_nexumd_limit_set(limits, static_cast<int32_t>(devices)); },
     .besides = writeCommands,
     .items = {1, 10, kMostDevices}},
    {.name = "MAC filter: set, entries",
     .platform = describeFilter,
     .handler =
         [](uint32_t) {
           pm_ubus_macfilter_set(reinterpret_cast<const UbusMacFilter *>(filterBytes));
         },
     .items = {1, 10, 100}},
};

}  // namespace
