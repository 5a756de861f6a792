// Rings of rate samples, and the call that adds one of the uplink.
#include <cstdio>
#include <cstring>

#include "bench/bench.hpp"
#include "bench/platform/process.hpp"
#include "platform/proxy.h"
#include "platform/sampling.hpp"
#include "platform/wan.hpp"
#include "pmapi/uplinkinfo.h"

using bench::viewAnswer;
using namespace platform;

namespace {

constexpr int32_t kIpv4 = 1;
constexpr int32_t kUplinkIpv4 = 3;
constexpr int32_t kInterval = 60;
constexpr int32_t kDefaultRing = 10;
constexpr char kUplink[] = "uplink";

const si_net_sample sample{{nullptr, nullptr}, 1200, 3400};
si_net_sample_dev wanted;
si_net_sample_statics reduced;

void emptyList() {
  bench::freeAllBlocks();
  g_net_uplink_ifa_list = {&g_net_uplink_ifa_list, &g_net_uplink_ifa_list};
}

void fillRing(const char *key, int32_t samples) {
  g_ifa_SampleInterval = kInterval;
  g_ifa_ReportInterval = kInterval * samples;
  for (int32_t i = 0; i < samples; ++i) si_sample_list_add(&sample, key, kUplinkIpv4);
}

/// So many keys with full rings; the one that is asked for comes last.
void fillRings(uint32_t keys) {
  emptyList();
  for (uint32_t i = 0; i < keys; ++i) {
    snprintf(wanted.name, sizeof wanted.name, "02:a1:b2:c3:d4:%02x", i);
    fillRing(wanted.name, kDefaultRing);
  }
}

void fillOneRing(uint32_t samples) {
  emptyList();
  strcpy(wanted.name, kUplink);
  fillRing(wanted.name, static_cast<int32_t>(samples));
}

void addSample(uint32_t) {
  si_sample_list_add(&sample, wanted.name, kUplinkIpv4);
}
void reduceRing(uint32_t) {
  si_net_sample_list_statics(&wanted, &reduced, kUplinkIpv4);
}

/// The ring that is asked for is the last one. Sums stand for the averages.
void walkRing(uint32_t) {
  const auto *ring = reinterpret_cast<const si_net_sample_dev *>(g_net_uplink_ifa_list.prev);
  si_net_sample_statics sums = {};
  for (const ListLink *link = ring->samples.next; link != &ring->samples; link = link->next) {
    const auto *taken = reinterpret_cast<const si_net_sample *>(link);
    sums.rx_aver += taken->rx;
    sums.tx_aver += taken->tx;
    if (taken->rx > sums.rx_max) sums.rx_max = taken->rx;
    if (taken->tx > sums.tx_max) sums.tx_max = taken->tx;
  }
  reduced = sums;
}

void connections(uint32_t number) {
  viewAnswer(DBVIEW_SAMPLE_CONFIG)
      .set(SampleConfigView::reportInterval, kInterval * kDefaultRing)
      .set(SampleConfigView::sampleInterval, kInterval);
  bench::viewListAnswer(DBVIEW_WAN_CONN_DEV).paths(number, "IGD.WD1.WCD1.WCPPP");
  viewAnswer(DBVIEW_WAN_CONN_DEV).set(WanConnectionView::interfaceName, "ppp0");
  bench::eventAnswer(CTSGW_EVENT_GET_BANDWIDTH)
      .word(PROXY_REPLY_STATUS_SIZE + BandwidthReply::tx.offset, 4096)
      .word(PROXY_REPLY_STATUS_SIZE + BandwidthReply::rx.offset, 65536)
      .length(PROXY_REPLY_STATUS_SIZE + BandwidthReply::kSize);
}

const bench::Cases cases{
    {.name = "samples: add to a full ring, keys",
     .before = fillRings,
     .handler = addSample,
     .items = {1, 10, 100}},
    {.name = "samples: add to a full ring, samples",
     .before = fillOneRing,
     .handler = addSample,
     .items = {10, 100}},
    {.name = "samples: reduce a ring, keys",
     .before = fillRings,
     .handler = reduceRing,
     .besides = walkRing,
     .items = {1, 10, 100}},
    {.name = "samples: reduce a ring, samples",
     .before = fillOneRing,
     .handler = reduceRing,
     .besides = walkRing,
     .items = {10, 100}},
    {.name = "samples: one of the uplink, connections",
     .platform = connections,
     .before = [](uint32_t) { fillOneRing(kDefaultRing); },
     .handler = [](uint32_t) { if_uplink_statics(kIpv4); },
     .items = {1, 8, 32}},
};

}  // namespace
