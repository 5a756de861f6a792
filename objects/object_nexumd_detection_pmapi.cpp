#include <cstdio>

#include "frame/log.hpp"
#include "frame/proxy.hpp"
#include "frame/record_buffer.hpp"
#include "frame/status.hpp"
#include "platform/device.hpp"
#include "pmapi/detection.h"

using namespace pm;

static constexpr char kSourceTag[] = "object_nexumd_detection_pmapi.c";

namespace {

constexpr uint32_t kTestMarker = 4;
constexpr uint32_t kRateShift = 10;
constexpr uint32_t kTextSize = 32;

using SpeedReply = ProxyReply<HttpDownloadReply::kSize>;

}  // namespace

int32_t ubus_set_httpspeed_diagnostics(const HttpSpeedRequest *record) {
  const Trail log(kSourceTag);
  PM_LOG(log, kInfo, 0, "now in function ubus_set_httpspeed_diagnostics\n");
  if (log.lacks(record)) return kFailure;
  RecordBuffer<HttpDownloadRequest> request;
  request.put(request.requestText, reinterpret_cast<const char *>(record));
  request.put(request.requestWord, record->parameter);
  request.put(request.word272, kTestMarker);
  SpeedReply reply;
  return reply.send(CTSGW_EVENT_SET_HTTPDOWNLOAD_DIAGNOSTICS, request.bytes, request.kSize);
}

int32_t ubus_get_httpspeed_result(HttpSpeedResult *record) {
  const Trail log(kSourceTag);
  if (log.lacks(record)) return kFailure;
  SpeedReply reply;
  const int32_t status = reply.send(CTSGW_EVENT_GET_HTTPDOWNLOAD_DIAGNOSTICSRESULT, nullptr, 0);
  if (status < kOk) {
    return PM_LOG(log, kInfo, status,
                  "CTSGW_EVENT_GET_HTTPDOWNLOAD_DIAGNOSTICSRESULT failed, iRet=%d\n", status);
  }
  if (const int32_t refusal = reply.replyStatus(); refusal != kOk) {
    return PM_LOG(log, kInfo, refusal,
                  "CTSGW_EVENT_GET_HTTPDOWNLOAD_DIAGNOSTICSRESULT failed, iRet=%d, pAck->iRet=%d\n",
                  status, refusal);
  }
  const auto rate = load(reply.bytes, HttpDownloadReply::rate);
  snprintf(record->speed, sizeof record->speed, "%dMpbs", rate >> kRateShift);
  char state[kTextSize];
  copyText(state, load(reply.bytes, HttpDownloadReply::state));
  // How large a difference is depends on the C library; its sign does not.
  const int32_t compared = strcmp(state, "Completed");
  const int32_t difference = (compared > 0) - (compared < 0);
  record->status = difference == 0 ? 1 : 0;
  return difference;
}
