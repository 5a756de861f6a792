// Rewriting of the Internet connection.
#pragma once

#include "frame/log.hpp"
#include "frame/record_buffer.hpp"
#include "platform/wan.hpp"

namespace pm {

using NetworkingBuffer = ViewBuffer<NetworkingDeviceView>;

/// Makes the Internet connection carry IPv6; `networking` has been read. Returns 0, -1 when the
/// connections cannot be cleared, or the platform status of the step that failed, which is logged.
int32_t rewriteConnection(const Trail &log, NetworkingBuffer &networking);

}  // namespace pm
