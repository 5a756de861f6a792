#include "frame/attached_device.hpp"

#include <cstdio>

#include "frame/status.hpp"
#include "platform/wlan.hpp"

namespace pm {

int32_t queryDevice(const Trail &log, const InstancePath &path, ProxyExchange &reply,
                    DeviceBuffer &device) {
  device.put(device.path, path.text);
  const int32_t result = reply.send(CTSGW_EVENT_QUERY_ADEV_PARAM, device.bytes, device.kSize);
  const int32_t outcome = reply.outcome(result);
  if (outcome != kOk) {
    PM_LOG(log, kError, outcome, "ctSgw_ssend_to_proxy CTSGW_EVENT_QUERY_ADEV_PARAM error!\n");
  }
  reply.copyPayload(device.bytes, device.kSize);
  return outcome;
}

bool queryStationStatistics(const Trail &log, uint32_t event, const uint8_t mac[6],
                            StationStatisticsBuffer &statistics) {
  statistics.set(statistics.mac, mac);
  RecordBuffer<StationStatisticsRequest> request;
  memcpy(request.bytes, statistics.bytes, StationStatisticsRecord::kSize);

  DeviceReply reply;
  const int32_t outcome =
      reply.outcome(reply.send(event, request.bytes, StationStatisticsRequest::kSize));
  if (outcome == kOk) {
    reply.copyPayload(statistics.bytes, statistics.kSize);
    return true;
  }
  if (event == CTSGW_EVENT_GET_HARD_STATS) {
    PM_LOG(log, kError, outcome, "ctSgw_ssend_to_proxy CTSGW_EVENT_GET_HARD_STATS error!\n");
  } else {
    PM_LOG(log, kError, outcome, "ctSgw_ssend_to_proxy CTSGW_EVENT_GET_BW_STATS error!\n");
  }
  return false;
}

bool findLanInterface(const char *interfaceName, LanInfoBuffer &lan) {
  lan.match(lan.interfaceName, interfaceName);
  InstanceTable<16> found;
  if (const int32_t status = lan.query(&found.list); status != kOk) {
    printf("[net_get_laninfo_by_ifname]vcorDbQryView  DBVIEW_LANINFO  %d \n", status);
    return false;
  }
  if (found.reported() != 1) {
    printf("[net_get_laninfo_by_ifname]tList.dwCount = %d\n", found.reported());
    return false;
  }
  const InstancePath instance = found.at(0);
  lan.reset();
  if (lan.read(instance) != kOk) {
    printf("[net_get_laninfo_by_ifname]vcorDbGetView   DBVIEW_LAN_INFO  %s  failed \n",
           instance.text);
    return false;
  }
  return true;
}

int32_t findAssociations(const uint8_t mac[6], AssociationTable &found) {
  ViewBuffer<AssociatedDeviceView> key;
  key.match(key.mac, mac);
  return key.query(&found.list);
}

}  // namespace pm
