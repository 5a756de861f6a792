// The item store on a file of 40 lines, and the MAC filter's list, which lies in it. The floors use
// stdio as anyone would, with the trace and log lines that a call owes its readers.
#include <unistd.h>

#include <cstdio>
#include <cstring>

#include "bench/bench.hpp"
#include "platform/logger.h"
#include "pmapi/config.h"
#include "pmapi/macfilter.h"

namespace {

constexpr char kPath[] = "nexumd_cfgfile";
constexpr char kTemporaryPath[] = "nexumd_cfgfile.tmp";
constexpr char kDaemonsPath[] = "root/userconfig/nexumd_cfgfile";
constexpr char kItem[] = "if3_channel";
constexpr char kBlackList[] = "MacFilter_BlackList";
constexpr uint32_t kLines = 40;
constexpr uint32_t kPlaceOfItem = 25;
constexpr uint32_t kLineSize = 4096;

alignas(UbusAddItem) char addItemBytes[sizeof(UbusAddItem) + 32];
alignas(UbusMacFilter) char filterBytes[sizeof(UbusMacFilter) + 2048];
char value[64];

const UbusAddItem *addItem() {
  return reinterpret_cast<const UbusAddItem *>(addItemBytes);
}

UbusMacFilter *filter() {
  return reinterpret_cast<UbusMacFilter *>(filterBytes);
}

void writeLines(const char *path, const char *lineOfItem) {
  FILE *store = fopen(path, "w");
  if (store == nullptr) return;
  for (uint32_t i = 1; i <= kLines; ++i) {
    if (i == kPlaceOfItem) {
      fputs(lineOfItem, store);
    } else {
      fprintf(store, "if5_setting%02u=value of setting %02u\n", i, i);
    }
  }
  fclose(store);
}

void writeStore(uint32_t) {
  strcpy(addItemBytes, kItem);
  strcpy(addItemBytes + sizeof(UbusAddItem), "149");
  writeLines(kPath, "if3_channel=36\n");
}

void writeFilterList(uint32_t) {
  writeLines(kDaemonsPath, "MacFilter_BlackList=02a1b2c3d4e5/pad\n");
}

#define LOG(...) ProcUserLog("bench", __LINE__, __func__, LOG_LEVEL_INFO, 0, __VA_ARGS__)

void scan(const char *path, const char *item) {
  char line[kLineSize];
  printf("%s %d  item:%s bufsize:%d\n", __func__, 107, item, 64);
  FILE *store = fopen(path, "r");
  if (store == nullptr) return;
  while (fgets(line, sizeof line, store) != nullptr) {
    if (strstr(line, item) != nullptr) break;
  }
  fclose(store);
}

void scanForItem(uint32_t) {
  scan(kPath, kItem);
  memset(value, 0, sizeof value);
  LOG("%s %d:item exist  %s = %s---\r\n", __func__, __LINE__, kItem, "36");
}

void scanForList(uint32_t) {
  scan("/userconfig/nexumd_cfgfile", kBlackList);
}

/// Copies the store line by line; `newLine` takes the place of the item's.
void rewrite(const char *newLine) {
  char line[kLineSize];
  FILE *store = fopen(kPath, "r");
  FILE *copy = fopen(kTemporaryPath, "w");
  if (store == nullptr || copy == nullptr) return;
  while (fgets(line, sizeof line, store) != nullptr) {
    fputs(strstr(line, kItem) != nullptr ? newLine : line, copy);
  }
  fclose(store);
  fflush(copy);
  fsync(fileno(copy));
  fclose(copy);
  unlink(kPath);
  rename(kTemporaryPath, kPath);
  unlink(kTemporaryPath);
}

void replaceLine(uint32_t) {
  const UbusAddItem *record = addItem();
  printf("line:%d, ubusadditem->item:%s, ubusadditem->value:%s\n", 10, record->item, record->value);
  LOG("now in function %s\n", __func__);
  printf("line:%d, item:%s, value:%s\n", 22, record->item, record->value);
  printf("function:%s,line:%d, item exist %s value %s\r\n", __func__, 55, record->item, "36");
  printf("item new value %s\r\n", "if3_channel=149");
  rewrite("if3_channel=149\n");
}

void blankLine(uint32_t) {
  printf("line:%d, %s %d %s\n", 435, __func__, 435, kItem);
  LOG("item new value %s\r\n", "");
  rewrite("\n");
}

const bench::Cases cases{
    {.name = "item store: get, 40 lines",
     .before = writeStore,
     .handler = [](uint32_t) { pm_ubus_config_getitem(kItem, value, sizeof value, kPath); },
     .floor = scanForItem,
     .limitPercent = 100},
    {.name = "item store: add, 40 lines",
     .before = writeStore,
     .handler = [](uint32_t) { pm_ubus_config_additem(addItem(), kPath, kTemporaryPath); },
     .floor = replaceLine,
     .limitPercent = 100},
    {.name = "item store: delete, 40 lines",
     .before = writeStore,
     .handler = [](uint32_t) { pm_ubus_config_deleteitem(kItem, kPath, kTemporaryPath); },
     .floor = blankLine,
     .limitPercent = 100},
    {.name = "MAC filter: get, 40 lines",
     .platform = writeFilterList,
     .handler = [](uint32_t) { pm_ubus_get_mac_filter(filter()); },
     .besides = scanForList},
};

}  // namespace
