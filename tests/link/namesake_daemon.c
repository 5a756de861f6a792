/*
 * A daemon that has functions of its own under the names of the library's helpers. The library
 * keeps to its own. Which of its calls could be replaced at all, the link contract tells; here some
 * of them are made.
 */
#define _GNU_SOURCE
#include <dlfcn.h>
#include <platform/logger.h>
#include <pmapi/helpers.h>
#include <pmapi/limit.h>
#include <stdio.h>
#include <string.h>

static int taken;

/* What each namesake answers is wrong whatever it is asked. */
#define NAMESAKE(type, name, parameters) \
  type name parameters {                 \
    ++taken;                             \
    return (type)77;                     \
  }

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wunused-parameter"
NAMESAKE(int32_t, MACToStr2, (const uint8_t mac[6], char *text, uint32_t length))
NAMESAKE(int32_t, MacToStr, (const uint8_t mac[6], char *text, uint32_t length))
NAMESAKE(int32_t, MacToString, (const uint8_t mac[6], char *text, uint32_t length))
NAMESAKE(uint32_t, HexCharToVal, (char digit))
NAMESAKE(int32_t, StrToInt, (const char *text, int32_t *out))
NAMESAKE(int32_t, ToUpperCase, (char *text))
NAMESAKE(int32_t, IsJsonObjOrArray, (const char *item))
NAMESAKE(int32_t, file_size, (const char *path))
NAMESAKE(int32_t, GetUpTime, (void))
NAMESAKE(int32_t, wlan_get_ad_db_q, (const char *instance, void *view))
NAMESAKE(int32_t, wlan_get_ad, (const char *instance, void *view))
NAMESAKE(int32_t, check_dev_valid, (const void *deviceRecord))
NAMESAKE(int32_t, net_json_check_dev_valid, (const void *deviceRecord))

void del_char(char *text, char unwanted) {
  ++taken;
}

int32_t ProcUserLog(const char *sourceTag, int32_t line, const char *functionName, int32_t level,
                    int32_t code, const char *format, ...) {
  return 0;
}
#pragma GCC diagnostic pop

static int failures;

static void expect(int holds, const char *what) {
  if (holds) return;
  fprintf(stderr, "namesake_daemon: %s\n", what);
  ++failures;
}

static void limitIsReported(void) {
  DevLmtCfg limit;
  UbusDeviceLimit record;
  int32_t count = 0;
  memset(&limit, 0, sizeof limit);
  memset(&record, 0, sizeof record);
  limit.mac[0] = 2;
  limit.mac[5] = 0xab;
  strcpy(limit.limitWeek, "5");
  limit.link.next = limit.link.prev = &g_ubus_devlmt_list;
  g_ubus_devlmt_list.next = g_ubus_devlmt_list.prev = &limit.link;
  pm_ubus_nexumd_limit_get(&record, &count);
  expect(count == 1, "the limit is not reported");
  expect(strcmp(record.deviceMac, "0200000000AB") == 0, "its MAC is another");
  expect(record.LimitWeek == 5, "its weekdays are others");
}

static void wrongMacIsNoticed(void) {
  UbusDeviceLimit record;
  memset(&record, 0, sizeof record);
  strcpy(record.deviceMac, "no MAC at all");
  expect(device_limit_cfg_data(&record) == -1, "a wrong MAC is accepted");
}

/* What a daemon calls by these names is its own; the library's are found in the library. */
static void helpersKeepToEachOther(void) {
  union {
    void *symbol;
    int32_t (*isValid)(const void *deviceRecord);
  } library;
  static const char device[792];
  void *handle = dlopen("libpmapi.so", RTLD_LAZY | RTLD_NOLOAD);
  expect(handle != NULL, "the library is not loaded");
  if (handle == NULL) return;
  library.symbol = dlsym(handle, "net_json_check_dev_valid");
  expect(library.symbol != NULL && library.isValid(device) == 1, "an empty device is another's");
}

int main(void) {
  limitIsReported();
  wrongMacIsNoticed();
  helpersKeepToEachOther();
  expect(taken == 0, "the library called a namesake");
  return failures == 0 ? 0 : 1;
}
