#include "pmapi/mesh_role.h"

#include "catalogue/catalogue.hpp"

PM_RECORD(MeshRoleRecord, PM_FIELD(meshRole));

namespace catalogue {

namespace {

const Entry kEntry{{
    .name = "mesh_role",
    .source = "object_nexumd_mesh_role_pmapi.c",
    .summary = "Mesh role of the gateway",
    .methods = {method("set", PM_FUNCTION(pm_ubus_meshrole_set), RecordIn{})
                    .example(R"({"meshRole": 2})")},
}};

}  // namespace
}  // namespace catalogue
