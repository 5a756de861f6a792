#include "gateway/limits.hpp"

#include <nlohmann/json.hpp>

#include "boundary/boundary.hpp"
#include "gateway/gateway.hpp"
#include "gateway/manager.hpp"
#include "gateway/proxy.hpp"
#include "platform/config_database.h"
#include "platform/limits.hpp"
#include "platform/proxy.h"

namespace gateway {

namespace {

[[maybe_unused]] const TimePolicies &registered = timePolicies();

/// A request of exactly one record.
template <class Record>
Row exactly(std::span<const uint8_t> request) {
  if (request.size() != Record::kSize) {
    throw Refusal(kBadRequest, "a request of " + std::to_string(request.size()) + " bytes where " +
                                   std::to_string(Record::kSize) + " are expected");
  }
  return fieldsOf<Record>(const_cast<uint8_t *>(request.data()));
}

int32_t takeRegistration(const Bytes &data) {
  const Row message = exactly<TimePolicyRegistration>(data);
  const uint32_t instance = message.word(TimePolicyRegistration::instance);
  const auto *signal = reinterpret_cast<const char *>(
      static_cast<uintptr_t>(message.word(TimePolicyRegistration::signalName)));
  if (signal == nullptr || message.word(TimePolicyRegistration::instanceAgain) != instance) {
    throw Refusal(kBadRequest, "a registration without a signal, or for two policies");
  }
  timePolicies().registrations.push_back({instance, message.word(TimePolicyRegistration::limitMode),
                                          signal,
                                          message.word(TimePolicyRegistration::signalNumber)});
  return kOk;
}

int32_t takeNotice(const Bytes &data) {
  const Row message = exactly<TimePolicyMessage>(data);
  Bytes view = message.bytes(TimePolicyMessage::policy);
  const Row policy = fieldsOf<TimePolicyView>(view.data());
  timePolicies().notices.push_back(
      {policy.word(TimePolicyView::instance), policy.text(TimePolicyView::week),
       policy.word(TimePolicyView::startTime), policy.word(TimePolicyView::endTime)});
  return kOk;
}

const MessageSink kTimePolicy{MANAGER_MODULE_TIME_POLICY,
                              [](Gateway &, const ReceivedMessage &message) {
                                switch (message.id) {
                                  case TIME_POLICY_REGISTER:
                                    return takeRegistration(message.data);
                                  case TIME_POLICY_SET:
                                    return takeNotice(message.data);
                                  default:
                                    throw Refusal(kBadRequest, "no message of this module");
                                }
                              }};

/// The rates of one device; a device that is not limited yet is put on the list.
ProxyReply setBandwidth(Gateway &gateway, std::span<const uint8_t> request) {
  const Row message = exactly<BandwidthLimitRequest>(request);
  Bytes given = message.bytes(BandwidthLimitRequest::limit);
  const Row limit = fieldsOf<BandwidthLimitRecord>(given.data());
  for (const platform::Field &field :
       {platform::Field(BandwidthLimitRecord::mac), platform::Field(BandwidthLimitRecord::txRate),
        platform::Field(BandwidthLimitRecord::rxRate)}) {
    if (limit.mark(field) != 1) {
      throw Refusal(kInvalidField, std::string("the limit has no ") + field.name);
    }
  }
  Store &store = gateway.store();
  std::string identity = message.text(BandwidthLimitRequest::identity);
  if (identity.empty()) {
    const int32_t status = store.add(layoutOf<DeviceLimitView>(), "IGD", &identity);
    if (status != kOk) return {status};
  }
  if (!store.has<DeviceLimitView>(identity)) return {kUnknownInstance};
  const Row row = store.row<DeviceLimitView>(identity);
  row.setMac(DeviceLimitView::mac, limit.mac(BandwidthLimitRecord::mac));
  row.setWord(DeviceLimitView::txRate, limit.word(BandwidthLimitRecord::txRate));
  row.setWord(DeviceLimitView::rxRate, limit.word(BandwidthLimitRecord::rxRate));
  return {};
}

ProxyReply deleteBandwidth(Gateway &gateway, std::span<const uint8_t> request) {
  if (request.size() != PLATFORM_INSTANCE_SIZE) throw Refusal(kBadRequest, "no identity");
  return {gateway.store().remove(layoutOf<DeviceLimitView>(), textOf(request))};
}

const ProxyEvent kSetBandwidth{CTSGW_EVENT_SET_BW, setBandwidth};
const ProxyEvent kDeleteBandwidth{CTSGW_EVENT_DEL_BW, deleteBandwidth};

}  // namespace

TimePolicies &timePolicies() {
  static TimePolicies *const instance = new TimePolicies;
  return *instance;
}

void TimePolicies::reset() {
  registrations.clear();
  notices.clear();
}

void TimePolicies::load(const Json &value, const std::string &place) {
  Members members(value, place);
  members.each("registrations", [&](const Json &element, const std::string &elementPlace) {
    PolicyRegistration registration;
    Members one(element, elementPlace);
    one.word("instance", &registration.instance);
    one.word("limitMode", &registration.limitMode);
    one.text("signal", &registration.signal);
    one.word("signalNumber", &registration.signalNumber);
    one.finish();
    registrations.push_back(std::move(registration));
  });
  members.each("notices", [&](const Json &element, const std::string &elementPlace) {
    PolicyNotice notice;
    Members one(element, elementPlace);
    one.word("instance", &notice.instance);
    one.text("week", &notice.week);
    one.word("startTime", &notice.startTime);
    one.word("endTime", &notice.endTime);
    one.finish();
    notices.push_back(std::move(notice));
  });
  members.finish();
}

Json TimePolicies::save() const {
  if (registrations.empty() && notices.empty()) return nullptr;
  Json wishes = Json::array();
  for (const PolicyRegistration &one : registrations) {
    wishes.push_back({{"instance", one.instance},
                      {"limitMode", one.limitMode},
                      {"signal", one.signal},
                      {"signalNumber", one.signalNumber}});
  }
  Json noticed = Json::array();
  for (const PolicyNotice &one : notices) {
    noticed.push_back({{"instance", one.instance},
                       {"week", one.week},
                       {"startTime", one.startTime},
                       {"endTime", one.endTime}});
  }
  return {{"registrations", std::move(wishes)}, {"notices", std::move(noticed)}};
}

}  // namespace gateway
