#include "pmapi/qos.h"

#include "catalogue/catalogue.hpp"

PM_RECORD(UbusQosRule, PM_FIELD(param1).optional(), PM_FIELD(param2).optional(),
          PM_FIELD(param3).optional(), PM_FIELD(param4).optional(), PM_FIELD(param5).optional(),
          PM_FIELD(ip1).optional(), PM_FIELD(port1).optional(), PM_FIELD(ip2).optional(),
          PM_FIELD(port2).optional(), PM_FIELD(label), PM_FIELD(mac1).optional(),
          PM_FIELD(mac2).optional());
PM_RECORD(UbusQos, PM_FIELD(qosCommon), PM_COUNTED(rules, count).capacity(30));

namespace catalogue {

namespace {

constexpr char kRules[] = R"({"qosCommon": 1, "rules": [
    {"ip1": "192.168.1.20", "port1": "8080", "label": "games", "mac1": "00:11:22:33:44:55"}]})";

const Entry kEntry{{
    .name = "qos",
    .source = "object_nexumd_qos_pmapi.c",
    .summary = "Traffic classification rules",
    .methods =
        {
            method("set", PM_FUNCTION(pm_ubus_nexumd_qos_set), RecordIn{}).example(kRules),
            method("get", PM_FUNCTION(pm_ubus_nexumd_qos_get), RecordOut{})
                .after("qos set", kRules),
            method("clear_all", PM_FUNCTION(pm_qc_clear_all)).after("qos set", kRules),
        },
}};

}  // namespace
}  // namespace catalogue
