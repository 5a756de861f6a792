// The rules of the gateway's traffic: MAC filter, IPTV bindings, classification.
#include <cstdio>
#include <cstring>
#include <string>

#include "bench/bench.hpp"
#include "platform/firewall.h"
#include "platform/host.h"
#include "platform/firewall.hpp"
#include "platform/traffic_rules.h"
#include "platform/traffic_rules.hpp"
#include "pmapi/iptv.h"
#include "pmapi/macfilter.h"
#include "pmapi/qos.h"

using namespace platform;

using bench::viewAnswer;
using bench::viewListAnswer;

namespace {

constexpr size_t kEntriesCapacity = 2048;
constexpr uint32_t kRules = 30;

const UbusIptv binding{1, 85, {1, 2}, {3}};
alignas(UbusMacFilter) char filterBytes[sizeof(UbusMacFilter) + kEntriesCapacity];
alignas(UbusQos) char rules[sizeof(UbusQos) + kRules * sizeof(UbusQosRule)];
UbusIptv bindingRead;

UbusQos *qos() {
  return reinterpret_cast<UbusQos *>(rules);
}

/// The filter is on already: its entries are what changes.
void describeFilter(uint32_t entries) {
  bench::answerTo<pm_fw_get_base>.set(platform::FirewallBaseRecord::macFilterEnable, 1);
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

void bindings(uint32_t number) {
  viewListAnswer(DBVIEW_IPTVLANBIND).paths(number, "IGD.IPTV");
  viewAnswer(DBVIEW_IPTVLANBIND)
      .set(platform::IptvVlanBindingView::portPath, "IGD.LD1.ETH2")
      .set(platform::IptvVlanBindingView::vlanId, 85);
}

void describeRules(uint32_t count) {
  memset(rules, 0, sizeof rules);
  qos()->qosCommon = 1;
  qos()->count = count;
  for (uint32_t i = 0; i < count; ++i) {
    strcpy(qos()->rules[i].ip1, "192.168.1.2");
    strcpy(qos()->rules[i].port1, "443");
    strcpy(qos()->rules[i].label, "video");
  }
}

void heldRules(uint32_t number) {
  viewListAnswer(DBVIEW_QOS_CLASSIFICATION).paths(number, "IGD.QOS");
  viewAnswer(DBVIEW_QOS_CLASSIFICATION)
      .set(platform::QosClassificationView::ruleName, "IGD.QC1")
      .set(platform::QosClassificationView::label, "video");
  bench::answerTo<IPToStr>.text(0, "192.168.1.2");
}

void traceRules(uint32_t number) {
  for (uint32_t i = 0; i < number; ++i) {
    printf("viewname is %s before \n", "IGD.QOS1");
    printf("viewname is %s   qcviername is %s \n", "IGD.QOS1", "IGD.QC1");
  }
}

const bench::Cases cases{
    {.name = "MAC filter: set, entries",
     .platform = describeFilter,
     .handler =
         [](uint32_t) {
           pm_ubus_macfilter_set(reinterpret_cast<const UbusMacFilter *>(filterBytes));
         },
     .items = {1, 10, 100}},
    {.name = "IPTV: bind", .handler = [](uint32_t) { pm_ubus_nexumd_iptv_set(binding); }},
    {.name = "IPTV: get, bindings",
     .platform = bindings,
     .handler = [](uint32_t) { pm_ubus_nexumd_iptv_get(&bindingRead); },
     .items = {1, 10, 32}},
    {.name = "IPTV: delete, bindings",
     .platform = bindings,
     .handler = [](uint32_t) { pm_iptv_del(); },
     .items = {1, 10, 32}},
    {.name = "QoS: set, rules",
     .platform = describeRules,
     .handler = [](uint32_t) { pm_ubus_nexumd_qos_set(qos()); },
     .items = {1, 10, kRules}},
    {.name = "QoS: get, rules",
     .platform = heldRules,
     .before = [](uint32_t) { memset(rules, 0, sizeof rules); },
     .handler = [](uint32_t) { pm_ubus_nexumd_qos_get(qos()); },
     .items = {1, 10, kRules}},
    {.name = "QoS: clear, rules",
     .platform = heldRules,
     .handler = [](uint32_t) { pm_qc_clear_all(); },
     .besides = traceRules,
     .items = {1, 10, kRules}},
};

const bench::Singles switches{
    nullptr,
    {{"ubus_getmacFilterEnable", [](uint32_t) { ubus_getmacFilterEnable(); }},
     {"ubus_getmacFilterPolicy", [](uint32_t) { ubus_getmacFilterPolicy(); }}}};

}  // namespace
