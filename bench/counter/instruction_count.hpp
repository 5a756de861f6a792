// The number of instructions that this process has executed, as the emulator's plugin counts them.
#pragma once

#include <cstdint>

namespace bench {

/// Maps the file into which the plugin counts; false when it cannot be, or nothing counts there.
bool openInstructionCount(const char *path);

extern const volatile uint32_t *instructionCount;

/// Instructions that `work` executes, without those that measuring takes.
template <class Work>
[[gnu::noinline]] uint32_t rawInstructionsOf(Work work) {
  const uint32_t before = *instructionCount;
  work();
  return *instructionCount - before;
}

}  // namespace bench
