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
            method("get", PM_FUNCTION(pm_ubus_get_basicinfo), "The whole record.", RecordOut{}),
            method(PM_FUNCTION(ubus_getProductToken), "Product token.", TextOut{"productToken"}),
            method(PM_FUNCTION(ubus_getDeviceType), "Device type.", TextOut{"deviceType"}),
            method(PM_FUNCTION(ubus_getdeviceVendor), "Vendor.", TextOut{"deviceVendor"}),
            method(PM_FUNCTION(ubus_getDeviceModel), "Model.", TextOut{"deviceModel"}),
            method(PM_FUNCTION(ubus_getDeviceSn), "Serial number.", TextOut{"deviceSn"}),
            method(PM_FUNCTION(ubus_getCMEI), "CMEI.", TextOut{"cmei"}),
            method(PM_FUNCTION(ubus_getSWVersion), "Software version.", TextOut{"softwareVersion"}),
            method(PM_FUNCTION(ubus_getFWVersion), "Firmware version.", TextOut{"firmwareVersion"}),
            method(PM_FUNCTION(ubus_getAuthID), "Authentication id.", TextOut{"authId"}),
            method(PM_FUNCTION(ubus_getDevKey), "Device key.", TextOut{"devKey", 128}),
            method(PM_FUNCTION(ubus_getCaptureEth), "Capture interface.", TextOut{"captureEth"}),
            method(PM_FUNCTION(ubus_getPPPOEUser), "User of the PPP connection.",
                   TextOut{"pppoeUser"}),
            method(PM_FUNCTION(ubus_getDeviceMac), "LAN MAC address.", TextOut{"deviceMac"}),
            method(PM_FUNCTION(ubus_getUplinkType), "Kind of uplink.", TextOut{"text", kUplinkType},
                   In{"length", kUplinkType - 1}),
            method(PM_FUNCTION(ubus_getWorkingMode), "Working mode number.", Out{"mode"}),
            method(PM_FUNCTION(ubus_getRadio5), "Whether the identity view can be read."),
            method(PM_FUNCTION(ubus_wlan_get_card_max), "Number of Wi-Fi cards.", Out{"count"}),
            method(PM_FUNCTION(ubus_get_current_version_code),
                   "Version code, -1 when it cannot be read.")
                .returning("versionCode"),
            method(PM_FUNCTION(ubus_get_router_ip_host_ipv46),
                   "Searches the WAN connection that carries Internet traffic.", Out{"ipv4"},
                   BytesOut{"ipv6", 16}, TextOut{"ifname"}, Out{"mode"}),
            method(PM_FUNCTION(ubus_get_ifname_from_ifid),
                   "Makes the interface behind a WAN connection the capture interface.",
                   TextIn{"ifId"}),
            method(PM_FUNCTION(ubus_setCaptureEth), "Writes the capture interface.",
                   TextIn{"name"}),
        },
}};

}  // namespace
}  // namespace catalogue
