#include "pmapi/meshtopology.h"

#include "catalogue/catalogue.hpp"

PM_RECORD(MeshBackhaulEntry, PM_FIELD(bhType), PM_FIELD(neighborAlMac), PM_FIELD(ssid),
          PM_FIELD(passPhrase).secret(), PM_FIELD(security));
PM_RECORD(MeshBssEntry, PM_FIELD(bssid), PM_FIELD(ssid), PM_COUNTED(staMac, staNum),
          PM_FIELD(staNum));
PM_RECORD(MeshRadioBlock, PM_COUNTED(bss, bssNum), PM_FIELD(bssNum));
PM_RECORD(MeshDeviceSlot, PM_FIELD(deviceNum), PM_FIELD(meshRole), PM_FIELD(alMac),
          PM_COUNTED(bhInfo, bhNum), PM_FIELD(bhNum), PM_FIELD(radioB), PM_FIELD(radioA),
          PM_COUNTED(otherClientMac, otherClientNum), PM_FIELD(otherClientNum), PM_FIELD(staTotal));
PM_RECORD(MeshTopologyRecord, PM_COUNTED(devices, devices[0].deviceNum));

namespace catalogue {

// The first slot's first word counts the slots.

namespace {

constexpr size_t kDumpSize = 8192;
constexpr size_t kScratchSize = 768;

const Entry kEntry{{
    .name = "meshtopology",
    .source = "object_nexumd_meshtopology_pmapi.c",
    .summary = "The mesh as the multi-AP daemon sees it",
    .methods =
        {
            method("get", PM_FUNCTION(pm_ubus_get_meshtopology), RecordOut{}),
            method(PM_FUNCTION(MeshGetTopology), TextOut{"buffer", kDumpSize},
                   InOut{"length", kDumpSize}),
            method(PM_FUNCTION(pm_get_dumpbuf_info), TextIn{"text", kDumpSize - 1},
                   Scratch{kScratchSize}, RecordOut{})
                .example(R"({"text":
                    "{\"topology information\": [{\"AL MAC\": \"1\", \"Device role\": \"Agent\"}]}"})"),
        },
}};

}  // namespace
}  // namespace catalogue
