// Writes down the platform calls of one handler and makes them again, with the clears that go with
// them and nothing around: the floor beneath that handler.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <type_traits>
#include <utility>
#include <vector>

#include "bench/platform/answer.hpp"

namespace bench {

inline constexpr uint32_t kMaxArguments = 8;

struct Call {
  void *function;
  uint32_t arguments[kMaxArguments];
  bool manyArguments;            ///< more than fit into registers
  std::vector<uint32_t> clears;  ///< sizes of the buffers that the caller zeroes for the call
};

/// Buffers that a call's caller has zeroed.
using Clears = std::initializer_list<uint32_t>;

class Recorder {
 public:
  void start();
  const std::vector<Call> &stop();
  bool isOn() const { return on_; }
  void note(void *function, Clears clears, std::initializer_list<uint32_t> arguments);
  void noteUsed(const void *record, uint32_t size) { used_.emplace_back(record, size); }
  bool wasUsed(const void *record, uint32_t size) const;

  /// Places for what the pointers of a recorded call will point to when it is made again.
  char *keepText(const char *text);
  void *keepBytes(const void *bytes, uint32_t size);
  static void *scratch();

 private:
  bool on_ = false;
  std::vector<Call> calls_;
  std::vector<std::pair<const void *, uint32_t>> used_;
};

extern Recorder recorder;

/// Makes the calls again. What this loop itself costs, replayOverhead() measures.
void replay(const std::vector<Call> &calls);

/// Instructions that replay() spends beyond calls written one after the other.
uint32_t replayOverhead(const std::vector<Call> &calls);

template <class T>
concept HasInstances = requires(T list) {
  list.instances;
};

template <class T>
inline constexpr bool kIsNumber = std::is_integral_v<T>;
template <>
inline constexpr bool kIsNumber<char> = false;
template <>
inline constexpr bool kIsNumber<uint8_t> = false;
template <>
inline constexpr bool kIsNumber<const uint8_t> = false;

template <class T>
uint32_t argument(T value) {
  if constexpr (std::is_integral_v<T>) {
    return static_cast<uint32_t>(value);
  } else if constexpr (std::is_same_v<T, const char *>) {
    return reinterpret_cast<uint32_t>(recorder.keepText(value));
  } else {
    using Target = std::remove_pointer_t<T>;
    if constexpr (HasInstances<Target>) {
      Target list = *value;
      list.instances = static_cast<decltype(list.instances)>(Recorder::scratch());
      return reinterpret_cast<uint32_t>(recorder.keepBytes(&list, sizeof list));
    } else if constexpr (kIsNumber<Target>) {
      return reinterpret_cast<uint32_t>(recorder.keepBytes(value, sizeof(Target)));
    } else {
      return reinterpret_cast<uint32_t>(Recorder::scratch());
    }
  }
}

template <auto Function, class... Args>
void note(Clears clears, Args... arguments) {
  if (recorder.isOn()) [[unlikely]] {
    recorder.note(reinterpret_cast<void *>(Function), clears, {argument(arguments)...});
  }
}

/// A call that fills `record`, of which its caller has zeroed `size` bytes.
template <auto Function, class... Args>
void noteFill(void *record, uint32_t size, Args... arguments) {
  note<Function>({size}, arguments...);
  if (recorder.isOn()) [[unlikely]]
    recorder.noteUsed(record, size);
}

/// A call that is handed `record`. Its caller has zeroed it, unless an earlier call had it too.
template <auto Function, class... Args>
void noteTake(const void *record, uint32_t size, Args... arguments) {
  if (recorder.isOn()) [[unlikely]] {
    note<Function>({recorder.wasUsed(record, size) ? 0 : size}, arguments...);
    recorder.noteUsed(record, size);
  }
}

template <auto Function, class... Args>
int32_t fill(void *record, uint32_t size, Args... arguments) {
  noteFill<Function>(record, size, arguments...);
  return answerTo<Function>.give(record);
}

template <auto Function, class... Args>
int32_t take(void *record, uint32_t size, Args... arguments) {
  noteTake<Function>(record, size, arguments...);
  return answerTo<Function>.give(record);
}

template <auto Function, class Record, class... Args>
int32_t fillTyped(Record *record, Args... arguments) {
  return fill<Function>(record, uint32_t{sizeof(Record)}, arguments...);
}

template <auto Function, class Record, class... Args>
int32_t takeTyped(Record *record, Args... arguments) {
  return take<Function>(record, uint32_t{sizeof(Record)}, arguments...);
}

/// A call without a record.
template <auto Function, class... Args>
int32_t plain(Args... arguments) {
  note<Function>({}, arguments...);
  return answerTo<Function>.give(nullptr);
}

}  // namespace bench
