#include "pmapi/stainfo.h"

#include "catalogue/catalogue.hpp"

PM_RECORD(StaInfoRecord, PM_FIELD(ipAddress), PM_FIELD(ipv6Address), PM_FIELD(hostName),
          PM_FIELD(vendor), PM_FIELD(macAddress), PM_FIELD(staType), PM_FIELD(onlineTime),
          PM_FIELD(accessTime), PM_FIELD(staConfigValid), PM_FIELD(adevValue), PM_FIELD(band),
          PM_FIELD(wlanName), PM_FIELD(rssi), PM_FIELD(radioValue), PM_FIELD(linkRate),
          PM_FIELD(linkRate2), PM_FIELD(rxRate), PM_FIELD(txRate), PM_FIELD(totalBytesSent),
          PM_FIELD(totalBytesReceived), PM_FIELD(totalPacketsSent), PM_FIELD(totalPacketsReceived));
PM_RECORD(StaConfigResult, PM_FIELD(valid), PM_FIELD(band), PM_FIELD(wlanName), PM_FIELD(rssi),
          PM_FIELD(radioValue), PM_FIELD(linkRate), PM_FIELD(linkRate2), PM_FIELD(rxRate),
          PM_FIELD(txRate));

namespace catalogue {

namespace {

template <class Read, class Description>
Method ofStation(const char *name, const char *function, Read *read, Description description) {
  return method(name, function, read, In{"index"}, description).example(R"({"index": 0})");
}

template <class Read>
Method field(const char *function, Read *read, const char *name) {
  return ofStation(function, function, read, TextOut{name});
}

const Entry kEntry{{
    .name = "stainfo",
    .source = "object_nexumd_stainfo_pmapi.c",
    .summary = "An attached station by its position, from 0, in the device list",
    .methods =
        {
            ofStation("get", PM_FUNCTION(pm_ubus_get_sta_info), RecordOut{}),
            field(PM_FUNCTION(ubus_getIpAddress), "ipAddress"),
            field(PM_FUNCTION(ubus_getHostName), "hostName"),
            field(PM_FUNCTION(ubus_getMacAddress), "macAddress"),
            field(PM_FUNCTION(ubus_getStatype), "staType"),
            field(PM_FUNCTION(ubus_getUptime), "onlineTime"),
            ofStation("ubus_get_sta_config", PM_FUNCTION(ubus_get_sta_config), RecordOut{}),
        },
}};

}  // namespace
}  // namespace catalogue
