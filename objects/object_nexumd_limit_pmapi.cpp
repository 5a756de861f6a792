#include <cstdio>

#include "frame/instance.hpp"
#include "frame/list.hpp"
#include "frame/log.hpp"
#include "frame/parse.hpp"
#include "frame/proxy.hpp"
#include "frame/record_buffer.hpp"
#include "frame/status.hpp"
#include "frame/text.hpp"
#include "objects/shared/url_rules.hpp"
#include "platform/host.h"
#include "platform/limits.hpp"
#include "pmapi/helpers.h"
#include "pmapi/limit.h"

using namespace pm;

static constexpr char kSourceTag[] = "object_nexumd_limit_pmapi.c";

ListLink g_ubus_devlmt_list = {&g_ubus_devlmt_list, &g_ubus_devlmt_list};
ListLink g_ubus_lmtUrl_list = {&g_ubus_lmtUrl_list, &g_ubus_lmtUrl_list};
uint32_t g_ubus_devlmt_inst = 0;
uint32_t g_ubus_RecentdwApp = 0;

namespace {

constexpr int32_t kNoBlockFault = 1544;

constexpr int32_t kModeTimePeriod = 1;
constexpr uint32_t kWeekMasks = 128;
constexpr uint32_t kSecondsOfDay = 86400;
constexpr uint32_t kFirstPolicy = 1792;
constexpr uint32_t kRateUnit = 1024;

constexpr char kSignalName[] = "nexumd_signal";
constexpr uint32_t kSignalNumber = 44695;

constexpr uint32_t kMacTextSize = 32;
constexpr size_t kComparedUrlMac = 6;

using PolicyTable = InstanceTable<16>;
using TimePolicy = ViewBuffer<TimePolicyView>;

/// The node behind `link`, nullptr at the end of the list. An update clears the links of its node,
/// so a walk may end before it is back at the head.
template <class Node>
Node *nodeBehind(const ListLink *head, const ListLink *link) {
  return link->next == head ? nullptr : reinterpret_cast<Node *>(link->next);
}

DevLmtCfg *limitBehind(const ListLink *link) {
  return nodeBehind<DevLmtCfg>(&g_ubus_devlmt_list, link);
}

/// `before` receives the link that leads to the node. The MACs are compared as texts: a zero byte
/// ends the comparison, and a MAC that begins with one is never found.
DevLmtCfg *findLimit(const uint8_t mac[6], ListLink *&before) {
  if (mac[0] == 0) return nullptr;
  const auto *wanted = reinterpret_cast<const char *>(mac);
  before = &g_ubus_devlmt_list;
  DevLmtCfg *node;
  while ((node = limitBehind(before)) != nullptr) {
    if (strncmp(reinterpret_cast<const char *>(node->mac), wanted, sizeof node->mac) == 0) break;
    before = &node->link;
  }
  return node;
}

/// The first node whose MAC text begins with the same `compared` characters.
LmtUrlCfg *findUrls(const char *mac, size_t compared) {
  const ListLink *link = &g_ubus_lmtUrl_list;
  LmtUrlCfg *node;
  while ((node = nodeBehind<LmtUrlCfg>(&g_ubus_lmtUrl_list, link)) != nullptr) {
    if (strncmp(node->mac, mac, compared) == 0) break;
    link = &node->link;
  }
  return node;
}

void unlinkBehind(ListLink *head, ListLink *before, const ListLink *node) {
  ListLink *next = node->next != nullptr ? node->next : head;
  before->next = next;
  next->prev = before;
}

template <class Node>
Node *allocateNode(const Trail &log) {
  void *block = GetUB(sizeof(Node));
  if (block == nullptr) {
    PM_LOG(log, kFault, kNoBlockFault, "[%s] GetUB error", log.function);
  }
  return static_cast<Node *>(block);
}

/// Adds or removes the rules of each keyword. The lines are the exported command's, whoever asks.
void runRules(const LmtUrlCfg &config, const char *operation) {
  runUrlRules(Trail(kSourceTag, "si_ubus_lmturl_command"), config, operation);
}

bool si_ubus_check_timepolicy_data(const DevLmtCfg &limit) {
  const Trail log(kSourceTag);
  if (static_cast<uint32_t>(numberIn(limit.limitWeek)) >= kWeekMasks) {
    PM_LOG(log, kError, 0, "[%s] Cycle week out of range\n", log.function);
    return false;
  }
  if (limit.limitStartTime > kSecondsOfDay || limit.limitEndTime > kSecondsOfDay) {
    PM_LOG(log, kError, 0, "[%s] Cycle time out of range\n", log.function);
    return false;
  }
  if (limit.limitStartTime > limit.limitEndTime) {
    PM_LOG(log, kError, 0, "[%s] Cycle start time is larger then end time\n", log.function);
    return false;
  }
  return true;
}

/// Makes the rules of the device those of `wanted`; false when the device cannot be remembered.
bool si_ubus_deal_limiturl_data(const LmtUrlCfg &wanted) {
  const Trail log(kSourceTag);
  LmtUrlCfg *node = findUrls(wanted.mac, kMacTextSize - 1);
  if (node != nullptr) {
    if (node->LimitURL[0] != '\0') {
      PM_LOG(log, kInfo, 0, "the url ptLmtUrlCfgtmp->LimitURL is %s\n", node->LimitURL);
      runRules(*node, "-D");
    }
    if (wanted.LimitURL[0] != '\0') {
      PM_LOG(log, kInfo, 0, "the url ptLmtUrlCfg->LimitURL is %s\n", wanted.LimitURL);
      runRules(wanted, "-A");
    }
    memcpy(node->LimitURL, wanted.LimitURL, sizeof node->LimitURL);
    return true;
  }

  node = allocateNode<LmtUrlCfg>(log);
  if (node == nullptr) return false;
  *node = wanted;
  if (wanted.LimitURL[0] != '\0') {
    PM_LOG(log, kInfo, 0, "the url that list saved is %s\n", node->LimitURL);
    runRules(*node, "-A");
  }
  listAppend(&g_ubus_lmtUrl_list, &node->link);
  return true;
}

DevLmtCfg *appendLimit(const Trail &log, const DevLmtCfg &wanted) {
  auto *node = allocateNode<DevLmtCfg>(log);
  if (node == nullptr) return nullptr;
  *node = wanted;
  node->instance = kFirstPolicy + g_ubus_devlmt_inst++;
  listAppend(&g_ubus_devlmt_list, &node->link);
  return node;
}

/// Brings the list in line and returns the device's node, which is out of the list after a
/// deletion; nullptr when there is none.
DevLmtCfg *si_ubus_deal_devlmt_list(const DevLmtCfg &wanted, bool isDel) {
  const Trail log(kSourceTag);
  ListLink *before;
  DevLmtCfg *node = findLimit(wanted.mac, before);
  if (node == nullptr) {
    if (!isDel) return appendLimit(log, wanted);
    PM_LOG(log, kError, 0, "[%s] data is not record \n", log.function);
    return nullptr;
  }
  if (isDel) {
    unlinkBehind(&g_ubus_devlmt_list, before, &node->link);
    return node;
  }
  // The whole node is replaced, its links by the empty ones too: later walks end here.
  const uint32_t instance = node->instance;
  *node = wanted;
  node->instance = instance;
  return node;
}

/// Reads the policy that was found, or creates one; `identity` is its path in either case.
bool openTimePolicy(const Trail &log, const PolicyTable &found, uint32_t instance,
                    InstancePath &identity, TimePolicy &policy) {
  if (found.count() == 0) {
    if (const int32_t status = vcorDbAddView(policy.kId, kGatewayPath.text, identity.text);
        status != kOk) {
      PM_LOG(log, kError, status, "[%s]  vcorDbSetView error\n", log.function);
      return false;
    }
    identity.end();
    policy.set(policy.instance, instance);
    policy.set(policy.setting132, 0);
    policy.set(policy.setting260, 1);
    return true;
  }
  identity = found.at(0);
  const int32_t status = policy.read(identity);
  if (status == kOk) return true;
  PM_LOG(log, kError, status, "[%s] vcorDbGetView error\n", log.function);
  return false;
}

void announceTimePolicy(const DevLmtCfg &limit, const TimePolicy &policy) {
  g_ubus_RecentdwApp = limit.instance;
  si_ubus_devLimit_register_timepolicy(static_cast<uint32_t>(limit.lmtMode), limit.instance);
  RecordBuffer<TimePolicyMessage> message;
  message.put(message.policy, policy.bytes);
  ASEND(TIME_POLICY_SET, message.bytes, message.kSize, MANAGER_MODULE_TIME_POLICY);
}

bool writeTimePolicy(const Trail &log, const PolicyTable &found, const DevLmtCfg &limit) {
  TimePolicy policy;
  InstancePath identity("");
  if (!openTimePolicy(log, found, limit.instance, identity, policy)) return false;
  policy.set(policy.week, limit.limitWeek);
  policy.set(policy.startTime, limit.limitStartTime);
  policy.set(policy.endTime, limit.limitEndTime);
  if (const int32_t status = policy.write(identity); status != kOk) {
    PM_LOG(log, kError, status, "[%s] vcorDbSetView error\n", log.function);
    return false;
  }
  announceTimePolicy(limit, policy);
  return true;
}

void deleteTimePolicy(const Trail &log, const PolicyTable &found, const DevLmtCfg &limit) {
  if (found.count() == 0) {
    PM_LOG(log, kError, 0, "[%s] have not time policy\n", log.function);
    return;
  }
  si_ubus_devLimit_register_timepolicy(static_cast<uint32_t>(limit.lmtMode), limit.instance);
  const int32_t status = vcorDbDelView(DBVIEW_TIME_POLICY, found.at(0).text);
  if (status == kOk) return;
  PM_LOG(log, kError, status, "[%s] vcorDbDelView error\n", log.function);
}

/// Writes or deletes the policy of the device; whether a policy now carries the limit.
bool si_ubus_deal_timepolicy_data(const DevLmtCfg &limit, bool isDel) {
  const Trail log(kSourceTag);
  TimePolicy key;
  key.match(key.instance, limit.instance);
  PolicyTable found;
  if (const int32_t status = key.query(&found.list); status != kOk) {
    PM_LOG(log, kError, status, "[si_deal_timepolicy_data] vcorDbQryView error");
    return false;
  }
  if (!isDel) return writeTimePolicy(log, found, limit);
  deleteTimePolicy(log, found, limit);
  return false;
}

/// Whether the limit is to be bound to its time period.
bool hasTimePeriod(const Trail &log, const DevLmtCfg &limit) {
  if (limit.lmtMode != kModeTimePeriod) return false;
  if (si_ubus_check_timepolicy_data(limit)) return true;
  PM_LOG(log, kError, 0, "[%s] Cycle time is wrong , not set time policy\n", log.function);
  return false;
}

uint32_t scaledRate(int32_t rate) {
  return static_cast<uint32_t>(rate) * kRateUnit;
}

int32_t deleteBandwidth(const Trail &log, const InstancePath &identity) {
  return sendEvent(log, CTSGW_EVENT_DEL_BW, identity.text, sizeof identity.text,
                   "ctSgw_ssend_to_proxy CTSGW_EVENT_DEL_BW error");
}

int32_t setBandwidth(const Trail &log, const InstancePath &identity, const DevLmtCfg &limit) {
  RecordBuffer<BandwidthLimitRecord> bandwidth;
  bandwidth.set(bandwidth.mac, limit.mac);
  bandwidth.set(bandwidth.txRate, scaledRate(limit.txRate));
  bandwidth.set(bandwidth.rxRate, scaledRate(limit.rxRate));
  RecordBuffer<BandwidthLimitRequest> request;
  request.put(request.identity, identity.text);
  request.put(request.limit, bandwidth.bytes);
  return sendEvent(log, CTSGW_EVENT_SET_BW, request.bytes, request.kSize,
                   "ctSgw_ssend_to_proxy CTSGW_EVENT_SET_BW error");
}

int32_t applyBandwidth(const Trail &log, const DevLmtCfg &limit, bool isDel) {
  InstancePath identity("");
  if (is_mac_exist(limit.mac, identity.text) == 1) {
    PM_LOG(log, kInfo, 0, "[%s] set/del device limit: %s !\n", log.function, identity.text);
  }
  PM_LOG(log, kInfo, 0, "bIsDel=%d\n", isDel);
  return isDel ? deleteBandwidth(log, identity) : setBandwidth(log, identity, limit);
}

int32_t rateOf(const char *text) {
  char digits[sizeof(UbusDeviceLimit::TxRate)];
  copyText(digits, text);
  return numberIn(digits);
}

void readLimits(const UbusDeviceLimit &record, DevLmtCfg &limit) {
  limit.lmtMode = record.LmtMode;
  snprintf(limit.limitWeek, sizeof limit.limitWeek - 1, "%d", record.LimitWeek);
  limit.limitStartTime = record.LimitStartTime;
  limit.limitEndTime = record.LimitEndTime;
  limit.txRate = rateOf(record.TxRate);
  limit.rxRate = rateOf(record.RxRate);
}

const char *si_ubus_lmtUrl_list_get(const uint8_t mac[6]) {
  char macText[kMacTextSize];
  MACToStr2(mac, macText, sizeof macText);
  // Two octets decide: devices of one maker share what is listed first.
  const LmtUrlCfg *node = findUrls(macText, kComparedUrlMac);
  return node == nullptr ? "" : node->LimitURL;
}

void describeLimit(const DevLmtCfg &limit, UbusDeviceLimit &record) {
  MacToStr(limit.mac, record.deviceMac, sizeof record.deviceMac);
  printDecimal(record.TxRate, limit.txRate);
  printDecimal(record.RxRate, limit.rxRate);
  copyText(record.LimitUrl, si_ubus_lmtUrl_list_get(limit.mac));
  record.LmtMode = limit.lmtMode;
  record.LimitWeek = numberIn(limit.limitWeek);
  record.LimitStartTime = limit.limitStartTime;
  record.LimitEndTime = limit.limitEndTime;
}

}  // namespace

void si_ubus_lmturl_command(LmtUrlCfg *config, const char *operation) {
  const Trail log(kSourceTag);
  if (strcmp(operation, "-I") != 0 && strcmp(operation, "-A") != 0 && strcmp(operation, "-D") != 0)
    return;
  if (config == nullptr) {
    PM_LOG(log, kError, 0, "tDevLmtCfg is NULL \n");
    return;
  }
  const BoundedRequest<LmtUrlCfg> bounded(*config);
  runRules(bounded.request, operation);
  const size_t length = strnlen(config->LimitURL, sizeof config->LimitURL);
  for (size_t i = 0; i < length; ++i) {
    if (config->LimitURL[i] == ',') config->LimitURL[i] = '\0';
  }
}

int32_t si_ubus_devLimit_register_timepolicy(uint32_t lmtMode, uint32_t instance) {
  RecordBuffer<TimePolicyRegistration> registration;
  registration.put(registration.instance, instance);
  registration.put(registration.instanceAgain, instance);
  registration.put(registration.limitMode, lmtMode);
  registration.put(registration.signalName, kSignalName);
  registration.put(registration.signalNumber, kSignalNumber);
  return ASEND(TIME_POLICY_REGISTER, registration.bytes, registration.kSize,
               MANAGER_MODULE_TIME_POLICY);
}

int32_t is_mac_exist(const uint8_t mac[6], char identity[32]) {
  ViewBuffer<DeviceLimitView> key;
  key.match(key.mac, mac);
  InstanceTable<16> found;
  if (key.query(&found.list) != kOk || found.count() == 0) return 0;
  copyText(identity, PLATFORM_INSTANCE_SIZE, found.at(0).text);
  return 1;
}

int32_t device_limit_cfg_data(const UbusDeviceLimit *record) {
  const Trail log(kSourceTag);
  if (record == nullptr) {
    PM_LOG(log, kError, 0, "[%s] input para is NULL\n", log.function);
    return kFailure;
  }
  char digits[13];
  copyText(digits, record->deviceMac);
  DevLmtCfg limit = {};
  if (!parseMacDigits(digits, limit.mac)) {
    PM_LOG(log, kError, 0, "[%s] StrToMAC Error !\n", log.function);
    return kFailure;
  }
  readLimits(*record, limit);
  LmtUrlCfg urls = {};
  MACToStr2(limit.mac, urls.mac, sizeof urls.mac);
  copyText(urls.LimitURL, record->LimitUrl);
  PM_LOG(log, kInfo, 0,
         "mac=%s RxRate=%d TxRate=%d LmtMode=%d LimitWeek=%s LimitStartTime=%d LimitEndTime=%d \n",
         digits, limit.rxRate, limit.txRate, limit.lmtMode, limit.limitWeek, limit.limitStartTime,
         limit.limitEndTime);
  PM_LOG(log, kInfo, 0, "LimitUrl=%s \n", urls.LimitURL);

  const bool inPeriod = hasTimePeriod(log, limit);
  if (!si_ubus_deal_limiturl_data(urls)) {
    PM_LOG(log, kError, 0, "[%s] set URL config failed \n", log.function);
  }

  const bool isDel = limit.txRate == 0 && limit.rxRate == 0;
  const DevLmtCfg *node = si_ubus_deal_devlmt_list(limit, isDel);
  if (inPeriod && node != nullptr) {
    if (si_ubus_deal_timepolicy_data(*node, isDel)) {
      PM_LOG(log, kInfo, 0, "[%s] have set time policy return\n", log.function);
      return kOk;
    }
    PM_LOG(log, kInfo, 0, "[%s] deal timepolicy wrong or del time policy\n", log.function);
  }
  return applyBandwidth(log, node != nullptr ? *node : limit, isDel);
}

int32_t pm_ubus_nexumd_limit_set(const UbusDeviceLimit *records, int32_t count) {
  const Trail log = entered(kSourceTag);
  if (records == nullptr) return kOk;
  for (int32_t i = 0; i < count; ++i) {
    if (const int32_t status = device_limit_cfg_data(&records[i]); status != kOk) {
      PM_LOG(log, kError, status, "[%s] set device limit data error\n", log.function);
    }
  }
  return kOk;
}

int32_t pm_ubus_nexumd_limit_get(UbusDeviceLimit *records, int32_t *count) {
  entered(kSourceTag);
  if (records == nullptr || count == nullptr) return kOk;
  *count = 0;
  const DevLmtCfg *limit = limitBehind(&g_ubus_devlmt_list);
  for (; limit != nullptr; limit = limitBehind(&limit->link)) {
    if (limit->mac[0] != 0) describeLimit(*limit, records[(*count)++]);
  }
  return kOk;
}
