#include "pmapi/config.h"

#include <cjson/cJSON.h>

#include <memory>

#include "catalogue/catalogue.hpp"

PM_RECORD(UbusAddItem, PM_FIELD(item), PM_FIELD(value).capacity(4096));

namespace catalogue {

namespace {

constexpr const char *kStore = "/userconfig/nexumd_cfgfile";
constexpr const char *kTemporary = "/userconfig/nexumd_cfgfile.tmp";
constexpr size_t kLongestPath = 255;
constexpr size_t kLongestItem = 255;
constexpr int64_t kLargestValue = 4096;

// Uplink credentials are kept here among everything else.
bool holdsSecret(const std::string &item) {
  return item.find("password") != std::string::npos;
}

int64_t addItem(Call &call) {
  Buffer record(kShape<UbusAddItem>.allocation());
  call.record(nullptr, kShape<UbusAddItem>, record.data());
  const auto *item = record.as<const UbusAddItem *>();
  const std::string name(boundedText(item->item, sizeof item->item));
  if (holdsSecret(name))
    call.hide(std::string(boundedText(item->value, record.size() - sizeof *item)));
  return callExport(pm_ubus_config_additem, item, call.text("path", kLongestPath, kStore).c_str(),
                    call.text("temporaryPath", kLongestPath, kTemporary).c_str());
}

int32_t getAsJson(Call &call, const std::string &item, const std::string &path) {
  struct Release {
    void operator()(cJSON *tree) const { cJSON_Delete(tree); }
  };
  const std::unique_ptr<cJSON, Release> values(cJSON_CreateObject());
  const int32_t status =
      callExport(pm_ubus_config_getitem, item.c_str(), values.get(), 0, path.c_str());
  char *text = cJSON_PrintUnformatted(values.get());
  call.putJson("value", text);
  cJSON_free(text);
  return status;
}

int64_t getItem(Call &call) {
  const std::string item = call.text("item", kLongestItem);
  const std::string path = call.text("path", kLongestPath, kStore);
  const auto length = call.integer<int32_t>("length", kLargestValue);
  if (length < 0 || length > kLargestValue) call.refuse("length", "outside 0 to 4096");
  if (length == 0) return getAsJson(call, item, path);
  Buffer value(static_cast<size_t>(length));
  const int32_t status =
      callExport(pm_ubus_config_getitem, item.c_str(), value.data(), length, path.c_str());
  call.putText("value", boundedText(value.data(), value.size()), holdsSecret(item));
  return status;
}

const Entry kEntry{{
    .name = "config",
    .source = "object_nexumd_config_pmapi.c",
    .summary = "The daemon's item store, a file of lines item=value",
    .methods =
        {
            customMethod("add", "pm_ubus_config_additem",
                         {record<UbusAddItem>(Direction::kIn),
                          optional(argument("path", textType(kLongestPath))),
                          optional(argument("temporaryPath", textType(kLongestPath)))},
                         addItem)
                .example(R"({"item": "reportInterval", "value": "30"})"),
            customMethod(
                "get", "pm_ubus_config_getitem",
                {argument("item", textType(kLongestItem)), optional(argument("length", "int32")),
                 optional(argument("path", textType(kLongestPath))),
                 result("value", "text or JSON")},
                getItem)
                .saying("Reads an item, as text of `length` bytes or with length 0 as JSON.")
                .example(R"({"item": "reportInterval"})"),
            method("delete", PM_FUNCTION(pm_ubus_config_deleteitem), TextIn{"item", kLongestItem},
                   TextIn{"path", kLongestPath, kStore},
                   TextIn{"temporaryPath", kLongestPath, kTemporary})
                .example(R"({"item": "reportInterval"})"),
        },
}};

}  // namespace
}  // namespace catalogue
