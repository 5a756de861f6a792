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
            method("set", PM_FUNCTION(pm_ubus_wifiParameter_set), "Configures an SSID.",
                   RecordIn{}),
            method("set_multi", PM_FUNCTION(pm_ubus_wifiParameter_set_Multi),
                   "Configures several SSIDs; failures are logged only.",
                   RowsIn{"records", kLongestBatch}, Count{}),
        },
}};

}  // namespace
}  // namespace catalogue
