#include "pmapi/hardwareinfo.h"

#include "catalogue/catalogue.hpp"

PM_RECORD(HardwareInfoRecord, PM_FIELD(cpuType), PM_FIELD(flashSize), PM_FIELD(ramSize),
          PM_FIELD(cpuUsage), PM_FIELD(ramUsage));

namespace catalogue {

namespace {

const Entry kEntry{{
    .name = "hardwareinfo",
    .source = "object_nexumd_hardwareinfo_pmapi.c",
    .summary = "Processor, flash and memory",
    .methods = {method("get", PM_FUNCTION(pm_ubus_get_hardware_info), RecordOut{})},
}};

}  // namespace
}  // namespace catalogue
