#include "pmapi/port.h"

#include "catalogue/catalogue.hpp"

PM_RECORD(PortInfoRecord, PM_FIELD(portNumber), PM_FIELD(portType), PM_FIELD(portRate),
          PM_FIELD(portMac), PM_FIELD(portConnection));

namespace catalogue {

namespace {

constexpr size_t kLongestPath = 31;

const Entry kEntry{{
    .name = "port",
    .source = "object_nexumd_port_pmapi.c",
    .summary = "Ethernet ports",
    .methods = {method("get", PM_FUNCTION(pm_ubus_get_portinfo), In{"portIndex"},
                       TextIn{"instance", kLongestPath}, RecordOut{})
                    .saying("Reads one port, by its number from 0 on and its instance path.")
                    .example(R"({"portIndex": 0, "instance": "IGD.LD1.ETH1"})")},
}};

}  // namespace
}  // namespace catalogue
