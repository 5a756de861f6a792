#include "pmapi/meshinfo.h"

#include "catalogue/catalogue.hpp"

PM_RECORD(MeshInfoRecord, PM_FIELD(meshRole), PM_FIELD(meshAlmac), PM_FIELD(roamingEnable),
          PM_FIELD(meshStatus), PM_FIELD(bhType), PM_FIELD(bhalmac), PM_FIELD(bhSsid),
          PM_FIELD(bhPassPhrase).secret(), PM_FIELD(bhSecurity), PM_FIELD(reserved1),
          PM_FIELD(reserved2), PM_FIELD(staTotal));

namespace catalogue {

namespace {

const Entry kEntry{{
    .name = "meshinfo",
    .source = "object_nexmud_meshinfo_pmapi.c",
    .summary = "The gateway's own state in the mesh",
    .methods =
        {
            method("get", PM_FUNCTION(pm_ubus_get_meshinfo), RecordOut{}),
            method(PM_FUNCTION(ubus_getmeshRole)).returning("meshRole"),
            method(PM_FUNCTION(ubus_getroamingEnable)).returning("roamingEnable"),
        },
}};

}  // namespace
}  // namespace catalogue
