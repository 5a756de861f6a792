#include "pmapi/helpers.h"

#include "catalogue/catalogue.hpp"
#include "catalogue/platform_parameters.hpp"
#include "platform/attached_devices.hpp"
#include "platform/wlan.hpp"

namespace catalogue {
namespace {

using platform::AssociatedDeviceView;
using platform::DeviceRecord;

constexpr size_t kMacText = 18;

/// The virtual gateway, like a platform, has no view without a buffer.
constexpr int64_t kNoBuffer = -2009;

constexpr char kAssociation[] = R"({"instance": "IGD.LD1.WLAN1.AD1"})";

Method macToText(const char *function, int32_t (*call)(const uint8_t *, char *, uint32_t)) {
  return method(function, call, MacIn{"mac"}, TextOut{"text", kMacText}, In{"length", kMacText})
      .returning("written")
      .example(R"({"mac": "00:e0:4c:77:31:a0"})");
}

template <class Check>
Method checkDevice(const char *function, Check *check) {
  return method(function, check, PlatformIn<DeviceRecord>{"deviceRecord"})
      .returning("counts")
      .example(R"({"deviceRecord": {"accessType": 1, "linkFlag": 1, "ipv4Address": "192.168.1.12",
                                    "mac": "f4:0f:24:10:88:01"}})");
}

const Entry kEntry{{
    .name = "helpers",
    .source = "",
    .summary = "Conversions and look-ups that log nothing",
    .methods =
        {
            macToText(PM_FUNCTION(MACToStr2)),
            macToText(PM_FUNCTION(MacToStr)),
            macToText(PM_FUNCTION(MacToString)),
            method(PM_FUNCTION(HexCharToVal), In{"digit"})
                .returning("value")
                .example(R"({"digit": "b"})"),
            method(PM_FUNCTION(StrToInt), TextIn{"text"}, Out{"out"})
                .returning("converted")
                .example(R"({"text": "42 stations"})"),
            method(PM_FUNCTION(ToUpperCase), TextInOut{"text"})
                .returning("length")
                .example(R"({"text": "42 stations"})"),
            method(PM_FUNCTION(del_char), TextInOut{"text"}, In{"unwanted"})
                .example(R"({"text": "42 stations", "unwanted": " "})"),
            method(PM_FUNCTION(IsJsonObjOrArray), TextIn{"item"})
                .returning("isJson")
                .example(R"({"item": "reportInterval"})"),
            method(PM_FUNCTION(file_size), TextIn{"path"})
                .returning("size")
                .example(R"({"path": "/userconfig/nexumd_cfgfile"})"),
            method(PM_FUNCTION(GetUpTime)).returning("seconds"),
            method(PM_FUNCTION(wlan_get_ad_db_q), TextIn{"instance"},
                   PlatformOut<AssociatedDeviceView>{"view"})
                .example(kAssociation),
            method(PM_FUNCTION(wlan_get_ad), TextIn{"instance"},
                   Scratch{AssociatedDeviceView::kSize})
                .example(kAssociation)
                .answering(kNoBuffer),
            checkDevice(PM_FUNCTION(check_dev_valid))
                .saying("Whether the sampling of stations counts an attached device."),
            checkDevice(PM_FUNCTION(net_json_check_dev_valid))
                .saying("Whether the count of stations counts an attached device."),
        },
}};

}  // namespace
}  // namespace catalogue
