#include "pmapi/set_radio.h"

#include "catalogue/catalogue.hpp"

PM_RECORD(RadioRecord, PM_FIELD(radio), PM_FIELD(transmitPower), PM_FIELD(channel),
          PM_FIELD(bandwidth));

namespace catalogue {

namespace {

const Entry kEntry{{
    .name = "set_radio",
    .source = "objest_nexumd_set_radio_pmapi.c",
    .summary = "Transmit power, channel and channel width of a radio",
    .methods = {method("set", PM_FUNCTION(pm_ubus_radio_set), "Sets a radio.", RecordIn{})},
}};

}  // namespace
}  // namespace catalogue
