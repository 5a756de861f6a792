#include "pmapi/wifi_statsinfo.h"

#include "catalogue/catalogue.hpp"

PM_RECORD(WifiStatsRecord, PM_FIELD(radio), PM_FIELD(ssid), PM_FIELD(totalBytesSent),
          PM_FIELD(totalBytesReceived), PM_FIELD(totalPacketsSent), PM_FIELD(totalPacketsReceived),
          PM_FIELD(errorsSent), PM_FIELD(errorsReceived), PM_FIELD(discardPacketsSent),
          PM_FIELD(discardPacketsReceived));

namespace catalogue {

namespace {

template <class Read, class Description>
Method ofSsid(const char *name, const char *function, Read *read, Description description) {
  return method(name, function, read, TextIn{"instance", 31}, description)
      .example(R"({"instance": "IGD.LD1.WLAN1"})");
}

template <class Read, class Description>
Method field(const char *function, Read *read, Description description) {
  return ofSsid(function, function, read, description);
}

const Entry kEntry{{
    .name = "wifi_statsinfo",
    .source = "object_nexumd_wifi_statsinfo_pmapi.c",
    .summary = "Traffic counters of an SSID such as IGD.LD1.WLAN1",
    .methods =
        {
            ofSsid("get", PM_FUNCTION(pm_ubus_get_wifi_statsinfo), RecordOut{}),
            field(PM_FUNCTION(ubus_getRadio), TextOut{"radio"}),
            field(PM_FUNCTION(ubus_getSsid), TextOut{"ssid"}),
            field(PM_FUNCTION(ubus_getTotalBytesSent), Out{"totalBytesSent"}),
            field(PM_FUNCTION(ubus_getTotalBytesReceived), Out{"totalBytesReceived"}),
            field(PM_FUNCTION(ubus_getTotalPacketsSent), Out{"totalPacketsSent"}),
            field(PM_FUNCTION(ubus_getTotalPacketsReceived), Out{"totalPacketsReceived"}),
            field(PM_FUNCTION(ubus_getErrorsSent), Out{"errorsSent"}),
            field(PM_FUNCTION(ubus_getErrorsReceived), Out{"errorsReceived"}),
            field(PM_FUNCTION(ubus_getDiscardPacketsSent), Out{"discardPacketsSent"}),
            field(PM_FUNCTION(ubus_getDiscardPacketsReceived), Out{"discardPacketsReceived"}),
        },
}};

}  // namespace
}  // namespace catalogue
