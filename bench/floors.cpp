#include "bench/floors.hpp"

#include <cjson/cJSON.h>

#include <cstdio>
#include <cstring>

#include "boundary/boundary.hpp"
#include "catalogue/parameters.hpp"
#include "gateway/gateway.hpp"
#include "platform/wan.h"
#include "platform/wan.hpp"

namespace bench {
namespace {

constexpr size_t kLineSize = 4096;

FILE *openFile(const char *path, const char *mode) {
  const boundary::Outside outside;
  return gateway::Gateway::current().files().open(path, mode);
}

void scan() {
  char line[kLineSize];
  printf("%s %d  item:%s bufsize:%d\n", __func__, 107, kStoreItem, 64);
  FILE *store = openFile(kStore, "r");
  if (store == nullptr) return;
  while (fgets(line, sizeof line, store) != nullptr) {
    if (strstr(line, kStoreItem) != nullptr) break;
  }
  fclose(store);
}

/// Copies the store line by line; `newLine` takes the place of the item's. To put the copy in the
/// store's place is the platform's work.
void rewrite(const char *newLine) {
  char line[kLineSize];
  FILE *store = openFile(kStore, "r");
  FILE *copy = openFile(kStoreCopy, "w");
  if (store == nullptr || copy == nullptr) return;
  while (fgets(line, sizeof line, store) != nullptr) {
    fputs(strstr(line, kStoreItem) != nullptr ? newLine : line, copy);
  }
  fclose(store);
  fflush(copy);
  fclose(copy);
}

/// With the lines of the trace that the call owes its readers.
void replace() {
  printf("line:%d, ubusadditem->item:%s, ubusadditem->value:%s\n", 10, kStoreItem, "149");
  printf("line:%d, item:%s, value:%s\n", 22, kStoreItem, "149");
  printf("function:%s,line:%d, item exist %s value %s\r\n", __func__, 55, kStoreItem, "36");
  printf("item new value %s\r\n", "if3_channel=149");
  rewrite("if3_channel=149\n");
}

void blank() {
  printf("line:%d, %s %d %s\n", 435, __func__, 435, kStoreItem);
  rewrite("\n");
}

void parse(const char *text) {
  cJSON_Delete(cJSON_Parse(text));
}

void clear(uint32_t connections) {
  static uint8_t areas[WAN_CONNECTION_LIST_CAPACITY * PLATFORM_INSTANCE_SIZE +
                       WAN_CONNECTION_WORK_AREA_1_SIZE + WAN_CONNECTION_WORK_AREA_2_SIZE +
                       WAN_CONNECTION_WORK_AREA_3_SIZE];
  memset(areas, 0, sizeof areas);
  asm volatile("" : : "r"(areas) : "memory");
  for (uint32_t i = 0; i < connections; ++i) {
    memset(areas, 0, platform::RouteInfoRecord::kSize);
    asm volatile("" : : "r"(areas) : "memory");
  }
}

}  // namespace

void readStore() {
  catalogue::callExport(scan);
}

void replaceInStore() {
  catalogue::callExport(replace);
}

void blankInStore() {
  catalogue::callExport(blank);
}

void parseTopology(const char *text) {
  catalogue::callExport(parse, text);
}

void clearForConnections(uint32_t connections) {
  catalogue::callExport(clear, connections);
}

}  // namespace bench
