#include "pmapi/roaming.h"

#include "catalogue/catalogue.hpp"

PM_RECORD(RoamingRecord, PM_FIELD(roamingSwitch), PM_FIELD(lowRSSI24G), PM_FIELD(lowRSSI5G),
          PM_FIELD(packetLoss).optional(), PM_FIELD(retryRatio).optional(),
          PM_FIELD(xIndex).optional(), PM_FIELD(detectPeriod).optional(),
          PM_FIELD(rssiCheckDelta).optional(), PM_FIELD(dismissTime).optional());
PM_RECORD(BandSteeringRecord, PM_FIELD(bandSteeringStatus), PM_FIELD(rssiThreshold),
          PM_FIELD(rssiThreshold5G));
PM_RECORD(StaRssiRecord, PM_FIELD(macAddress).input(), PM_FIELD(radio), PM_FIELD(rssi),
          PM_FIELD(radioValue));
PM_RECORD(StaNumRecord, PM_FIELD(ethNum), PM_FIELD(wlan24GNum), PM_FIELD(wlan5GNum));

namespace catalogue {

namespace {

const Entry kEntry{{
    .name = "roaming",
    .source = "object_nexumd_roaming_pmapi.c",
    .summary = "Roaming, band steering, stations by medium",
    .methods =
        {
            method("get", PM_FUNCTION(pm_ubus_roaming_get), RecordOut{}),
            method("set", PM_FUNCTION(pm_ubus_roaming_set), RecordIn{})
                .example(R"({"roamingSwitch": 1, "lowRSSI24G": -77, "lowRSSI5G": -79})"),
            method("bandsteering_get", PM_FUNCTION(pm_ubus_roaming_bandsteering_get), RecordOut{}),
            method("bandsteering_set", PM_FUNCTION(pm_ubus_roaming_bandsteering_set), RecordIn{})
                .saying("Sets band steering, and roaming with it.")
                .example(
                    R"({"bandSteeringStatus": 1, "rssiThreshold": -70, "rssiThreshold5G": -75})"),
            method("sta_disconnect", PM_FUNCTION(pm_ubus_roaming_sta_disconnect), TextIn{"mac"})
                .example(R"({"mac": "f40f24108801"})"),
            method("starssi_get", PM_FUNCTION(pm_ubus_roaming_starssi_get), RecordOut{})
                .example(R"({"macAddress": "f40f24108801"})"),
            method("sta_num_get", PM_FUNCTION(pm_ubus_sta_num_get), RecordOut{}),
            method(PM_FUNCTION(ubus_setLowRSSI), In{"roamingSwitch"}, In{"low24G"}, In{"low5G"})
                .example(R"({"roamingSwitch": 1, "low24G": 75, "low5G": 78})"),
            method(PM_FUNCTION(ubus_getRoamingSwitch), Out{"roamingSwitch"}),
            method(PM_FUNCTION(ubus_getLowRSSI24G), Out{"lowRSSI24G"}),
            method(PM_FUNCTION(ubus_getLowRSSI5G), Out{"lowRSSI5G"}),
            method(PM_FUNCTION(ubus_getRssiThreshold), Out{"rssiThreshold"}),
            method(PM_FUNCTION(ubus_getRssiThreshold5G), Out{"rssiThreshold5G"}),
            method(PM_FUNCTION(ubus_getBandSteeringStatus), Out{"bandSteeringStatus"}),
            method(PM_FUNCTION(ubus_getPacketLoss)),
            method(PM_FUNCTION(ubus_setPacketLoss)),
            method(PM_FUNCTION(ubus_getRetryRatio)),
            method(PM_FUNCTION(ubus_setRetryRatio)),
            method(PM_FUNCTION(ubus_getXIndex)),
            method(PM_FUNCTION(ubus_setXIndex)),
            method(PM_FUNCTION(ubus_getDetectPeriod)),
            method(PM_FUNCTION(ubus_setDetectPeriod)),
            method(PM_FUNCTION(ubus_getRssiCheckDelta)),
            method(PM_FUNCTION(ubus_setRssiCheckDelta)),
            method(PM_FUNCTION(ubus_getDismissTime)),
            method(PM_FUNCTION(ubus_setDismissTime)),
        },
}};

}  // namespace
}  // namespace catalogue
