// The platform's manager modules: messages that are answered, and messages that are only sent.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "gateway/proxy.hpp"

namespace gateway {

/// Lives at namespace scope and answers one message of pm_send_msg_2mm; replies have no status
/// word.
struct ManagerReply {
  using Answer = Bytes (*)(Gateway &gateway, std::span<const uint8_t> request);
  ManagerReply(std::string_view module, uint32_t messageId, Answer answer);
};

struct ReceivedMessage {
  std::string module;
  uint32_t id;
  Bytes data;
};

/// Lives at namespace scope and takes what ASEND sends to one module.
struct MessageSink {
  using Take = int32_t (*)(Gateway &gateway, const ReceivedMessage &message);
  MessageSink(std::string_view module, Take take);
};

/// Everything that ASEND delivered since the last reset, oldest first. A restart loses it, so it is
/// no part of a profile.
std::vector<ReceivedMessage> &receivedMessages();

}  // namespace gateway
