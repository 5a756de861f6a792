#include "pmapi/wifiinfo.h"

#include "catalogue/catalogue.hpp"

PM_RECORD(WifiInfoRecord, PM_FIELD(radio), PM_FIELD(enable), PM_FIELD(transmitPower),
          PM_FIELD(standard), PM_FIELD(noiseLevel), PM_FIELD(interferencePercent),
          PM_FIELD(channel), PM_FIELD(index), PM_FIELD(ssid), PM_FIELD(securityMode),
          PM_FIELD(pwd).secret(), PM_FIELD(maxAssociateNum), PM_FIELD(ssidAdvertisementEnabled),
          PM_FIELD(ssidEnable), PM_FIELD(bandwidth), PM_FIELD(encrypt));

namespace catalogue {

namespace {

constexpr In kIndex{"radioIndex"};
constexpr size_t kTextSize = 32;

const Entry kEntry{{
    .name = "wifiinfo",
    .source = "object_nexumd_wifiinfo_pmapi.c",
    .summary = "State and configuration of an SSID, counted from 0",
    .methods =
        {
            method("get", PM_FUNCTION(pm_ubus_get_wifi_info), "The whole record.", kIndex,
                   RecordOut{}),
            method(PM_FUNCTION(ubus_get_radios_Enable), "Whether the radio is on.", kIndex,
                   Out{"enable"}),
            method(PM_FUNCTION(ubus_get_radios_SSIDEnable), "Whether the SSID is on.", kIndex,
                   Out{"ssidEnable"}),
            method(PM_FUNCTION(ubus_get_radios_transmitPower),
                   "Transmit power, of the first SSID of a radio.", kIndex,
                   TextOut{"transmitPower"}),
            method(PM_FUNCTION(ubus_get_radios_ssidStandard), "802.11 standard.", kIndex,
                   TextOut{"standard"}),
            method(PM_FUNCTION(ubus_get_radios_noiseLevel), "Noise level.", kIndex,
                   TextOut{"noiseLevel"}),
            method(PM_FUNCTION(ubus_get_radios_interferencePercent), "Interference in percent.",
                   kIndex, Out{"interferencePercent"}),
            method(PM_FUNCTION(ubus_get_radios_Channel), "Channel number.", kIndex,
                   TextOut{"channel"}),
            method(PM_FUNCTION(ubus_get_config_Radio), "Band.", kIndex, TextOut{"radio"}),
            method(PM_FUNCTION(ubus_get_config_Index), "Last digit of the SSID's number.", kIndex,
                   Out{"index"}),
            method(PM_FUNCTION(ubus_get_config_Ssid), "Network name.", kIndex, TextOut{"ssid"}),
            method(PM_FUNCTION(ubus_get_config_SecurityMode), "Security mode.", kIndex,
                   TextOut{"securityMode"}),
            method(PM_FUNCTION(ubus_get_config_Pwd), "WEP key or passphrase.", kIndex,
                   TextOut{"pwd", kTextSize, true}),
            method(PM_FUNCTION(ubus_get_config_MaxAssociateNum), "Most stations admitted.", kIndex,
                   Out{"maxAssociateNum"}),
            method(PM_FUNCTION(ubus_get_config_SsidAdvertisementEnable),
                   "Whether the SSID is broadcast.", kIndex, Out{"ssidAdvertisementEnabled"}),
            method(PM_FUNCTION(ubus_get_info_bandwidth), "Channel width number.", kIndex,
                   Out{"bandwidth"}),
            method(PM_FUNCTION(ubus_get_info_encrypt), "Cipher number.", kIndex, Out{"encrypt"}),
        },
}};

}  // namespace
}  // namespace catalogue
