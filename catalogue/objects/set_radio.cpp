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
    .methods =
        {method("set", PM_FUNCTION(pm_ubus_radio_set), RecordIn{})
             .example(R"({"radio": "5G", "transmitPower": "80", "channel": "44", "bandwidth": 1})")
             .otherExample(
                 R"({"radio": "2.4G", "transmitPower": "60", "channel": "6", "bandwidth": 1})")},
}};

}  // namespace
}  // namespace catalogue
