#include "bench/counter/instruction_count.hpp"

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

namespace bench {

const volatile uint32_t *instructionCount = nullptr;

bool openInstructionCount(const char *path) {
  const int file = open(path, O_RDONLY | O_CLOEXEC);
  if (file < 0) return false;
  void *page = mmap(nullptr, static_cast<size_t>(getpagesize()), PROT_READ, MAP_SHARED, file, 0);
  close(file);
  if (page == MAP_FAILED) return false;
  // The low half of a 64-bit count; differences are right even when it wraps.
  instructionCount = static_cast<const volatile uint32_t *>(page);
  const uint32_t before = *instructionCount;
  return *instructionCount != before;
}

}  // namespace bench
