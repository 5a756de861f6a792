// Replies with a length that goes in as capacity and comes out as length.
#pragma once

#include <cstdint>
#include <span>

namespace gateway {

struct Fault;

/// Writes a reply; one that does not fit its caller's buffer is refused.
void writeReply(std::span<const uint8_t> reply, void *out, uint16_t *length);

/// What a fault makes of a reply: its status word and payload, and the length reported for it.
void writeFaultyReply(const Fault &fault, void *out, uint16_t *length);

}  // namespace gateway
