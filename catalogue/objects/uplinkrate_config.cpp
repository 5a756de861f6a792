#include "pmapi/uplinkrate_config.h"

#include "catalogue/catalogue.hpp"

PM_RECORD(UplinkRateConfigRecord, PM_FIELD(interface), PM_FIELD(reportInterval),
          PM_FIELD(sampleInterval));

namespace catalogue {

namespace {

const Entry kEntry{{
    .name = "uplinkrate_config",
    .source = "object_nexumd_uplinkrate_config_pmapi.c",
    .summary = "How often the rates of an interface are sampled and reported",
    .methods =
        {method("set", PM_FUNCTION(pm_ubus_uplinkrate_config_set), RecordIn{})
             .example(
                 R"({"interface": "nbif0", "reportInterval": "120", "sampleInterval": "60"})")},
}};

}  // namespace
}  // namespace catalogue
