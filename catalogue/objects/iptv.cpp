#include "pmapi/iptv.h"

#include "catalogue/catalogue.hpp"

PM_RECORD(UbusIptv, PM_FIELD(enable), PM_FIELD(vlanId), PM_FIELD(ethPorts).optional(),
          PM_FIELD(wlanPorts).optional());

namespace catalogue {

namespace {

const Entry kEntry{{
    .name = "iptv",
    .source = "object_nexumd_iptv_pmapi.c",
    .summary = "Ports and access points bound to the IPTV VLAN",
    .methods =
        {
            method("set", PM_FUNCTION(pm_ubus_nexumd_iptv_set),
                   "Binds the ports named, up to the first 0; enable 0 removes all bindings.",
                   RecordIn{}),
            method("get", PM_FUNCTION(pm_ubus_nexumd_iptv_get), "The bindings.", RecordOut{}),
            method("del", PM_FUNCTION(pm_iptv_del), "Removes all bindings."),
        },
}};

}  // namespace
}  // namespace catalogue
