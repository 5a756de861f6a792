// The platform proxy: events by number, each answered by the family that owns it.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace gateway {

class Gateway;

using Bytes = std::vector<uint8_t>;

/// What follows the status word of a proxy reply.
struct ProxyReply {
  int32_t status = 0;
  Bytes payload = {};
};

/// Lives at namespace scope and answers one event:
///   const ProxyEvent kSetLock{CTSGW_EVENT_SET_LOCK, setLock};
struct ProxyEvent {
  using Answer = ProxyReply (*)(Gateway &gateway, std::span<const uint8_t> request);
  ProxyEvent(uint32_t event, Answer answer);
};

/// The bytes of a value or record, as a payload.
template <class Value>
Bytes bytesOf(const Value &value) {
  const auto *begin = reinterpret_cast<const uint8_t *>(&value);
  return {begin, begin + sizeof value};
}

/// A request's text, up to its zero or its end.
std::string_view textOf(std::span<const uint8_t> request);

}  // namespace gateway
