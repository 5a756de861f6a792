// Events to the platform proxy and messages to its manager modules.
#pragma once

#include <cstdint>
#include <cstring>

#include "frame/log.hpp"
#include "platform/proxy.h"

namespace pm {

using namespace platform;

/// One event and its answer: a status word, then the payload.
class ProxyExchange {
 public:
  /// Clears the reply, sends the event and returns the call's own result.
  int32_t send(uint32_t event, const void *request, uint32_t requestLength);

  /// The status that the proxy put before its payload.
  int32_t replyStatus() const;

  bool succeeded(int32_t callResult) const { return callResult == 0 && replyStatus() == 0; }

  /// The call's result, or the proxy's status when the call itself went well.
  int32_t outcome(int32_t callResult) const { return callResult != 0 ? callResult : replyStatus(); }

  /// What came behind the status.
  uint32_t payloadLength() const;

  /// Copies what came of the payload, at most `size` bytes, and returns how many they were.
  uint32_t copyPayload(void *record, uint32_t size) const;

 protected:
  ProxyExchange(uint8_t *reply, uint16_t capacity) : reply_(reply), capacity_(capacity) {}

  uint8_t *const reply_;

 private:
  const uint16_t capacity_;
  uint16_t length_ = 0;
};

template <uint16_t Capacity>
class ProxyReply : public ProxyExchange {
 public:
  ProxyReply() : ProxyExchange(bytes, Capacity) {}
  ProxyReply(const ProxyReply &) = delete;
  ProxyReply &operator=(const ProxyReply &) = delete;

  alignas(8) uint8_t bytes[Capacity];
};

/// Sends an event whose reply is a status alone. A failure is logged as the line `failure`; the
/// call's own result is what counts: a refusal that stands in the reply only is forgiven.
int32_t sendEvent(const Trail &log, uint32_t event, const void *request, uint32_t requestLength,
                  const char *failure);

/// Sends one request of the gateway-management class to a manager module; `replyLength` goes in as
/// the capacity and comes back as the length copied.
int32_t askManager(const char *module, uint32_t message, const void *request,
                   uint32_t requestLength, void *reply, uint16_t *replyLength);

}  // namespace pm
