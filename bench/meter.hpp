// The instructions that one call of the library takes: its own, and those that it spends in libc
// and cJSON. What the platform does stays out of the count: it stops at the boundary.
#pragma once

#include <cstdint>

namespace bench {

/// Maps the file into which the emulator's plugin counts; false when nothing counts there.
bool openMeter(const char *path);

/// Instructions of the last call that went through catalogue::callExport(), without those that
/// measuring takes. Throws when there was none.
uint32_t lastCall();

}  // namespace bench
