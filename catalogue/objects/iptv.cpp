#include "pmapi/iptv.h"

#include "catalogue/catalogue.hpp"

PM_RECORD(UbusIptv, PM_FIELD(enable), PM_FIELD(vlanId), PM_FIELD(ethPorts).optional(),
          PM_FIELD(wlanPorts).optional());

namespace catalogue {

namespace {

constexpr char kBinding[] = R"({"enable": 1, "vlanId": 85, "ethPorts": [2], "wlanPorts": [3]})";

const Entry kEntry{{
    .name = "iptv",
    .source = "object_nexumd_iptv_pmapi.c",
    .summary = "Ports and access points bound to the IPTV VLAN",
    .methods =
        {
            method("set", PM_FUNCTION(pm_ubus_nexumd_iptv_set), RecordIn{})
                .saying("Binds the ports named, up to the first 0; enable 0 removes all bindings.")
                .example(kBinding)
                .otherExample(R"({"enable": 0, "vlanId": 0})"),
            method("get", PM_FUNCTION(pm_ubus_nexumd_iptv_get), RecordOut{})
                .after("iptv set", kBinding),
            method("del", PM_FUNCTION(pm_iptv_del)).after("iptv set", kBinding),
        },
}};

}  // namespace
}  // namespace catalogue
