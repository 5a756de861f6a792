#include "pmapi/detection.h"

#include <cstring>

#include "catalogue/catalogue.hpp"

PM_RECORD(HttpSpeedRequest, PM_FIELD(text), PM_FIELD(parameter),
          PM_FIELD(textContinued).capacity(224));
PM_RECORD(HttpSpeedResult, PM_FIELD(speed), PM_FIELD(status));

namespace catalogue {

namespace {

constexpr size_t kRequestSize = kShape<HttpSpeedRequest>.allocation();
constexpr size_t kLongestRequest = kRequestSize - 1;

/// The word lies inside the text's room, so a longer text is what the word holds.
int64_t startTest(Call &call) {
  const std::string text = call.text("text", kLongestRequest);
  const auto parameter = call.integer<uint32_t>("parameter", 0);
  Buffer request(kRequestSize);
  std::memcpy(request.data(), text.data(), text.size());
  if (text.size() < sizeof HttpSpeedRequest::text) {
    request.as<HttpSpeedRequest *>()->parameter = parameter;
  }
  call.handOver(kShape<HttpSpeedRequest>, request.data());
  return callExport(ubus_set_httpspeed_diagnostics, request.as<const HttpSpeedRequest *>());
}

const Entry kEntry{{
    .name = "detection",
    .source = "object_nexumd_detection_pmapi.c",
    .summary = "HTTP download speed test",
    .methods =
        {
            customMethod("set", "ubus_set_httpspeed_diagnostics",
                         {argument("text", textType(kLongestRequest)),
                          optional(argument("parameter", "uint32"))},
                         startTest)
                .example(R"({"text": "http://speed.example.net/100M.bin"})"),
            method("get", PM_FUNCTION(ubus_get_httpspeed_result), RecordOut{"result"})
                .saying("Reads the result of the speed test; 0 once it is completed.")
                .answering(1),
        },
}};

}  // namespace
}  // namespace catalogue
