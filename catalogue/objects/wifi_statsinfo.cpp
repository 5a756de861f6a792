#include "pmapi/wifi_statsinfo.h"

#include "catalogue/catalogue.hpp"

PM_RECORD(WifiStatsRecord, PM_FIELD(radio), PM_FIELD(ssid), PM_FIELD(totalBytesSent),
          PM_FIELD(totalBytesReceived), PM_FIELD(totalPacketsSent), PM_FIELD(totalPacketsReceived),
          PM_FIELD(errorsSent), PM_FIELD(errorsReceived), PM_FIELD(discardPacketsSent),
          PM_FIELD(discardPacketsReceived));

namespace catalogue {

namespace {

constexpr TextIn kInstance{"instance", 31};

const Entry kEntry{{
    .name = "wifi_statsinfo",
    .source = "object_nexumd_wifi_statsinfo_pmapi.c",
    .summary = "Traffic counters of an SSID such as IGD.LD1.WLAN1",
    .methods =
        {
            method("get", PM_FUNCTION(pm_ubus_get_wifi_statsinfo), "The whole record.", kInstance,
                   RecordOut{}),
            method(PM_FUNCTION(ubus_getRadio), "Band.", kInstance, TextOut{"radio"}),
            method(PM_FUNCTION(ubus_getSsid), "Network name.", kInstance, TextOut{"ssid"}),
            method(PM_FUNCTION(ubus_getTotalBytesSent), "Bytes sent.", kInstance,
                   Out{"totalBytesSent"}),
            method(PM_FUNCTION(ubus_getTotalBytesReceived), "Bytes received.", kInstance,
                   Out{"totalBytesReceived"}),
            method(PM_FUNCTION(ubus_getTotalPacketsSent), "Packets sent.", kInstance,
                   Out{"totalPacketsSent"}),
            method(PM_FUNCTION(ubus_getTotalPacketsReceived), "Packets received.", kInstance,
                   Out{"totalPacketsReceived"}),
            method(PM_FUNCTION(ubus_getErrorsSent), "Errors while sending.", kInstance,
                   Out{"errorsSent"}),
            method(PM_FUNCTION(ubus_getErrorsReceived), "Errors while receiving.", kInstance,
                   Out{"errorsReceived"}),
            method(PM_FUNCTION(ubus_getDiscardPacketsSent), "Packets discarded while sending.",
                   kInstance, Out{"discardPacketsSent"}),
            method(PM_FUNCTION(ubus_getDiscardPacketsReceived),
                   "Packets discarded while receiving.", kInstance, Out{"discardPacketsReceived"}),
        },
}};

}  // namespace
}  // namespace catalogue
