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
            method("set", PM_FUNCTION(pm_ubus_control_set),
                   "Restarts the gateway (1), the 2.4 GHz radio (2) or the 5 GHz radio (3).",
                   In{"type"}),
            method("set_locknet", PM_FUNCTION(pm_ubus_set_locknet), "Sets the network lock.",
                   In{"value"}),
            method("lockstatus_get", PM_FUNCTION(pm_ubus_lockstatus_get),
                   "The firewall's lock word.", Out{"lockStatus"}),
            method("set_pmfctrl", PM_FUNCTION(pm_ubus_set_pmfctrl),
                   "Protected management frames of both radios.", In{"value"}),
            method("get_pmfctrl", PM_FUNCTION(pm_ubus_get_pmfctrl),
                   "Reads them; written only when both radios agree.", InOut{"value"}),
            method("set_hwnetClean", PM_FUNCTION(pm_ubus_set_hwnetClean),
                   "Clears the hardware NAT table."),
            method("set_kernelcount", PM_FUNCTION(pm_ubus_set_kernelcount),
                   "Sets the kernel's packet-skip counter.", In{"value"}),
            method("get_kernelcount", PM_FUNCTION(pm_ubus_get_kernelcount),
                   "Reads it; -1 when it is switched off.", Out{"count"}),
            method("dev_restore_special", PM_FUNCTION(pm_ubus_dev_restore_special),
                   "Restores special settings; the kind is always 5.", In{"kind", 5}, In{"a", 0},
                   In{"b", 0}, In{"c", 0}),
            method("led_control", PM_FUNCTION(pm_ubus_led_control), "Drives an LED.", In{"a"},
                   In{"b"}, In{"c", 0}, In{"d", 0}),
            method("led_get", PM_FUNCTION(pm_ubus_led_get), "Reads an LED.", In{"a"}, In{"b", 0},
                   In{"c", 0}, In{"d", 0})
                .returning("ledStatus"),
            method("ipv6enable_get", PM_FUNCTION(pm_ubus_ipv6enable_get),
                   "Whether IPv6 is enabled.", Out{"enable"}),
            method("ipv6enable_set", PM_FUNCTION(pm_ubus_ipv6enable_set),
                   "Switches IPv6; in router mode the Internet connection is rewritten for it.",
                   In{"enable"}),
            method("set_devlogstats", PM_FUNCTION(pm_ubus_set_devlogstats),
                   "Log settings; levels 0 to 3.", RecordIn{}),
            method("logstats_get", PM_FUNCTION(pm_ubus_logstats_get), "Reads the log settings.",
                   RecordOut{}),
        },
}};

}  // namespace
}  // namespace catalogue
