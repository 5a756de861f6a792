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

constexpr char kNotSupported[] = "No effect on this platform.";

const Entry kEntry{{
    .name = "roaming",
    .source = "object_nexumd_roaming_pmapi.c",
    .summary = "Roaming, band steering, stations by medium",
    .methods =
        {
            method("get", PM_FUNCTION(pm_ubus_roaming_get), "Roaming settings.", RecordOut{}),
            method("set", PM_FUNCTION(pm_ubus_roaming_set), "Sets switch and thresholds.",
                   RecordIn{}),
            method("bandsteering_get", PM_FUNCTION(pm_ubus_roaming_bandsteering_get),
                   "Band-steering settings.", RecordOut{}),
            method("bandsteering_set", PM_FUNCTION(pm_ubus_roaming_bandsteering_set),
                   "Sets them, and roaming with them.", RecordIn{}),
            method("sta_disconnect", PM_FUNCTION(pm_ubus_roaming_sta_disconnect),
                   "Blocks a station and removes its association.", TextIn{"mac"}),
            method("starssi_get", PM_FUNCTION(pm_ubus_roaming_starssi_get), "Signal of a station.",
                   RecordOut{}),
            method("sta_num_get", PM_FUNCTION(pm_ubus_sta_num_get), "Attached devices by medium.",
                   RecordOut{}),
            method(PM_FUNCTION(ubus_setLowRSSI), "Sets switch and thresholds.", In{"roamingSwitch"},
                   In{"low24G"}, In{"low5G"}),
            method(PM_FUNCTION(ubus_getRoamingSwitch), "Whether roaming is on.",
                   Out{"roamingSwitch"}),
            method(PM_FUNCTION(ubus_getLowRSSI24G), "Roaming threshold.", Out{"lowRSSI24G"}),
            method(PM_FUNCTION(ubus_getLowRSSI5G), "Roaming threshold.", Out{"lowRSSI5G"}),
            method(PM_FUNCTION(ubus_getRssiThreshold), "Steering threshold.", Out{"rssiThreshold"}),
            method(PM_FUNCTION(ubus_getRssiThreshold5G), "Steering threshold.",
                   Out{"rssiThreshold5G"}),
            method(PM_FUNCTION(ubus_getBandSteeringStatus), "Whether band steering is on.",
                   Out{"bandSteeringStatus"}),
            method(PM_FUNCTION(ubus_getPacketLoss), kNotSupported),
            method(PM_FUNCTION(ubus_setPacketLoss), kNotSupported),
            method(PM_FUNCTION(ubus_getRetryRatio), kNotSupported),
            method(PM_FUNCTION(ubus_setRetryRatio), kNotSupported),
            method(PM_FUNCTION(ubus_getXIndex), kNotSupported),
            method(PM_FUNCTION(ubus_setXIndex), kNotSupported),
            method(PM_FUNCTION(ubus_getDetectPeriod), kNotSupported),
            method(PM_FUNCTION(ubus_setDetectPeriod), kNotSupported),
            method(PM_FUNCTION(ubus_getRssiCheckDelta), kNotSupported),
            method(PM_FUNCTION(ubus_setRssiCheckDelta), kNotSupported),
            method(PM_FUNCTION(ubus_getDismissTime), kNotSupported),
            method(PM_FUNCTION(ubus_setDismissTime), kNotSupported),
        },
}};

}  // namespace
}  // namespace catalogue
