#include "bench/meter.hpp"

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <stdexcept>

#include "boundary/boundary.hpp"
#include "catalogue/parameters.hpp"
#include "platform/host.h"

namespace bench {
namespace {

/// The low half of a 64-bit count; differences are right even when it wraps.
const volatile uint32_t *executed = nullptr;

uint32_t since;
uint32_t counted;
uint32_t crossings;
bool entered = false;
/// What measuring adds to each call, and to each crossing of the boundary.
uint32_t callOverhead;
uint32_t crossingOverhead;

void enter() {
  entered = true;
  counted = 0;
  crossings = 0;
  since = *executed;
}

void leaveForPlatform() {
  counted += *executed - since;
  ++crossings;
}

void returnFromPlatform() {
  since = *executed;
}

void leave() {
  counted += *executed - since;
}

void calibrate() {
  { const catalogue::CallObserver empty; }
  callOverhead = counted;
  uint32_t size = 0;
  {
    const catalogue::CallObserver onlyCrossing;
    platform::GetFlashSizeTotal(&size);
  }
  crossingOverhead = counted - callOverhead;
  entered = false;
}

}  // namespace

bool openMeter(const char *path) {
  const int file = open(path, O_RDONLY | O_CLOEXEC);
  if (file < 0) return false;
  void *page = mmap(nullptr, static_cast<size_t>(getpagesize()), PROT_READ, MAP_SHARED, file, 0);
  close(file);
  if (page == MAP_FAILED) return false;
  executed = static_cast<const volatile uint32_t *>(page);
  const uint32_t before = *executed;
  if (*executed == before) return false;
  catalogue::CallObserver::onCall(enter, leave);
  boundary::Outside::onCrossing(leaveForPlatform, returnFromPlatform);
  calibrate();
  return true;
}

uint32_t lastCall() {
  if (!entered) throw std::logic_error("calls the library past catalogue::callExport()");
  return counted - callOverhead - crossings * crossingOverhead;
}

}  // namespace bench
