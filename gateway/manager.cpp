#include "gateway/manager.hpp"

#include <map>
#include <utility>

#include "boundary/boundary.hpp"
#include "boundary/reply.hpp"
#include "gateway/calls.hpp"
#include "gateway/gateway.hpp"
#include "gateway/habits.hpp"
#include "platform/proxy.h"

namespace gateway {

namespace {

using MessageKey = std::pair<std::string, uint32_t>;

std::map<MessageKey, ManagerReply::Answer> &answers() {
  static std::map<MessageKey, ManagerReply::Answer> registered;
  return registered;
}

std::map<std::string, MessageSink::Take> &sinks() {
  static std::map<std::string, MessageSink::Take> registered;
  return registered;
}

[[noreturn]] void refuseAsMissing() {
  throw Refusal(kNotThereYet, "this message is not there yet in the virtual gateway");
}

}  // namespace

ManagerReply::ManagerReply(std::string_view module, uint32_t messageId, Answer answer) {
  answers()[{std::string(module), messageId}] = answer;
}

MessageSink::MessageSink(std::string_view module, Take take) {
  sinks()[std::string(module)] = take;
}

std::vector<ReceivedMessage> &receivedMessages() {
  static auto *const received = new std::vector<ReceivedMessage>;
  return *received;
}

}  // namespace gateway

using namespace gateway;

int32_t gateway::pm_send_msg_2mm(const char *module, uint32_t messageClass, uint32_t messageId,
                                 const void *request, uint32_t requestLength, uint32_t flags,
                                 void *reply, uint16_t *replyLength) {
  if (messageClass != MANAGER_MESSAGE_CLASS || flags != 0) {
    throw Refusal(kBadRequest, "unknown class or flags");
  }
  const auto found = answers().find({module, messageId});
  if (found == answers().end()) refuseAsMissing();
  const auto *begin = static_cast<const uint8_t *>(request);
  Bytes answer = found->second(Gateway::current(), {begin, begin == nullptr ? 0 : requestLength});
  if (habits().answersAtLength) answer.resize(2048);
  writeReply(answer, reply, replyLength);
  return kOk;
}

int32_t gateway::ASEND(uint32_t messageId, const void *data, uint32_t length, const char *module) {
  const auto found = sinks().find(module);
  if (found == sinks().end()) refuseAsMissing();
  const auto *begin = static_cast<const uint8_t *>(data);
  ReceivedMessage message{module, messageId, {begin, begin + (begin == nullptr ? 0 : length)}};
  const int32_t status = found->second(Gateway::current(), message);
  if (status == kOk) receivedMessages().push_back(std::move(message));
  return status;
}
