#include "pmapi/wifiinfo.h"

#include "catalogue/catalogue.hpp"

PM_RECORD(WifiInfoRecord, PM_FIELD(radio), PM_FIELD(enable), PM_FIELD(transmitPower),
          PM_FIELD(standard), PM_FIELD(noiseLevel), PM_FIELD(interferencePercent),
          PM_FIELD(channel), PM_FIELD(index), PM_FIELD(ssid), PM_FIELD(securityMode),
          PM_FIELD(pwd).secret(), PM_FIELD(maxAssociateNum), PM_FIELD(ssidAdvertisementEnabled),
          PM_FIELD(ssidEnable), PM_FIELD(bandwidth), PM_FIELD(encrypt));

namespace catalogue {

namespace {

constexpr size_t kTextSize = 32;

template <class Read, class Description>
Method ofSsid(const char *name, const char *function, Read *read, Description description) {
  return method(name, function, read, In{"radioIndex"}, description)
      .example(R"({"radioIndex": 0})");
}

template <class Read, class Description>
Method field(const char *function, Read *read, Description description) {
  return ofSsid(function, function, read, description);
}

const Entry kEntry{{
    .name = "wifiinfo",
    .source = "object_nexumd_wifiinfo_pmapi.c",
    .summary = "State and configuration of an SSID, counted from 0",
    .methods =
        {
            ofSsid("get", PM_FUNCTION(pm_ubus_get_wifi_info), RecordOut{})
                .otherExample(R"({"radioIndex": 4})"),
            field(PM_FUNCTION(ubus_get_radios_Enable), Out{"enable"}),
            field(PM_FUNCTION(ubus_get_radios_SSIDEnable), Out{"ssidEnable"}),
            field(PM_FUNCTION(ubus_get_radios_transmitPower), TextOut{"transmitPower"}),
            field(PM_FUNCTION(ubus_get_radios_ssidStandard), TextOut{"standard"}),
            field(PM_FUNCTION(ubus_get_radios_noiseLevel), TextOut{"noiseLevel"}),
            field(PM_FUNCTION(ubus_get_radios_interferencePercent), Out{"interferencePercent"}),
            field(PM_FUNCTION(ubus_get_radios_Channel), TextOut{"channel"}),
            field(PM_FUNCTION(ubus_get_config_Radio), TextOut{"radio"}),
            field(PM_FUNCTION(ubus_get_config_Index), Out{"index"}),
            field(PM_FUNCTION(ubus_get_config_Ssid), TextOut{"ssid"}),
            field(PM_FUNCTION(ubus_get_config_SecurityMode), TextOut{"securityMode"}),
            field(PM_FUNCTION(ubus_get_config_Pwd), TextOut{"pwd", kTextSize, true}),
            field(PM_FUNCTION(ubus_get_config_MaxAssociateNum), Out{"maxAssociateNum"}),
            field(PM_FUNCTION(ubus_get_config_SsidAdvertisementEnable),
                  Out{"ssidAdvertisementEnabled"}),
            field(PM_FUNCTION(ubus_get_info_bandwidth), Out{"bandwidth"}),
            field(PM_FUNCTION(ubus_get_info_encrypt), Out{"encrypt"}),
        },
}};

}  // namespace
}  // namespace catalogue
