#include "frame/proxy.hpp"

namespace pm {

int32_t ProxyExchange::send(uint32_t event, const void *request, uint32_t requestLength) {
  memset(reply_, 0, capacity_);
  length_ = capacity_;
  const int32_t result = ctSgw_ssend_to_proxy(event, request, requestLength, reply_, &length_);
  if (length_ > capacity_) length_ = capacity_;
  return result;
}

int32_t ProxyExchange::replyStatus() const {
  int32_t status;
  memcpy(&status, reply_, sizeof status);
  return status;
}

uint32_t ProxyExchange::payloadLength() const {
  return length_ > PROXY_REPLY_STATUS_SIZE ? length_ - PROXY_REPLY_STATUS_SIZE : 0;
}

uint32_t ProxyExchange::copyPayload(void *record, uint32_t size) const {
  const uint32_t payload = payloadLength();
  const uint32_t copied = payload < size ? payload : size;
  memcpy(record, reply_ + PROXY_REPLY_STATUS_SIZE, copied);
  return copied;
}

int32_t sendEvent(const Trail &log, uint32_t event, const void *request, uint32_t requestLength,
                  const char *failure) {
  ProxyReply<2048> reply;
  const int32_t status = reply.send(event, request, requestLength);
  if (!reply.succeeded(status)) {
    PM_LOG(log, kError, reply.outcome(status), "%s", failure);
  }
  return status;
}

int32_t askManager(const char *module, uint32_t message, const void *request,
                   uint32_t requestLength, void *reply, uint16_t *replyLength) {
  return pm_send_msg_2mm(module, MANAGER_MESSAGE_CLASS, message, request, requestLength, 0, reply,
                         replyLength);
}

}  // namespace pm
