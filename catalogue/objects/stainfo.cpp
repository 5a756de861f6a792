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

const Entry kEntry{{
    .name = "stainfo",
    .source = "object_nexumd_stainfo_pmapi.c",
    .summary = "An attached station by its position, from 0, in the device list",
    .methods =
        {
            method("get", PM_FUNCTION(pm_ubus_get_sta_info), "The whole record.", In{"index"},
                   RecordOut{}),
            method(PM_FUNCTION(ubus_getIpAddress), "IPv4 address.", In{"index"},
                   TextOut{"ipAddress"}),
            method(PM_FUNCTION(ubus_getHostName), "Host name.", In{"index"}, TextOut{"hostName"}),
            method(PM_FUNCTION(ubus_getMacAddress), "MAC address.", In{"index"},
                   TextOut{"macAddress"}),
            method(PM_FUNCTION(ubus_getStatype), "Kind of device.", In{"index"},
                   TextOut{"staType"}),
            method(PM_FUNCTION(ubus_getUptime), "Seconds since it connected.", In{"index"},
                   TextOut{"onlineTime"}),
            method(PM_FUNCTION(ubus_get_sta_config), "How it is connected.", In{"index"},
                   RecordOut{}),
        },
}};

}  // namespace
}  // namespace catalogue
