#include "boundary/reply.hpp"

#include <algorithm>
#include <cstring>

namespace boundary {

void writeReply(std::span<const uint8_t> reply, void *out, uint16_t *length) {
  if (out == nullptr || length == nullptr) throw Refusal(kNullArgument, "no room for a reply");
  if (reply.size() > *length) {
    throw Refusal(kReplyTooLong, "a reply of " + std::to_string(reply.size()) +
                                     " bytes does not fit " + std::to_string(*length));
  }
  std::memcpy(out, reply.data(), reply.size());
  *length = static_cast<uint16_t>(reply.size());
}

void writeFaultyReply(const Fault &fault, void *out, uint16_t *length) {
  if (out == nullptr || length == nullptr) return;
  if (fault.replyStatus && *length >= sizeof *fault.replyStatus) {
    const size_t payload =
        std::min<size_t>(fault.replyPayload.size(), *length - sizeof *fault.replyStatus);
    std::memcpy(out, &*fault.replyStatus, sizeof *fault.replyStatus);
    std::copy_n(fault.replyPayload.begin(), payload,
                static_cast<uint8_t *>(out) + sizeof *fault.replyStatus);
    if (!fault.replyLength) *length = static_cast<uint16_t>(sizeof *fault.replyStatus + payload);
  }
  if (fault.replyLength) *length = *fault.replyLength;
}

}  // namespace boundary
