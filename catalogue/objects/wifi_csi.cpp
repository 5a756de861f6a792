#include "pmapi/wifi_csi.h"

#include "catalogue/catalogue.hpp"

PM_RECORD(CsiEnableSetRecord, PM_FIELD(radio), PM_FIELD(enable));
PM_RECORD(CsiEnableRecord, PM_FIELD(radio1), PM_FIELD(enable1), PM_FIELD(radio2),
          PM_FIELD(enable2));
PM_RECORD(CsiMacRecord, PM_FIELD(operation), PM_FIELD(macList).capacity(416));
PM_RECORD(CsiConfigRecord, PM_FIELD(csiParam1), PM_FIELD(csiParam2));

namespace catalogue {

namespace {

const Entry kEntry{{
    .name = "wifi_csi",
    .source = "object_nexumd_wifi_csi_pmapi.c",
    .summary = "Collection of channel state information",
    .methods =
        {
            method("set_enable", PM_FUNCTION(pm_ubus_set_csi_enable),
                   "Switches a radio, or \"All\".", RecordIn{}),
            method("get_enable", PM_FUNCTION(pm_ubus_get_csi_enable), "Whether the radios collect.",
                   RecordOut{}),
            method("set_mac", PM_FUNCTION(pm_ubus_set_csi_mac),
                   "Adds (operation 1) or deletes (2) stations.", RecordIn{}),
            method("get_mac", PM_FUNCTION(pm_ubus_get_csi_mac), "The stations.", RecordOut{}),
            method("set_config", PM_FUNCTION(pm_ubus_set_csi_config), "Parameters of both radios.",
                   RecordIn{}),
            method("get_config", PM_FUNCTION(pm_ubus_get_csi_config),
                   "Parameters of the 2.4 GHz radio.", RecordOut{}),
        },
}};

}  // namespace
}  // namespace catalogue
