#include "pmapi/wifi_csi.h"

#include "catalogue/catalogue.hpp"

PM_RECORD(CsiEnableSetRecord, PM_FIELD(radio), PM_FIELD(enable));
PM_RECORD(CsiEnableRecord, PM_FIELD(radio1), PM_FIELD(enable1), PM_FIELD(radio2),
          PM_FIELD(enable2));
PM_RECORD(CsiMacRecord, PM_FIELD(operation), PM_FIELD(macList).capacity(416));
PM_RECORD(CsiConfigRecord, PM_FIELD(csiParam1), PM_FIELD(csiParam2));

namespace catalogue {

namespace {

constexpr char kStations[] = R"({"operation": 1, "macList": "A1B2C3D4E5F6,A1B2C3D4E5F7"})";

const Entry kEntry{{
    .name = "wifi_csi",
    .source = "object_nexumd_wifi_csi_pmapi.c",
    .summary = "Collection of channel state information",
    .methods =
        {
            method("set_enable", PM_FUNCTION(pm_ubus_set_csi_enable), RecordIn{})
                .saying("Switches the collection on a radio, or on \"All\".")
                .example(R"({"radio": "All", "enable": 1})"),
            method("get_enable", PM_FUNCTION(pm_ubus_get_csi_enable), RecordOut{}),
            method("set_mac", PM_FUNCTION(pm_ubus_set_csi_mac), RecordIn{})
                .saying("Adds (operation 1) or deletes (2) stations.")
                .example(kStations)
                .otherExample(R"({"operation": 2, "macList": "A1B2C3D4E5F6"})"),
            method("get_mac", PM_FUNCTION(pm_ubus_get_csi_mac), RecordOut{})
                .after("wifi_csi set_mac", kStations),
            method("set_config", PM_FUNCTION(pm_ubus_set_csi_config), RecordIn{})
                .example(R"({"csiParam1": 20, "csiParam2": 1})"),
            method("get_config", PM_FUNCTION(pm_ubus_get_csi_config), RecordOut{}),
        },
}};

}  // namespace
}  // namespace catalogue
