// How many Wi-Fi cards there are; the record stands in the store under the first radio's base.
#include "gateway/gateway.hpp"
#include "gateway/manager.hpp"
#include "platform/wlan.hpp"

namespace gateway {

namespace {

Bytes cardCount(Gateway &, std::span<const uint8_t> request) {
  if (request.size() != CardCountRequest::kSize) {
    throw Refusal(kBadRequest, "a request of " + std::to_string(request.size()) + " bytes");
  }
  const std::string instance(textOf(request));
  if (!store().has<WlanCardRecord>(instance)) throw Refusal(kUnknownInstance);
  return bytesOf(store().row<WlanCardRecord>(instance).word(WlanCardRecord::cardCount));
}

const ManagerReply kCardCount{MANAGER_MODULE_WLAN, WLAN_MGR_GET_CARD_MAX, cardCount};

}  // namespace

}  // namespace gateway
