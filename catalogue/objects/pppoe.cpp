#include "pmapi/pppoe.h"

#include "catalogue/catalogue.hpp"

PM_RECORD(UbusPppoe, PM_FIELD(pppoeUser), PM_FIELD(pppoePwd).capacity(68).secret());

namespace catalogue {

namespace {

const Entry kEntry{{
    .name = "pppoe",
    .source = "object_nexumd_pppoe_pmapi.c",
    .summary = "PPPoE account of the WAN connection",
    .methods = {method("set", PM_FUNCTION(pm_ubus_pppoe_set), RecordIn{})
                    .example(R"({"pppoeUser": "07558823417@home", "pppoePwd": "a new one"})")},
}};

}  // namespace
}  // namespace catalogue
