#include "pmapi/workingmode.h"

#include "tools/catalogue/catalogue.hpp"

namespace command {

PM_RECORD(UbusWorkingMode, PM_FIELD(workingMode), PM_FIELD(internetType));

namespace {

const Entry kEntry{{
    .name = "workingmode",
    .source = "object_nexumd_workingmode_pmapi.c",
    .summary = "Bridge or route mode",
    .methods = {method("set", PM_FUNCTION(pm_ubus_workingmode_set), "Switches the mode.",
                       RecordIn{})},
}};

}  // namespace
}  // namespace command
