#include "pmapi/wifi_switch.h"

#include "tools/catalogue/catalogue.hpp"

namespace command {

PM_RECORD(WifiSwitchRecord, PM_FIELD(radio), PM_FIELD(enable));

namespace {

const Entry kEntry{{
    .name = "wifi_switch",
    .source = "object_nexumd_wifi_switch_pmapi.c",
    .summary = "Radios on and off",
    .methods = {method("set", PM_FUNCTION(pm_ubus_wifi_switch_set), "Switches a radio.",
                       RecordIn{})},
}};

}  // namespace
}  // namespace command
