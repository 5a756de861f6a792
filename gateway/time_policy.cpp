#include "gateway/time_policy.hpp"

#include "gateway/gateway.hpp"
#include "gateway/manager.hpp"
#include "gateway/requests.hpp"
#include "platform/limits.hpp"
#include "platform/proxy.h"

PM_RECORD(gateway::PolicyRegistration, PM_FIELD(instance).means("number of the policy"),
          PM_FIELD(limitMode).means("1: the limit holds in the policy's period only"),
          PM_FIELD(signal).means("name of the signal that is to be sent"),
          PM_FIELD(signalNumber).means("its number"));

PM_RECORD(gateway::PolicyNotice, PM_FIELD(instance).means("number of the policy"),
          PM_FIELD(week).means("mask of the weekdays in decimal"),
          PM_FIELD(startTime).means("second of the day").means(platform::unit("s")),
          PM_FIELD(endTime).means("second of the day").means(platform::unit("s")));

PM_RECORD(gateway::TimePolicy,
          PM_FIELD(registrations).means("who wants to hear of a policy, oldest first"),
          PM_FIELD(notices).means("policies as they were written, oldest first"));

namespace gateway {

namespace {

SectionOf<TimePolicy> section{"timePolicy", "What the module \"time_policy\" was told"};

int32_t takeRegistration(const Bytes &data) {
  const Row message = exactly<TimePolicyRegistration>(data);
  const uint32_t instance = message.word(TimePolicyRegistration::instance);
  const auto *signal = reinterpret_cast<const char *>(
      static_cast<uintptr_t>(message.word(TimePolicyRegistration::signalName)));
  if (signal == nullptr || message.word(TimePolicyRegistration::instanceAgain) != instance) {
    throw Refusal(kBadRequest, "a registration without a signal, or for two policies");
  }
  timePolicy().registrations.push_back({instance, message.word(TimePolicyRegistration::limitMode),
                                        signal,
                                        message.word(TimePolicyRegistration::signalNumber)});
  return kOk;
}

int32_t takeNotice(const Bytes &data) {
  const Row message = exactly<TimePolicyMessage>(data);
  Bytes view = message.bytes(TimePolicyMessage::policy);
  const Row policy = fieldsOf<TimePolicyView>(view.data());
  timePolicy().notices.push_back(
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

}  // namespace

TimePolicy &timePolicy() {
  return section.state();
}

}  // namespace gateway
