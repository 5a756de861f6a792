#include <cstdio>

#include "frame/instance.hpp"
#include "frame/log.hpp"
#include "frame/parse.hpp"
#include "frame/record_buffer.hpp"
#include "frame/status.hpp"
#include "platform/host.h"
#include "platform/traffic_rules.h"
#include "platform/traffic_rules.hpp"
#include "pmapi/helpers.h"
#include "pmapi/qos.h"

using namespace pm;
using RuleBuffer = RecordBuffer<QosClassificationRecord>;
using RuleView = ViewBuffer<QosClassificationView>;

static constexpr char kSourceTag[] = "object_nexumd_qos_pmapi.c";

namespace {

constexpr uint32_t kCapacity = 30;
using RuleTable = InstanceTable<kCapacity>;

/// A text that is no address leaves what the rule before had.
void setAddress(RuleBuffer &rule, Word field, const char *text) {
  uint32_t address = rule.get(field);
  StrToIP(text, &address);
  rule.set(field, address);
}

void setMac(RuleBuffer &rule, Mac field, const char *text) {
  uint8_t mac[6];
  memcpy(mac, rule.get(field), sizeof mac);
  StrToMAC(text, mac);
  rule.set(field, mac);
}

/// Writes one rule over what the rule before it left.
void fillRule(RuleBuffer &rule, uint32_t qosCommon, const UbusQosRule &asked) {
  rule.set(rule.qosCommon, static_cast<uint8_t>(qosCommon));
  rule.set(rule.param1, asked.param1);
  rule.set(rule.writtenParam2, asked.param2);
  rule.set(rule.param3, asked.param3);
  rule.set(rule.writtenParam4, asked.param4);
  rule.set(rule.param5, asked.param5);
  setAddress(rule, rule.ip1, asked.ip1);
  rule.set(rule.port1, numberIn(asked.port1));
  setAddress(rule, rule.ip2, asked.ip2);
  rule.set(rule.port2, numberIn(asked.port2));
  rule.set(rule.label, asked.label);
  setMac(rule, rule.mac1, asked.mac1);
  setMac(rule, rule.mac2, asked.mac2);
}

void reportRule(RuleView &rule, UbusQosRule &reported) {
  reported.param1 = rule.getSigned(rule.param1);
  reported.param2 = rule.getSigned(rule.reportedParam2);
  reported.param3 = rule.getSigned(rule.param3);
  reported.param4 = rule.getSigned(rule.reportedParam4);
  IPToStr(rule.get(rule.ip1), reported.ip1, sizeof reported.ip1);
  printDecimal(reported.port1, rule.get(rule.port1));
  IPToStr(rule.get(rule.ip2), reported.ip2, sizeof reported.ip2);
  printDecimal(reported.port2, rule.get(rule.port2));
  memset(reported.label, 0, sizeof reported.label);
  copyExact(reported.label, rule.text(rule.label), sizeof reported.label);
  MACToStr(rule.get(rule.mac1), reported.mac1, sizeof reported.mac1);
  MACToStr(rule.get(rule.mac2), reported.mac2, sizeof reported.mac2);
}

int32_t listRules(const Trail &log, RuleTable &table) {
  const int32_t status = table.listView(DBVIEW_QOS_CLASSIFICATION);
  if (status != kOk) {
    PM_LOG(log, kError, status, "vcorDbQryView DBVIEW_QOS_CLASSIFICATION failure! iRet = %d.\n",
           status);
  }
  return status;
}

}  // namespace

int32_t pm_ubus_nexumd_qos_set(const UbusQos *record) {
  const Trail log = entered(kSourceTag);
  if (record == nullptr) {
    PM_LOG(log, kError, 0, "pm_ubus_nexumd_qos_set argument is NULL");
    return kFailure;
  }
  RuleBuffer rule;
  const uint32_t count = clampCount(record->count, kCapacity);
  for (uint32_t i = 0; i < count; ++i) {
    const BoundedRequest<UbusQosRule> asked(record->rules[i]);
    fillRule(rule, record->qosCommon, asked.request);
    PM_LOG(log, kInfo, 0, " paraseOK before pm_ubus_nexumd ");
    char identity[PLATFORM_INSTANCE_SIZE] = {};
    pm_qos_qc_set_config(identity, &rule);
  }
  PM_LOG(log, kInfo, 0, " pm_ubus_nexumd_qos_set success");
  return kOk;
}

int32_t pm_ubus_nexumd_qos_get(UbusQos *record) {
  const Trail log = entered(kSourceTag);
  if (log.lacks(record)) return kFailure;
  RuleTable table;
  if (const int32_t status = listRules(log, table); status != kOk) return status;
  if (table.count() == 0) return kFailure;
  PM_LOG(log, kInfo, 0, "vcorDbQryView DBVIEW_QOS_CLASSIFICATION tList.dwCount is %d \n",
         table.reported());
  for (uint32_t i = 0; i < table.count(); ++i) {
    RuleView rule;
    if (const int32_t status = rule.read(table.at(i)); status != kOk) {
      PM_LOG(log, kError, status, "vcorDbGetView DBVIEW_QOS_CLASSIFICATION failure");
      continue;
    }
    record->qosCommon = rule.get(rule.qosCommon);
    ++record->count;
    reportRule(rule, record->rules[i]);
  }
  PM_LOG(log, kInfo, 0, " pm_ubus_nexumd_qos_get success");
  return kOk;
}

int32_t pm_qc_clear_all(void) {
  const Trail log(kSourceTag);
  RuleTable table;
  if (const int32_t status = listRules(log, table); status != kOk) return status;
  PM_LOG(log, kInfo, 0, "vcorDbQryView DBVIEW_QOS_CLASSIFICATION tList.dwCount is %d \n",
         table.reported());
  for (uint32_t i = 0; i < table.count(); ++i) {
    const InstancePath instance = table.at(i);
    RuleView rule;
    // Kept as it was: for one that cannot be read, the platform is given the empty name.
    rule.read(instance);
    const char *ruleName = rule.text(rule.ruleName);
    printf("viewname is %s before \n", instance.text);
    printf("viewname is %s   qcviername is %s \n", instance.text, ruleName);
    pm_qos_qc_del_config(ruleName);
  }
  return kOk;
}
