#include "pmapi/control.h"

#include "catalogue/catalogue.hpp"

PM_RECORD(DevLogStats, PM_FIELD(logEnable), PM_FIELD(logLevel), PM_FIELD(logParam));

namespace catalogue {

namespace {

const Entry kEntry{{
    .name = "control",
    .source = "object_nexumd_control_pmapi.c",
    .summary = "Restart, locks, counters, LEDs, IPv6 and log settings",
    .methods =
        {
            method("set", PM_FUNCTION(pm_ubus_control_set), In{"type"})
                .saying("Restarts the gateway (1), the 2.4 GHz radio (2) or the 5 GHz radio (3).")
                .example(R"({"type": 2})")
                .otherExample(R"({"type": 1})"),
            method("set_locknet", PM_FUNCTION(pm_ubus_set_locknet), In{"value"})
                .example(R"({"value": 1})"),
            method("lockstatus_get", PM_FUNCTION(pm_ubus_lockstatus_get), Out{"lockStatus"}),
            method("set_pmfctrl", PM_FUNCTION(pm_ubus_set_pmfctrl), In{"value"})
                .example(R"({"value": 1})"),
            method("get_pmfctrl", PM_FUNCTION(pm_ubus_get_pmfctrl), InOut{"value"})
                .saying("Reads protected management frames; written only when both radios agree."),
            method("set_hwnetClean", PM_FUNCTION(pm_ubus_set_hwnetClean)),
            method("set_kernelcount", PM_FUNCTION(pm_ubus_set_kernelcount), In{"value"})
                .example(R"({"value": 40})"),
            method("get_kernelcount", PM_FUNCTION(pm_ubus_get_kernelcount), Out{"count"})
                .saying("Reads the kernel's packet-skip counter; -1 when it is switched off."),
            method("dev_restore_special", PM_FUNCTION(pm_ubus_dev_restore_special), In{"kind", 5},
                   In{"a", 0}, In{"b", 0}, In{"c", 0}),
            method("led_control", PM_FUNCTION(pm_ubus_led_control), In{"a"}, In{"b"}, In{"c", 0},
                   In{"d", 0})
                .example(R"({"a": 2, "b": 1})"),
            method("led_get", PM_FUNCTION(pm_ubus_led_get), In{"a"}, In{"b", 0}, In{"c", 0},
                   In{"d", 0})
                .returning("ledStatus")
                .example(R"({"a": 2})"),
            method("ipv6enable_get", PM_FUNCTION(pm_ubus_ipv6enable_get), Out{"enable"}),
            method("ipv6enable_set", PM_FUNCTION(pm_ubus_ipv6enable_set), In{"enable"})
                .saying(
                    "Switches IPv6; in router mode the Internet connection is rewritten for it.")
                .example(R"({"enable": 0})"),
            method("set_devlogstats", PM_FUNCTION(pm_ubus_set_devlogstats), RecordIn{})
                .example(R"({"logEnable": 1, "logLevel": 2, "logParam": 3})")
                .otherExample(R"({"logEnable": 1, "logLevel": 2, "logParam": 0})"),
            method("logstats_get", PM_FUNCTION(pm_ubus_logstats_get), RecordOut{}),
        },
}};

}  // namespace
}  // namespace catalogue
