// Registers what to measure. A case is one handler beside its floor:
//
//   const bench::Cases cases{{
//       .name = "roaming: get",
//       .platform = [](uint32_t) {
//         answerTo<pm_wlan_get_wifibandsteering>.set(WlanBandSteeringRecord::lowRssi24G, 75);
//       },
//       .handler = [](uint32_t) { pm_ubus_roaming_get(&settings); },
//   }};
//
// Buffers that the daemon owns are static: what a handler does not do, its figure must not hold.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <vector>

#include "bench/platform/answer.hpp"

namespace bench {

/// All functions get the number of items, 0 in a case without growth.
struct Case {
  const char *name;
  /// Sets the platform's answers, once.
  void (*platform)(uint32_t items) = nullptr;
  /// Puts everything back to where a call starts; runs before each one and is not counted.
  void (*before)(uint32_t items) = nullptr;
  void (*handler)(uint32_t items);
  /// Left out, the floor is the handler's own platform calls with the clears that they ask for, and
  /// what cannot be done without besides: a parse, an allocation.
  void (*floor)(uint32_t items) = nullptr;
  void (*besides)(uint32_t items) = nullptr;
  /// Measures once per number, and what one more item costs.
  std::vector<uint32_t> items = {};
  /// The handler writes lines of the error level though nothing fails. In any other case they say
  /// that the platform's answers lead it astray, and the bench fails.
  bool logsErrors = false;
  /// The handler may cost this many percent of its floor; 0: any.
  uint32_t limitPercent = 0;
};

class Cases {
 public:
  Cases(std::initializer_list<Case> cases);
};

/// A function of one small answer.
struct Single {
  const char *name;
  void (*call)(uint32_t items);
};

/// They have a table of their own, behind the handlers'.
class Singles {
 public:
  Singles(std::initializer_list<Case> cases);
  /// All of them ask the same platform.
  Singles(void (*platform)(uint32_t items), std::initializer_list<Single> singles);
};

/// Room for what any getter delivers, a view included.
class Output {
 public:
  template <class T>
  operator T *() {
    return reinterpret_cast<T *>(bytes_);
  }

 private:
  alignas(8) char bytes_[8192] = {};
};

inline Output output;

/// Calls a getter that takes the selectors, if any, and where to put its answer.
template <auto Getter, auto... Selectors>
void get(uint32_t) {
  Getter(Selectors..., output);
}

}  // namespace bench
