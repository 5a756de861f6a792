#include "pmapi/workingmode.h"

#include "catalogue/catalogue.hpp"

PM_RECORD(UbusWorkingMode, PM_FIELD(workingMode), PM_FIELD(internetType));

namespace catalogue {

namespace {

const Entry kEntry{{
    .name = "workingmode",
    .source = "object_nexumd_workingmode_pmapi.c",
    .summary = "Bridge or route mode",
    .methods = {method("set", PM_FUNCTION(pm_ubus_workingmode_set), RecordIn{})
                    .example(R"({"workingMode": 1, "internetType": 1})")},
}};

}  // namespace
}  // namespace catalogue
