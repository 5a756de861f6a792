#include "bench/platform/recorder.hpp"

#include <algorithm>
#include <cstring>
#include <deque>
#include <iterator>
#include <string>
#include <utility>

#include "bench/counter/instruction_count.hpp"

namespace bench {

Recorder recorder;

namespace {

constexpr uint32_t kScratchSize = 128 * 1024;
alignas(16) uint8_t scratchBytes[kScratchSize];

std::deque<std::string> kept;

using FewArguments = uint32_t (*)(uint32_t, uint32_t, uint32_t, uint32_t);
using ManyArguments = uint32_t (*)(uint32_t, uint32_t, uint32_t, uint32_t, uint32_t, uint32_t,
                                   uint32_t, uint32_t);

[[gnu::noinline]] uint32_t ignoreFew(uint32_t a, uint32_t, uint32_t, uint32_t) {
  asm volatile("");
  return a;
}

[[gnu::noinline]] uint32_t ignoreMany(uint32_t a, uint32_t, uint32_t, uint32_t, uint32_t, uint32_t,
                                      uint32_t, uint32_t) {
  asm volatile("");
  return a;
}

/// The difference between ten calls and twenty of one kind, each way of making them.
template <class Straight>
uint32_t overheadPerCall(void *function, bool manyArguments, Straight tenCalls) {
  const Call call{function, {1, 2, 3, 4, 5, 6, 7, 8}, manyArguments, {}};
  const std::vector<Call> ten(10, call);
  const std::vector<Call> twenty(20, call);
  const auto replayed =
      rawInstructionsOf([&] { replay(twenty); }) - rawInstructionsOf([&] { replay(ten); });
  const auto straight =
      rawInstructionsOf([&] { tenCalls(), tenCalls(); }) - rawInstructionsOf([&] { tenCalls(); });
  return replayed > straight ? (replayed - straight) / 10 : 0;
}

template <size_t... I>
void tenFew(std::index_sequence<I...>) {
  (ignoreFew(uint32_t{I} + 1, 2, 3, 4), ...);
}

template <size_t... I>
void tenMany(std::index_sequence<I...>) {
  (ignoreMany(uint32_t{I} + 1, 2, 3, 4, 5, 6, 7, 8), ...);
}

}  // namespace

void Recorder::start() {
  calls_.clear();
  used_.clear();
  kept.clear();
  on_ = true;
}

const std::vector<Call> &Recorder::stop() {
  on_ = false;
  return calls_;
}

void Recorder::note(void *function, Clears clears, std::initializer_list<uint32_t> arguments) {
  Call call{function, {}, arguments.size() > 4, {}};
  std::copy_if(clears.begin(), clears.end(), std::back_inserter(call.clears),
               [](uint32_t size) { return size > 0; });
  uint32_t *to = call.arguments;
  for (const uint32_t value : arguments) *to++ = value;
  calls_.push_back(std::move(call));
}

bool Recorder::wasUsed(const void *record, uint32_t size) const {
  return std::find(used_.begin(), used_.end(), std::pair(record, size)) != used_.end();
}

char *Recorder::keepText(const char *text) {
  return text == nullptr ? nullptr : kept.emplace_back(text).data();
}

void *Recorder::keepBytes(const void *bytes, uint32_t size) {
  return kept.emplace_back(static_cast<const char *>(bytes), size).data();
}

void *Recorder::scratch() {
  return scratchBytes;
}

void replay(const std::vector<Call> &calls) {
  for (const Call &call : calls) {
    for (const uint32_t size : call.clears) memset(scratchBytes, 0, size);
    const uint32_t *with = call.arguments;
    if (call.manyArguments) {
      reinterpret_cast<ManyArguments>(call.function)(with[0], with[1], with[2], with[3], with[4],
                                                     with[5], with[6], with[7]);
    } else {
      reinterpret_cast<FewArguments>(call.function)(with[0], with[1], with[2], with[3]);
    }
  }
}

uint32_t replayOverhead(const std::vector<Call> &calls) {
  const uint32_t few = overheadPerCall(reinterpret_cast<void *>(ignoreFew), false,
                                       [] { tenFew(std::make_index_sequence<10>()); });
  const uint32_t many = overheadPerCall(reinterpret_cast<void *>(ignoreMany), true,
                                        [] { tenMany(std::make_index_sequence<10>()); });
  uint32_t overhead = 0;
  for (const Call &call : calls) overhead += call.manyArguments ? many : few;
  return overhead;
}

}  // namespace bench
