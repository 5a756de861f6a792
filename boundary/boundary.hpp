// What every call from the library to a platform passes, whichever platform stands behind it: each
// call is recorded once, may be made to fail, and is complained of when one of the two sides breaks
// the contract between them.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "boundary/status.hpp"

namespace boundary {

/// One call of the library, as it left the platform again.
struct Call {
  std::string name;
  std::string key; /**< what it is about: "DBVIEW_LAN_DEVICE IGD.LD1" */
  std::string answer;
  bool faulted = false;
};

/// "NAME(KEY) = ANSWER", with a mark when a fault made it so.
std::string toString(const Call &call);

/// Makes calls fail: those of this name ("*": every one that can fail) whose key contains `match`,
/// beginning with the `from`-th of them.
struct Fault {
  static constexpr uint32_t kUnlimited = 0;

  std::string call;
  std::string match = {};
  uint32_t from = 1;
  uint32_t times = kUnlimited;
  std::optional<int32_t> answer = {};      /**< none: the call's own natural failure */
  int32_t failure = kFailed;               /**< what a natural failure that is a status says */
  std::optional<int32_t> replyStatus = {}; /**< proxy: the call succeeds, its reply says this */
  std::vector<uint8_t> replyPayload = {};  /**< proxy: what follows the status in that reply */
  std::optional<uint16_t> replyLength =
      {};                            /**< proxy, manager: the length reported for the reply */
  std::optional<int32_t> count = {}; /**< lists: the call succeeds, but counts so many */
  bool workDone = false;             /**< the call has done its work when it fails */

  uint32_t seen = 0;  /**< matching calls so far */
  uint32_t fired = 0; /**< how many of them it changed */
};

std::string toString(const Fault &fault);

/// Ends a platform function from within: its status, and a complaint unless the text is empty.
class Refusal : public std::runtime_error {
 public:
  explicit Refusal(int32_t status, const std::string &complaint = {})
      : std::runtime_error(complaint), status_(status) {}
  int32_t status() const { return status_; }

 private:
  int32_t status_;
};

class Boundary {
 public:
  static Boundary &current();

  /// The number identifies the fault in fault().
  size_t addFault(Fault fault);
  const Fault &fault(size_t number) const { return faults_.at(number); }
  std::vector<Fault> unfiredFaults() const;

  const std::vector<Call> &calls() const { return calls_; }
  /// Calls so far that could have been made to fail.
  uint32_t fallibleCalls() const { return fallible_; }
  void onCall(std::function<void(const Call &)> sink) { callSink_ = std::move(sink); }

  /// What one side did to the other that a real platform, or the library, might not survive.
  const std::vector<std::string> &complaints() const { return complaints_; }
  void complain(const std::string &complaint);
  std::vector<std::string> takeComplaints();
  void onComplaint(std::function<void(const std::string &)> sink) {
    complaintSink_ = std::move(sink);
  }

  /// What the platform refuses of instance paths besides: it throws Refusal.
  void onPath(void (*check)(const char *path)) { pathCheck_ = check; }
  void checkPath(const char *path) const {
    if (pathCheck_ != nullptr) pathCheck_(path);
  }

  void clearCalls();
  void reset();

 private:
  friend class Passage;

  /// Counts a call that can fail and finds the fault that applies to it.
  Fault *applicableFault(const Call &call);
  void record(Call call);

  std::deque<Fault> faults_;
  std::vector<Call> calls_;
  std::vector<std::string> complaints_;
  uint32_t fallible_ = 0;
  std::function<void(const Call &)> callSink_;
  std::function<void(const std::string &)> complaintSink_;
  void (*pathCheck_)(const char *path) = nullptr;
};

/// While one of these lives, control is on the platform's side. The entries make one before all
/// else, so that none of their own work is taken for the library's.
class Outside {
 public:
  Outside() {
    if (depth_++ == 0 && leaving_ != nullptr) leaving_();
  }
  ~Outside() {
    if (--depth_ == 0 && returning_ != nullptr) returning_();
  }
  Outside(const Outside &) = delete;
  Outside &operator=(const Outside &) = delete;

  /// Called when control leaves the library for the platform, and when it comes back.
  static void onCrossing(void (*leaving)(), void (*returning)()) {
    leaving_ = leaving;
    returning_ = returning;
  }

 private:
  static inline uint32_t depth_ = 0;
  static inline void (*leaving_)() = nullptr;
  static inline void (*returning_)() = nullptr;
};

/// One call on its way through the boundary; it is recorded when the object goes.
class Passage {
 public:
  enum class Kind { kFallible, kInfallible };

  Passage(std::string name, std::string key, Kind kind = Kind::kFallible);
  ~Passage();
  Passage(const Passage &) = delete;
  Passage &operator=(const Passage &) = delete;

  Fault *fault() const { return fault_; }
  void answered(int64_t value) { call_.answer = std::to_string(value); }
  void answered(const void *value) { call_.answer = value == nullptr ? "NULL" : "ok"; }
  void answered(std::string text) { call_.answer = std::move(text); }
  /// Keeps a complaint about this call.
  void complain(const std::string &text);

  /// Runs `body`; whatever it throws becomes a complaint and `failing`, or the refusal's status.
  template <class Value, class Body>
  Value run(Value failing, Body body) {
    try {
      return body();
    } catch (const Refusal &refusal) {
      if (*refusal.what() != '\0') complain(refusal.what());
      if constexpr (std::is_same_v<Value, int32_t>) return refusal.status();
    } catch (const std::exception &error) {
      complain(error.what());
    }
    return failing;
  }

 private:
  Call call_;
  Fault *fault_ = nullptr;
};

/// What a call answers that a fault makes fail.
inline int32_t answer(const Fault &fault, int32_t failing) {
  return fault.answer.value_or(failing == kFailed ? fault.failure : failing);
}

// For calls that no header of the platform declares: those to libc and for memory. The others pass
// by the prototypes of theirs, see pass.hpp.

/// A call that answers a status; `failing` is what a fault without an answer of its own gives.
template <class Body>
int32_t status(const char *name, std::string key, Body body, int32_t failing = kFailed) {
  Passage passage(name, std::move(key));
  const Fault *fault = passage.fault();
  int32_t result = failing;
  if (fault == nullptr || fault->workDone) result = passage.run<int32_t>(failing, body);
  if (fault != nullptr) result = answer(*fault, failing);
  passage.answered(result);
  return result;
}

/// A call that answers a pointer; a fault makes it NULL.
template <class Pointer, class Body>
Pointer pointer(const char *name, std::string key, Body body) {
  Passage passage(name, std::move(key));
  Pointer result = nullptr;
  if (passage.fault() == nullptr) result = passage.run<Pointer>(nullptr, body);
  passage.answered(result);
  return result;
}

/// A text that was handed over, "(null)" for none.
std::string text(const char *given);

}  // namespace boundary
