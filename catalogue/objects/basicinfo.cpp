#include "pmapi/basicinfo.h"

#include "catalogue/catalogue.hpp"

PM_RECORD(BasicInfoRecord, PM_FIELD(productToken), PM_FIELD(deviceType), PM_FIELD(deviceVendor),
          PM_FIELD(deviceModel), PM_FIELD(deviceSn), PM_FIELD(cmei), PM_FIELD(softwareVersion),
          PM_FIELD(firmwareVersion), PM_FIELD(protocolVersion), PM_FIELD(authId), PM_FIELD(devKey),
          PM_FIELD(reservedText), PM_FIELD(versionType), PM_FIELD(testFlag), PM_FIELD(captureEth),
          PM_FIELD(deviceMac), PM_FIELD(wanIpv4), PM_FIELD(wanIpv6), PM_FIELD(meshSupport),
          PM_FIELD(meshInfoCode), PM_FIELD(uplinkType), PM_FIELD(workingMode), PM_FIELD(dualBand),
          PM_FIELD(pppoeUser));

namespace catalogue {

namespace {

constexpr size_t kUplinkType = 32;

const Entry kEntry{{
    .name = "basicinfo",
    .source = "object_nexumd_basicinfo_pmapi.c",
    .summary = "Identity, versions, addresses and uplink of the gateway",
    .methods =
        {
            method("get", PM_FUNCTION(pm_ubus_get_basicinfo), RecordOut{}),
            method(PM_FUNCTION(ubus_getProductToken), TextOut{"productToken"}),
            method(PM_FUNCTION(ubus_getDeviceType), TextOut{"deviceType"}),
            method(PM_FUNCTION(ubus_getdeviceVendor), TextOut{"deviceVendor"}),
            method(PM_FUNCTION(ubus_getDeviceModel), TextOut{"deviceModel"}),
            method(PM_FUNCTION(ubus_getDeviceSn), TextOut{"deviceSn"}),
            method(PM_FUNCTION(ubus_getCMEI), TextOut{"cmei"}),
            method(PM_FUNCTION(ubus_getSWVersion), TextOut{"softwareVersion"}),
            method(PM_FUNCTION(ubus_getFWVersion), TextOut{"firmwareVersion"}),
            method(PM_FUNCTION(ubus_getAuthID), TextOut{"authId"}),
            method(PM_FUNCTION(ubus_getDevKey), TextOut{"devKey", 128}),
            method(PM_FUNCTION(ubus_getCaptureEth), TextOut{"captureEth"}),
            method(PM_FUNCTION(ubus_getPPPOEUser), TextOut{"pppoeUser"}),
            method(PM_FUNCTION(ubus_getDeviceMac), TextOut{"deviceMac"}),
            method(PM_FUNCTION(ubus_getUplinkType), TextOut{"text", kUplinkType},
                   In{"length", kUplinkType - 1}),
            method(PM_FUNCTION(ubus_getWorkingMode), Out{"mode"}),
            method(PM_FUNCTION(ubus_getRadio5)),
            method(PM_FUNCTION(ubus_wlan_get_card_max), Out{"count"}),
            method(PM_FUNCTION(ubus_get_current_version_code)).returning("versionCode"),
            method(PM_FUNCTION(ubus_get_router_ip_host_ipv46), Out{"ipv4"}, BytesOut{"ipv6", 16},
                   TextOut{"ifname"}, Out{"mode"}),
            method(PM_FUNCTION(ubus_get_ifname_from_ifid), TextIn{"ifId"})
                .example(R"({"ifId": "IGD.WD1.WCD1.WCPPP1"})"),
            method(PM_FUNCTION(ubus_setCaptureEth), TextIn{"name"}).example(R"({"name": "eth9"})"),
        },
}};

}  // namespace
}  // namespace catalogue
