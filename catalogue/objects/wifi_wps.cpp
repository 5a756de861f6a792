#include "pmapi/wifi_wps.h"

#include "catalogue/catalogue.hpp"

namespace catalogue {
namespace {

const Entry kEntry{{
    .name = "wifi_wps",
    .source = "object_nexumd_wifi_wps_pmapi.c",
    .summary = "Wi-Fi protected set-up",
    .methods = {method("set", PM_FUNCTION(pm_ubus_wifi_wps_set), TextIn{"radio"})
                    .saying("Starts WPS on \"2.4G\", \"5G\" or \"all\".")
                    .example(R"({"radio": "all"})")
                    .otherExample(R"({"radio": "5G"})")},
}};

}  // namespace
}  // namespace catalogue
