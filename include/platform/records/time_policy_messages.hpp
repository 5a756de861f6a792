#pragma once

#include "platform/record.hpp"

namespace platform {

/// TIME_POLICY_REGISTER: who wants to hear when a time policy begins and ends. The signal number is
/// 16 bits wide; the two bytes behind it are zero.
struct TimePolicyRegistration : Record<20> {
  static constexpr PlainWord instance{"instance", 0};
  static constexpr PlainWord instanceAgain{"instanceAgain", 4};
  static constexpr PlainWord limitMode{"limitMode", 8};
  static constexpr PlainPointer signalName{"signalName", 12};
  static constexpr PlainWord signalNumber{"signalNumber", 16};
  static constexpr auto fields =
      layout(instance, instanceAgain, limitMode, signalName, signalNumber);
};

/// TIME_POLICY_SET: a time policy as it was just written.
struct TimePolicyMessage : Record<500> {
  static constexpr PlainWord word0{"word0", 0};
  static constexpr PlainBytes<496> policy{"policy", 4};  ///< a TimePolicyView, header included
  static constexpr auto fields = layout(word0, policy);
};

}  // namespace platform
