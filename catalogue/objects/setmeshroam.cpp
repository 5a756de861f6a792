#include "pmapi/setmeshroam.h"

#include "catalogue/catalogue.hpp"

PM_RECORD(MeshRoamRecord, PM_FIELD(meshRoamingEnable));

namespace catalogue {

namespace {

const Entry kEntry{{
    .name = "setmeshroam",
    .source = "object_nexumd_setmeshroam_pmapi.c",
    .summary = "Mesh roaming on and off",
    .methods = {method("set", PM_FUNCTION(pm_ubus_set_meshroam), RecordIn{})
                    .example(R"({"meshRoamingEnable": 0})")},
}};

}  // namespace
}  // namespace catalogue
