/*
 * A daemon that is not position-independent holds copies of the globals that the library exports,
 * and the library must work on these. It supplies only the platform calls that it reaches.
 */
#include <platform/attached_devices.h>
#include <platform/config_database.h>
#include <platform/host.h>
#include <platform/logger.h>
#include <pmapi/limit.h>
#include <pmapi/uplinkinfo.h>
#include <stdarg.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

enum { kReportIntervalOffset = 36, kSampleIntervalOffset = 68 };

int32_t ProcUserLog(const char *sourceTag, int32_t line, const char *functionName, int32_t level,
                    int32_t code, const char *format, ...) {
  (void)sourceTag, (void)line, (void)functionName, (void)level, (void)code, (void)format;
  return 0;
}

void *GetUB(uint32_t size) {
  return malloc(size);
}

int32_t vcorDbGetView(uint32_t viewId, const char *instance, void *view) {
  const int32_t report = 300;
  const int32_t sample = 100;
  (void)instance;
  if (viewId != DBVIEW_SAMPLE_CONFIG) return -1;
  memcpy((char *)view + kReportIntervalOffset, &report, sizeof report);
  memcpy((char *)view + kSampleIntervalOffset, &sample, sizeof sample);
  return 0;
}

int32_t vcorDbLstView(uint32_t viewId, const char *parent, InstanceList *list, uint32_t capacity) {
  (void)viewId, (void)parent, (void)capacity;
  list->dwCount = 0;
  return 0;
}

int32_t plib_adev_list_view(InstanceList *list) {
  list->dwCount = 0;
  return 0;
}

static int failures;

static void expect(int holds, const char *what) {
  if (holds) return;
  printf("no_pie_daemon: %s\n", what);
  ++failures;
}

/* The linker gives the bounds of the executable itself, without the libraries. */
static int isOurCopy(const void *address) {
  extern char __executable_start;
  extern char end;
  return (const char *)address >= &__executable_start && (const char *)address < &end;
}

static void libraryReadsOurLimits(void) {
  DevLmtCfg limit;
  UbusDeviceLimit record;
  int32_t count = 0;
  memset(&limit, 0, sizeof limit);
  memset(&record, 0, sizeof record);
  expect(g_ubus_devlmt_list.next == &g_ubus_devlmt_list, "the limit list does not start empty");
  limit.mac[0] = 2;
  limit.link.next = limit.link.prev = &g_ubus_devlmt_list;
  g_ubus_devlmt_list.next = g_ubus_devlmt_list.prev = &limit.link;
  pm_ubus_nexumd_limit_get(&record, &count);
  expect(count == 1, "the library does not see the daemon's limit list");
  g_ubus_devlmt_list.next = g_ubus_devlmt_list.prev = &g_ubus_devlmt_list;
}

static const si_net_sample_dev *firstRing(const ListLink *head) {
  return (const si_net_sample_dev *)(const void *)head->next;
}

static void samplersFillOurLists(void) {
  ListLink *const heads[] = {&g_net_sta_ifa_list, &g_net_sta_if6_list, &g_net_uplink_ifa_list,
                             &g_net_uplink_if6_list};
  size_t i;
  for (i = 0; i < sizeof heads / sizeof heads[0]; ++i) heads[i]->next = heads[i]->prev = heads[i];

  if_sta_statics(1);
  if_sta_statics(2);
  if_uplink_statics(1);
  if_uplink_statics(2);
  for (i = 0; i < sizeof heads / sizeof heads[0]; ++i) {
    expect(heads[i]->next != heads[i], "a sample did not arrive in the daemon's list");
    expect(heads[i]->next == heads[i] || firstRing(heads[i])->count == 1, "a ring has no sample");
  }
  expect(g_ifa_ReportInterval == 300, "the report interval did not arrive in the daemon's copy");
  expect(g_ifa_SampleInterval == 100, "the sample interval did not arrive in the daemon's copy");
}

int main(void) {
  expect(isOurCopy(&g_ubus_devlmt_list) && isOurCopy(&g_net_uplink_ifa_list),
         "the globals lie in the library: nothing is tried here");
  libraryReadsOurLimits();
  /* A library that has heads of its own would now walk through null links. */
  if (failures == 0) samplersFillOurLists();
  return failures == 0 ? 0 : 1;
}
