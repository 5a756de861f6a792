// The HTTP download test: it runs for a while by the gateway's clock and leaves a rate behind.
#include <nlohmann/json.hpp>
#include <string>

#include "boundary/boundary.hpp"
#include "gateway/gateway.hpp"
#include "gateway/proxy.hpp"
#include "gateway/section.hpp"
#include "platform/device.hpp"
#include "platform/proxy.h"

namespace gateway {

namespace {

constexpr int64_t kNeverStarted = -1;
constexpr uint32_t kDownload = 4;

class SpeedTest : public Section {
 public:
  SpeedTest() : Section("speedTest") {}

  /// What the line will be found to carry, and how long that takes to find out.
  uint32_t rate = 0;
  uint32_t seconds = 15;
  std::string request;
  uint32_t parameter = 0;
  int64_t startedAt = kNeverStarted;

  void load(const Json &value, const std::string &place) override {
    Members members(value, place);
    members.word("rate", &rate);
    members.word("seconds", &seconds);
    members.text("request", &request);
    members.word("parameter", &parameter);
    members.number("startedAt", &startedAt);
    members.finish();
  }
  Json save() const override {
    return {{"rate", rate},
            {"seconds", seconds},
            {"request", request},
            {"parameter", parameter},
            {"startedAt", startedAt}};
  }
  void reset() override {
    rate = 0;
    seconds = 15;
    request.clear();
    parameter = 0;
    startedAt = kNeverStarted;
  }

  const char *state(int64_t now) const {
    if (startedAt == kNeverStarted) return "None";
    return now - startedAt < seconds ? "Running" : "Completed";
  }
};

SpeedTest speedTest;

ProxyReply start(Gateway &gateway, std::span<const uint8_t> request) {
  if (request.size() != HttpDownloadRequest::kSize) {
    throw Refusal(kBadRequest, "the request has " + std::to_string(request.size()) + " bytes");
  }
  const Row asked = fieldsOf<HttpDownloadRequest>(const_cast<uint8_t *>(request.data()));
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
  const std::string state = speedTest.state(gateway.clock().time());
  reply.setText(HttpDownloadReply::state, state);
  if (state == "Completed") reply.setWord(HttpDownloadReply::rate, speedTest.rate);
  return {kOk, Bytes(whole.begin() + PROXY_REPLY_STATUS_SIZE, whole.end())};
}

const ProxyEvent kStart{CTSGW_EVENT_SET_HTTPDOWNLOAD_DIAGNOSTICS, start};
const ProxyEvent kResult{CTSGW_EVENT_GET_HTTPDOWNLOAD_DIAGNOSTICSRESULT, result};

}  // namespace

}  // namespace gateway
