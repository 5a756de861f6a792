// The program's own memory lies apart from libc's heap: what cJSON and stdio pay for theirs must
// not depend on what the gateway or the catalogue have taken and given back before. Nothing is ever
// given back, as a process lives for one case.
#include <cstddef>
#include <cstdlib>
#include <new>

namespace {

constexpr size_t kCapacity = size_t{256} << 20;
constexpr size_t kAlignment = alignof(std::max_align_t);

alignas(kAlignment) char pool[kCapacity];
size_t used = 0;

}  // namespace

void *operator new(size_t size) {
  const size_t wanted = (size + kAlignment - 1) / kAlignment * kAlignment;
  if (wanted > kCapacity - used) abort();
  void *const block = pool + used;
  used += wanted;
  return block;
}

void operator delete(void *) noexcept {}

void operator delete(void *, size_t) noexcept {}
