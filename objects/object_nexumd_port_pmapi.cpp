#include "frame/codes.hpp"
#include "frame/log.hpp"
#include "frame/record_buffer.hpp"
#include "frame/status.hpp"
#include "platform/ports.h"
#include "platform/ports.hpp"
#include "platform/wan.h"
#include "pmapi/helpers.h"
#include "pmapi/port.h"

using namespace pm;
using PortConfigBuffer = ViewBuffer<EthPortConfigView>;

static constexpr char kSourceTag[] = "object_nexumd_port_pmapi.c";

namespace {

enum PortType : uint32_t { kUplinkPort = 0, kLanPort = 1 };

// The uplink knows the first three only: a fourth gives it an empty text.
constexpr CodeTable kUplinkRates = CodeTable(kPortRates).first(3);

constexpr uint32_t kPortSelector = static_cast<uint32_t>(-9);

void fillMac(const Trail &log, PortConfigBuffer &config, PortInfoRecord *record) {
  RecordBuffer<PortMacParameterRecord> parameters;
  parameters.put(parameters.selector, kPortSelector);
  parameters.put(parameters.parameterRun1, config.get(config.parameterRun1));
  parameters.put(parameters.parameterRun2, config.get(config.parameterRun2));
  parameters.put(parameters.parameterRun3, config.get(config.parameterRun3));
  RecordBuffer<PortMacResultRecord> result;
  pm_mac_prm_op(PM_MAC_PRM_OP_GET, &result, config.at(config.macParameterId), &parameters);
  MacToStr(result.get(result.mac), record->portMac, sizeof record->portMac);
  PM_LOG(log, kInfo, 0, "p_portinfo->portMac : %s!\n ", record->portMac);
}

void fillUplink(const Trail &log, uint32_t port, PortInfoRecord *record) {
  record->portType = kUplinkPort;
  uint32_t state = 0;
  uint32_t rate = 0;
  uint32_t unused = 0;
  if (const int32_t status = pm_wan_get_port_link_state_type(&state, &rate, &unused, port);
      status != kOk) {
    PM_LOG(log, kError, status, "error:pm_wan_get_port_link_state_type\n");
  }
  copyText(record->portRate, nameOf(kUplinkRates, rate, ""));
  PM_LOG(log, kInfo, 0, "stateResult=%d\n", state);
  record->portConnection = state;
}

int32_t fillLan(const Trail &log, const char *instance, const PortConfigBuffer &config,
                PortInfoRecord *record) {
  record->portType = kLanPort;
  RecordBuffer<PortLinkStateRecord> link;
  if (const int32_t status = pm_eth_get_port_link_state(instance, &link); status != kOk) {
    PM_LOG(log, kError, status, "[pm_eth_get_port_link_state] failed, retcode = %d\n", status);
    return status;
  }
  record->portConnection = link.get(link.linkState);
  PM_LOG(log, kInfo, 0, "portConnection:%d \n", record->portConnection);
  const char *rate = nameOf(kPortRates, config.get(config.rateCode));
  if (rate != nullptr) copyText(record->portRate, rate);
  PM_LOG(log, kInfo, 0, "p_portinfo->portRate : %s!\n ", record->portRate);
  return kOk;
}

}  // namespace

int32_t pm_ubus_get_portinfo(uint32_t portIndex, const char *instance, PortInfoRecord *record) {
  const Trail log(kSourceTag);
  PM_LOG(log, kInfo, 0, "now in nexumi_get_port_info\n ");
  PM_LOG(log, kInfo, 0, "szInstIdentity = %s\n ", instance);
  if (log.lacks(record)) return kFailure;
  record->portNumber = portIndex + 1;

  PortConfigBuffer config;
  if (const int32_t status = config.readAt(instance); status != kOk) {
    PM_LOG(log, kError, status, "vcorDbGetView DBVIEW_ETH_PORTCONF failed!");
    return PM_STATUS_UNREADABLE;
  }
  fillMac(log, config, record);

  UpModeInfo uplink{};
  if (const int32_t status = pm_upmode_info_get(&uplink); status != kOk) {
    PM_LOG(log, kError, status, "[%s] pm_upmode_info_get error, iret = %d\n", log.function, status);
    return status;
  }
  const uint32_t uplinkPort = uplink.port & 0xFFFF;
  if (portIndex != uplinkPort) return fillLan(log, instance, config, record);
  fillUplink(log, uplinkPort, record);
  return kOk;
}
