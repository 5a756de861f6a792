#include "pmapi/wifi_switch.h"

#include "catalogue/catalogue.hpp"

PM_RECORD(WifiSwitchRecord, PM_FIELD(radio), PM_FIELD(enable));

namespace catalogue {

namespace {

const Entry kEntry{{
    .name = "wifi_switch",
    .source = "object_nexumd_wifi_switch_pmapi.c",
    .summary = "Radios on and off",
    .methods = {method("set", PM_FUNCTION(pm_ubus_wifi_switch_set), RecordIn{})
                    .example(R"({"radio": "5G", "enable": 1})")},
}};

}  // namespace
}  // namespace catalogue
