#include "pmapi/wifiparameter.h"

#include "catalogue/catalogue.hpp"

PM_RECORD(WifiParameterRecord, PM_FIELD(radio), PM_FIELD(index), PM_FIELD(enable).optional(),
          PM_FIELD(ssid).optional(), PM_FIELD(securityMode), PM_FIELD(encrypt).optional(),
          PM_FIELD(pwd).optional().secret(), PM_FIELD(maxAssociateNum).optional(),
          PM_FIELD(ssidAdvertisementEnabled).optional());

namespace catalogue {

namespace {

constexpr uint32_t kLongestBatch = 64;

const Entry kEntry{{
    .name = "wifiparameter",
    .source = "object_nexumd_wifiparameter_pmapi.c",
    .summary = "Configuration of SSIDs, counted from 1",
    .methods =
        {
            method("set", PM_FUNCTION(pm_ubus_wifiParameter_set), RecordIn{})
                .example(R"({"radio": "2.4G", "index": 1, "enable": 1, "ssid": "home",
                 "securityMode": "WPA2-Personal", "encrypt": 1, "pwd": "quiet-harbour"})"),
            method("set_multi", PM_FUNCTION(pm_ubus_wifiParameter_set_Multi),
                   RowsIn{"records", kLongestBatch}, Count{})
                .saying("Configures several SSIDs; failures are logged only.")
                .example(R"({"records": [{"radio": "2.4G", "index": 2, "securityMode": "None"},
                             {"radio": "5G", "index": 6, "securityMode": "None"}]})"),
        },
}};

}  // namespace
}  // namespace catalogue
