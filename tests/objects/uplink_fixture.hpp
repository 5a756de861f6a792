// A gateway whose daemon has set the sample lists.
#pragma once

#include "pmapi/uplinkinfo.h"
#include "tests/support/gateway_test.hpp"

namespace gateway::testing {

class SampledGatewayTest : public GatewayTest {
 protected:
  SampledGatewayTest() { startSampling(); }

  /// What the daemon does before its first sample. Nodes of an earlier life stay where they are.
  static void startSampling() {
    for (ListLink *head : {&g_net_sta_ifa_list, &g_net_sta_if6_list, &g_net_uplink_ifa_list,
                           &g_net_uplink_if6_list}) {
      *head = {head, head};
    }
    g_ifa_ReportInterval = g_if6_ReportInterval = 600;
    g_ifa_SampleInterval = g_if6_SampleInterval = 60;
  }

  static std::vector<const si_net_sample_dev *> rings(const ListLink &head) {
    std::vector<const si_net_sample_dev *> all;
    for (const ListLink *link = head.next; link != &head; link = link->next) {
      all.push_back(reinterpret_cast<const si_net_sample_dev *>(link));
    }
    return all;
  }

  /// The samples of a ring as {tx, rx}, oldest first; its count must agree.
  static std::vector<std::pair<int32_t, int32_t>> samples(const si_net_sample_dev *ring) {
    std::vector<std::pair<int32_t, int32_t>> all;
    for (const ListLink *link = ring->samples.next; link != &ring->samples; link = link->next) {
      const auto *sample = reinterpret_cast<const si_net_sample *>(link);
      all.emplace_back(sample->tx, sample->rx);
    }
    EXPECT_EQ(ring->count, static_cast<int32_t>(all.size()));
    return all;
  }
};

}  // namespace gateway::testing
