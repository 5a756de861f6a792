#include "pmapi/macfilter.h"

#include "catalogue/catalogue.hpp"

PM_RECORD(UbusMacFilter, PM_FIELD(macFilterEnable), PM_FIELD(macFilterPolicy),
          PM_FIELD(entries).capacity(2048));

namespace catalogue {

namespace {

const Entry kEntry{{
    .name = "macfilter",
    .source = "object_nexumd_getmacfilter_pmapi.c, object_nexumd_setmacfilter_pmapi.c",
    .summary = "MAC filter of the firewall",
    .methods =
        {
            method("get", PM_FUNCTION(pm_ubus_get_mac_filter), RecordOut{}),
            method("set", PM_FUNCTION(pm_ubus_macfilter_set), RecordIn{})
                .saying("Sets state and policy; when on, replaces the devices: MAC/name,MAC/name.")
                .example(
                    R"({"macFilterEnable": 1, "macFilterPolicy": 1, "entries": "A1B2C3D4E5F6/phone"})"),
            method(PM_FUNCTION(ubus_getmacFilterEnable)).returning("macFilterEnable"),
            method(PM_FUNCTION(ubus_getmacFilterPolicy))
                .saying(
                    "Policy of the filter: 0 black list, 1 white list, -1 when it cannot be read.")
                .returning("macFilterPolicy"),
        },
}};

}  // namespace
}  // namespace catalogue
