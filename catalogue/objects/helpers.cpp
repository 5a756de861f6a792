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

Method macToText(const char *function, int32_t (*call)(const uint8_t *, char *, uint32_t),
                 const char *summary) {
  return method(function, call, summary, MacIn{"mac"}, TextOut{"text", kMacText},
                In{"length", kMacText})
      .returning("written");
}

const Entry kEntry{{
    .name = "helpers",
    .source = "",
    .summary = "Conversions and look-ups that log nothing",
    .methods =
        {
            macToText(PM_FUNCTION(MACToStr2), "Lower-case pairs with \":\"."),
            macToText(PM_FUNCTION(MacToStr), "Twelve upper-case digits."),
            macToText(PM_FUNCTION(MacToString), "Twelve lower-case digits."),
            method(PM_FUNCTION(HexCharToVal), "Value of a hexadecimal digit, else -1.", In{"digit"})
                .returning("value"),
            method(PM_FUNCTION(StrToInt), "The number at the start of a text.", TextIn{"text"},
                   Out{"out"})
                .returning("converted"),
            method(PM_FUNCTION(ToUpperCase), "Upper-cases a text.", TextInOut{"text"})
                .returning("length"),
            method(PM_FUNCTION(del_char), "Removes a character from a text.", TextInOut{"text"},
                   In{"unwanted"}),
            method(PM_FUNCTION(IsJsonObjOrArray), "Whether an item of the store holds JSON.",
                   TextIn{"item"})
                .returning("isJson"),
            method(PM_FUNCTION(file_size), "Size of a file, -1 when it cannot be opened.",
                   TextIn{"path"})
                .returning("size"),
            method(PM_FUNCTION(GetUpTime), "Seconds since the system was started.")
                .returning("seconds"),
            method(PM_FUNCTION(wlan_get_ad_db_q), "The association view of one station.",
                   TextIn{"instance"}, PlatformOut<AssociatedDeviceView>{"view"}),
            method(PM_FUNCTION(wlan_get_ad), "Asks for that view without a buffer.",
                   TextIn{"instance"}, Scratch{AssociatedDeviceView::kSize}),
            method(PM_FUNCTION(check_dev_valid), "Whether an attached device counts.",
                   PlatformIn<DeviceRecord>{"deviceRecord"})
                .returning("counts"),
            method(PM_FUNCTION(net_json_check_dev_valid), "The same for the count of stations.",
                   PlatformIn<DeviceRecord>{"deviceRecord"})
                .returning("counts"),
        },
}};

}  // namespace
}  // namespace catalogue
