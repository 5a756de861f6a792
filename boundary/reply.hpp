// Replies with a length that goes in as capacity and comes out as length.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <tuple>
#include <type_traits>

#include "boundary/boundary.hpp"

namespace boundary {

/// Writes a reply; one that does not fit its caller's buffer is refused.
void writeReply(std::span<const uint8_t> reply, void *out, uint16_t *length);

/// What a fault makes of a reply: its status word and payload, and the length reported for it.
void writeFaultyReply(const Fault &fault, void *out, uint16_t *length);

/// The same for a call whose last two parameters are a reply and its length; others have none.
template <class... Arguments>
void writeFaultyReply(const Fault &fault, const std::tuple<Arguments...> &arguments) {
  constexpr size_t kCount = sizeof...(Arguments);
  if constexpr (kCount >= 2) {
    using Reply = std::tuple_element_t<kCount - 2, std::tuple<Arguments...>>;
    using Length = std::tuple_element_t<kCount - 1, std::tuple<Arguments...>>;
    if constexpr (std::is_same_v<Reply, void *> && std::is_same_v<Length, uint16_t *>) {
      writeFaultyReply(fault, std::get<kCount - 2>(arguments), std::get<kCount - 1>(arguments));
    }
  }
}

}  // namespace boundary
