#include "pmapi/wlanconnect.h"

#include "catalogue/catalogue.hpp"

PM_RECORD(WlanConnectRecord, PM_FIELD(ssid), PM_FIELD(pwd).secret());

namespace catalogue {

namespace {

const Entry kEntry{{
    .name = "wlanconnect",
    .source = "object_nexumd_wlanconnect_pmapi.c",
    .summary = "The gateway as a client of another access point",
    .methods = {method("set", PM_FUNCTION(pm_ubus_wlanconnect_set), RecordIn{})
                    .saying("Joins a network; takes 20 to 30 seconds.")
                    .example(R"({"ssid": "Wren-Upstream", "pwd": "lantern over the weir"})")},
}};

}  // namespace
}  // namespace catalogue
