// The HTTP download test: it runs for a while by the gateway's clock and leaves a rate behind.
#include <string>

#include "boundary/boundary.hpp"
#include "gateway/gateway.hpp"
#include "gateway/proxy.hpp"
#include "gateway/requests.hpp"
#include "gateway/section.hpp"
#include "platform/device.hpp"
#include "platform/proxy.h"

namespace gateway {

namespace {

constexpr int64_t kNeverStarted = -1;
constexpr uint32_t kDownload = 4;

struct SpeedTest {
  uint32_t rate = 0;
  uint32_t seconds = 15;
  std::string request;
  uint32_t parameter = 0;
  int64_t startedAt = kNeverStarted;

  const char *progress(int64_t now) const {
    if (startedAt == kNeverStarted) return "None";
    return now - startedAt < seconds ? "Running" : "Completed";
  }
};

}  // namespace

}  // namespace gateway

PM_RECORD(gateway::SpeedTest, PM_FIELD(rate).means("what the line will be found to carry"),
          PM_FIELD(seconds).means("how long it takes to find out").means(platform::unit("s")),
          PM_FIELD(request).means("of the test that was started last"),
          PM_FIELD(parameter).means("the word that came with that request"),
          PM_FIELD(startedAt).means("the gateway's time then; -1 when no test was started"));

namespace gateway {

namespace {

SectionOf<SpeedTest> section{"speedTest", "The HTTP download: what it reaches, and one that runs"};
SpeedTest &speedTest = section.state();

ProxyReply start(Gateway &gateway, std::span<const uint8_t> request) {
  const Row asked = exactly<HttpDownloadRequest>(request);
  if (asked.word(HttpDownloadRequest::word0) != 0 ||
      asked.word(HttpDownloadRequest::word264) != 0 ||
      asked.word(HttpDownloadRequest::word272) != kDownload) {
    throw Refusal(kBadRequest, "no request of a download");
  }
  speedTest.request = asked.text(HttpDownloadRequest::requestText);
  speedTest.parameter = asked.word(HttpDownloadRequest::requestWord);
  if (speedTest.request.empty()) return {kInvalidField};
  speedTest.startedAt = gateway.clock().time();
  return {};
}

/// The payload begins behind the status word, the fields are counted from before it.
ProxyReply result(Gateway &gateway, std::span<const uint8_t>) {
  Bytes whole(HttpDownloadReply::kSize);
  const Row reply = fieldsOf<HttpDownloadReply>(whole.data());
  const std::string state = speedTest.progress(gateway.clock().time());
  reply.setText(HttpDownloadReply::state, state);
  if (state == "Completed") reply.setWord(HttpDownloadReply::rate, speedTest.rate);
  return {kOk, Bytes(whole.begin() + PROXY_REPLY_STATUS_SIZE, whole.end())};
}

const ProxyEvent kStart{CTSGW_EVENT_SET_HTTPDOWNLOAD_DIAGNOSTICS, start};
const ProxyEvent kResult{CTSGW_EVENT_GET_HTTPDOWNLOAD_DIAGNOSTICSRESULT, result};

}  // namespace

}  // namespace gateway
