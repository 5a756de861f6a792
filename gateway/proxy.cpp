#include "gateway/proxy.hpp"

#include <algorithm>
#include <cstring>
#include <map>
#include <string>

#include "boundary/boundary.hpp"
#include "boundary/names.hpp"
#include "boundary/reply.hpp"
#include "gateway/calls.hpp"
#include "gateway/gateway.hpp"
#include "platform/proxy.h"

namespace gateway {

namespace {

/// The room that the callers of an event offer for its reply; another one is a slip of the library,
/// even where the reply would fit.
struct EventForm {
  uint32_t event;
  uint16_t capacity;
  uint16_t otherCapacity = 0;
};

constexpr EventForm kEvents[] = {
    {CTSGW_EVENT_SET_HTTPDOWNLOAD_DIAGNOSTICS, 20480},
    {CTSGW_EVENT_GET_HTTPDOWNLOAD_DIAGNOSTICSRESULT, 20480},
    {CTSGW_EVENT_GET_LINKSTAT_BY_STAMODE, 2048},
    {CTSGW_EVENT_GET_PORTLINKSTAT_TYPE, 2048},
    {CTSGW_EVENT_QUERY_ADEV_PARAM, 4096, 20480},
    {CTSGW_EVENT_GET_WLANRADIOINFO, 20480},
    {CTSGW_EVENT_GET_BW_STATS, 4096},
    {CTSGW_EVENT_GET_HARD_STATS, 4096},
    {CTSGW_EVENT_DEL_BW, 2048},
    {CTSGW_EVENT_SET_BW, 2048},
    {CTSGW_EVENT_SET_LOCK, 2048},
    {CTSGW_EVENT_GET_BANDWIDTH, 2048},
    {CTSGW_EVENT_CLEAN_HWNAT, 2048},
    {CTSGW_EVENT_SET_KERNELCOUNT, 2048},
};

std::map<uint32_t, ProxyEvent::Answer> &answers() {
  static std::map<uint32_t, ProxyEvent::Answer> registered;
  return registered;
}

void checkCapacity(uint32_t event, uint16_t capacity) {
  const EventForm *form = std::ranges::find(kEvents, event, &EventForm::event);
  if (form == std::end(kEvents)) return;
  if (capacity == form->capacity || capacity == form->otherCapacity) return;
  Gateway::current().complain(eventName(event) + ": " + std::to_string(capacity) +
                              " bytes are offered for the reply");
}

Bytes answer(uint32_t event, std::span<const uint8_t> request) {
  const auto found = answers().find(event);
  if (found == answers().end()) {
    throw Refusal(kNotThereYet, "this event is not there yet in the virtual gateway");
  }
  const ProxyReply reply = found->second(Gateway::current(), request);
  Bytes framed = bytesOf(reply.status);
  framed.insert(framed.end(), reply.payload.begin(), reply.payload.end());
  return framed;
}

}  // namespace

ProxyEvent::ProxyEvent(uint32_t event, Answer answer) {
  answers()[event] = answer;
}

std::string_view textOf(std::span<const uint8_t> request) {
  const char *begin = reinterpret_cast<const char *>(request.data());
  return {begin, strnlen(begin, request.size())};
}

}  // namespace gateway

using namespace gateway;

int32_t gateway::ctSgw_ssend_to_proxy(uint32_t event, const void *request, uint32_t requestLength,
                                      void *reply, uint16_t *replyLength) {
  const auto *begin = static_cast<const uint8_t *>(request);
  checkCapacity(event, *replyLength);
  writeReply(answer(event, {begin, request == nullptr ? 0 : requestLength}), reply, replyLength);
  return kOk;
}
