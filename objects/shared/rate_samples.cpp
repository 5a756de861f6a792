// The sampling half of the uplink object: rings of rate samples and their statistics.
#include <cstring>

#include "frame/attached_device.hpp"
#include "frame/list.hpp"
#include "frame/log.hpp"
#include "frame/parse.hpp"
#include "frame/status.hpp"
#include "objects/shared/sample_modes.hpp"
#include "objects/shared/uplink_rates.hpp"
#include "platform/host.h"
#include "platform/sampling.hpp"
#include "pmapi/helpers.h"
#include "pmapi/uplinkinfo.h"

using namespace pm;

static constexpr char kSourceTag[] = "object_nexumd_uplinkinfo_pmapi.c";

ListLink g_net_sta_ifa_list;
ListLink g_net_sta_if6_list;
ListLink g_net_uplink_ifa_list;
ListLink g_net_uplink_if6_list;

namespace {

constexpr int32_t kDefaultReportInterval = 600;
constexpr int32_t kDefaultSampleInterval = 60;

}  // namespace

int32_t g_ifa_ReportInterval = kDefaultReportInterval;
int32_t g_ifa_SampleInterval = kDefaultSampleInterval;
int32_t g_if6_ReportInterval = kDefaultReportInterval;
int32_t g_if6_SampleInterval = kDefaultSampleInterval;

namespace {

enum SamplingMode { kSampleIpv4 = 1, kSampleIpv6 = 2 };

constexpr uint32_t kDeviceNodeSize = 64;
constexpr uint32_t kSampleNodeSize = 20;
constexpr int32_t kDefaultCapacity = 10;
constexpr int32_t kShortestInterval = 60;

ListLink *listOf(int32_t mode) {
  switch (mode) {
    case kStationIpv4:
      return &g_net_sta_ifa_list;
    case kStationIpv6:
      return &g_net_sta_if6_list;
    case kUplinkIpv4:
      return &g_net_uplink_ifa_list;
    case kUplinkIpv6:
      return &g_net_uplink_if6_list;
    default:
      return nullptr;
  }
}

/// The ring of that key; one filed under an empty key is never found. A head that nobody has set
/// yet ends the walk like an empty list.
si_net_sample_dev *findRing(ListLink *head, const char *key) {
  for (ListLink *link = head->next; link != head && link != nullptr; link = link->next) {
    auto *ring = reinterpret_cast<si_net_sample_dev *>(link);
    if (ring->name[0] != '\0' && strcmp(ring->name, key) == 0) return ring;
  }
  return nullptr;
}

void *allocateNode(uint32_t size) {
  void *node = GetUB(size);
  if (node != nullptr) memset(node, 0, size);
  return node;
}

si_net_sample_dev *addRing(const Trail &log, ListLink *head, const char *key) {
  PM_LOG(log, kInfo, 0, "no this mac in si_net_device_list_add  )!\n");
  auto *ring = static_cast<si_net_sample_dev *>(allocateNode(kDeviceNodeSize));
  if (ring == nullptr) {
    PM_LOG(log, kError, 0, "[si_net_device_list_add ] GetUB error");
    return nullptr;
  }
  listInit(&ring->samples);
  copyText(ring->name, key);
  listAppend(head, &ring->link);
  PM_LOG(log, kInfo, 0, "si_net_device_list_add  end \n");
  return ring;
}

/// The IPv4 intervals rule all four lists; shorter ones than these do not count.
int32_t ringCapacity() {
  if (g_ifa_ReportInterval >= kShortestInterval && g_ifa_SampleInterval >= kShortestInterval) {
    return g_ifa_ReportInterval / g_ifa_SampleInterval;
  }
  return kDefaultCapacity;
}

/// Takes the oldest sample out of a full ring, one at most: a ring that has become too long keeps
/// its length.
void evictOldest(const Trail &log, si_net_sample_dev *ring) {
  const int32_t capacity = ringCapacity();
  int32_t visited = 0;
  for (ListLink *link = ring->samples.next; link != &ring->samples; link = link->next) {
    PM_LOG(log, kInfo, 0, "[ list for each  %d \n", ++visited);
    if (visited > 1 || capacity > ring->count) continue;
    si_net_sample_list_del(reinterpret_cast<si_net_sample *>(link));
    PM_LOG(log, kInfo, 0, "[si_sample arrived max_num \n");
    --ring->count;
    return;
  }
}

}  // namespace

int32_t si_sample_list_add(const si_net_sample *sample, const char *key, int32_t mode) {
  const Trail log(kSourceTag);
  PM_LOG(log, kInfo, 0, "[si_sample_list_add] start \n");
  if (sample == nullptr) return kFailure;
  ListLink *head = listOf(mode);
  if (head == nullptr) {
    PM_LOG(log, kError, 0, "[si_net_sample_list_statics] not support this mode  [%d] \n", mode);
    return kFailure;
  }
  si_net_sample_dev *ring = findRing(head, key);
  if (ring != nullptr) {
    PM_LOG(log, kInfo, 0, "[si_portal_mac_sid_list_find] success \n");
  } else {
    ring = addRing(log, head, key);
    if (ring == nullptr) return kOk;
  }
  evictOldest(log, ring);

  auto *added = static_cast<si_net_sample *>(allocateNode(kSampleNodeSize));
  if (added == nullptr) {
    PM_LOG(log, kError, 0, "[si_sample_list_add] GetUB error");
    return kFailure;
  }
  added->tx = sample->tx;
  added->rx = sample->rx;
  ++ring->count;
  listAppend(&ring->samples, &added->link);
  PM_LOG(log, kInfo, 0, "[si_sample_list_add] end \n");
  return kOk;
}

void si_net_sample_list_del(si_net_sample *sample) {
  if (sample == nullptr) return;
  listUnlink(&sample->link);
  RetUB(sample);
}

namespace {

int32_t greater(int32_t a, int32_t b) {
  return a > b ? a : b;
}

/// Reduces a ring; returns how many samples it holds. Sums wrap at 32 bits.
int32_t reduce(const si_net_sample_dev *ring, si_net_sample_statics &reduced) {
  int32_t count = 0;
  uint32_t rxSum = 0;
  uint32_t txSum = 0;
  for (const ListLink *link = ring->samples.next; link != &ring->samples; link = link->next) {
    const auto *sample = reinterpret_cast<const si_net_sample *>(link);
    ++count;
    rxSum += static_cast<uint32_t>(sample->rx);
    txSum += static_cast<uint32_t>(sample->tx);
    reduced.rx_max = greater(reduced.rx_max, sample->rx);
    reduced.tx_max = greater(reduced.tx_max, sample->tx);
  }
  if (count == 0) return 0;
  reduced.rx_aver = static_cast<int32_t>(rxSum) / count;
  reduced.tx_aver = static_cast<int32_t>(txSum) / count;
  return count;
}

}  // namespace

int32_t si_net_sample_list_statics(const si_net_sample_dev *key, si_net_sample_statics *result,
                                   int32_t mode) {
  const Trail log(kSourceTag);
  PM_LOG(log, kInfo, 0, "[si_net_sample_list_statics] start  [mode is %d] \n", mode);
  if (key == nullptr || result == nullptr) return kFailure;
  ListLink *head = listOf(mode);
  if (head == nullptr) {
    PM_LOG(log, kError, 0, "[si_net_sample_list_statics] not support this mode  [%d] \n", mode);
    return kFailure;
  }
  const si_net_sample_dev *ring = findRing(head, key->name);
  if (ring == nullptr) return kFailure;
  PM_LOG(log, kInfo, 0, "[si_sample_statics] success start \n");
  si_net_sample_statics reduced = {};
  const int32_t count = reduce(ring, reduced);
  if (count == 0) return kFailure;
  *result = reduced;
  PM_LOG(log, kInfo, 0,
         "[si_sample_statics] success end [mode:%d count:%d]   "
         "[rx_max rx_max rx_aver tx_aver] is [%d : %d :%d :%d]\n",
         mode, count, result->rx_max, result->tx_max, result->rx_aver, result->tx_aver);
  return kOk;
}

namespace {

/// Takes the intervals over from the platform. Those of IPv6 are fixed.
int32_t refreshIntervals(const Trail &log) {
  ViewBuffer<SampleConfigView> config;
  if (const int32_t status = config.read(kGatewayPath); status != kOk) {
    PM_LOG(log, kError, status, "{si_sample } get err: %i", status);
    return status;
  }
  g_ifa_ReportInterval = config.getSigned(config.reportInterval);
  g_ifa_SampleInterval = config.getSigned(config.sampleInterval);
  g_if6_ReportInterval = kDefaultReportInterval;
  g_if6_SampleInterval = kDefaultSampleInterval;
  return kOk;
}

BandwidthAnswer askProxyForBandwidth(const Trail &log, const BandwidthRequestBuffer &request,
                                     BandwidthBuffer &counters) {
  ProxyReply<2048> reply;
  const int32_t status = reply.send(CTSGW_EVENT_GET_BANDWIDTH, request.bytes, request.kSize);
  if (!reply.succeeded(status)) {
    PM_LOG(log, kError, reply.outcome(status),
           "ctSgw_ssend_to_proxy CTSGW_EVENT_GET_BANDWIDTH error!\n");
    return {true, status};
  }
  counters.clear();
  reply.copyPayload(counters.bytes, counters.kSize);
  return {false, kOk};
}

int32_t net_json_get_rate_rt(char *rxText, char *txText) {
  return sumUplinkRates(Trail(kSourceTag), askProxyForBandwidth, PM_STATUS_LIST_UNREADABLE, rxText,
                        txText);
}

}  // namespace

int32_t if_uplink_statics(int32_t mode) {
  const Trail log(kSourceTag);
  if (refreshIntervals(log) != kOk) return kFailure;
  char rxText[kRateTextSize] = {};
  char txText[kRateTextSize] = {};
  net_json_get_rate_rt(rxText, txText);
  PM_LOG(log, kInfo, 0, "start create list\n");
  si_net_sample sample = {};
  // Both fields carry the receive rate, kept as it was.
  sample.rx = sample.tx = numberIn(rxText);
  const char *key = "uplink";
  PM_LOG(log, kInfo, 0, " enter  si_sample_list_add dev_name is %s  rx tx [ %d : %d] \n", key,
         sample.rx, sample.tx);
  if (mode == kSampleIpv4) {
    si_sample_list_add(&sample, key, kUplinkIpv4);
  } else if (mode == kSampleIpv6) {
    si_sample_list_add(&sample, key, kUplinkIpv6);
  } else {
    PM_LOG(log, kError, 0, "not support this mode \n");
  }
  PM_LOG(log, kInfo, 0, "end if_uplink_stats\n");
  return kOk;
}

namespace {

/// The counters of a station on the wire, from the hardware if it counts this one.
void readWiredStatistics(const Trail &log, const char *interfaceName, const uint8_t *mac,
                         StationStatisticsBuffer &statistics) {
  LanInfoBuffer lan;
  if (!findLanInterface(interfaceName, lan)) return;
  PM_LOG(log, kInfo, 0, "Enter ctSgw_ssend_to_proxy CTSGW_EVENT_GET_HARD_STATS!\n");
  if (!queryStationStatistics(log, CTSGW_EVENT_GET_HARD_STATS, mac, statistics)) return;
  if (statistics.get(statistics.notEnoughRegister) == 0) return;
  PM_LOG(log, kInfo, 0, "pm_bw_get_hard_stats not enough register, use olt func\n");
  statistics.clear();
  queryStationStatistics(log, CTSGW_EVENT_GET_BW_STATS, mac, statistics);
}

/// One device of the walk; a device that does not count leaves the statistics empty.
void sampleDevice(const Trail &log, const InstancePath &path, StationStatisticsBuffer &statistics) {
  DeviceBuffer device;
  ProxyReply<20480> reply;
  queryDevice(log, path, reply, device);
  if (check_dev_valid(device.bytes) == 0) return;
  const InterfaceName interface(device.bytes);
  const uint8_t *mac = device.get(device.mac);
  if (startsWith(interface.text, "wlan")) {
    queryStationStatistics(log, CTSGW_EVENT_GET_BW_STATS, mac, statistics);
  } else if (startsWith(interface.text, "eth")) {
    readWiredStatistics(log, interface.text, mac, statistics);
  }
}

}  // namespace

int32_t if_sta_statics(int32_t mode) {
  const Trail log(kSourceTag);
  if (refreshIntervals(log) != kOk) return kOk;
  PM_LOG(log, kInfo, 0, "get_sample_data  \r\n");
  DeviceTable devices;
  if (plib_adev_list_view(&devices.list) != kOk) return PM_STATUS_LIST_UNREADABLE;

  StationStatisticsBuffer statistics;
  for (uint32_t i = 0; i < devices.count(); ++i) {
    statistics.clear();
    sampleDevice(log, devices.at(i), statistics);
  }
  PM_LOG(log, kInfo, 0, "start create list\n");
  si_net_sample sample = {};
  sample.tx = statistics.getSigned(statistics.txRate);
  sample.rx = statistics.getSigned(statistics.rxRate);
  // No pass fills the key: each sample gets a ring of its own under the empty one.
  const char key[16] = {};
  PM_LOG(log, kInfo, 0, " enter  si_sample_list_add dev_mac is %s  [tx:%d rx:%d ]\n", key,
         sample.tx, sample.rx);
  if (mode == kSampleIpv4 || mode == kSampleIpv6) {
    si_sample_list_add(&sample, key, mode);
  } else {
    PM_LOG(log, kError, 0, "not support this mode \n");
  }
  PM_LOG(log, kInfo, 0, "end if_stats\n");
  return kOk;
}
