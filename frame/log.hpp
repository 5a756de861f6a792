// The trail that the library leaves through the daemon's logger. A source file names its tag once,
//
//   static constexpr char kSourceTag[] = "object_nexumd_port_pmapi.c";
//
// an exported function begins its trail, and its steps go on with it:
//
//   const Trail log = entered(kSourceTag);
//   if (log.lacks(record)) return kFailure;
//   PM_LOG(log, kError, status, "pm_log_get_config failed!\n");
#pragma once

#include "platform/logger.h"

namespace pm {

using namespace platform;

inline constexpr int32_t kFault = LOG_LEVEL_FAULT;
inline constexpr int32_t kError = LOG_LEVEL_ERROR;
inline constexpr int32_t kInfo = LOG_LEVEL_INFO;
inline constexpr int32_t kTrace = LOG_LEVEL_TRACE;
inline constexpr int32_t kVerbose = LOG_LEVEL_VERBOSE;

/// Under which tag and function name lines are written: those of the function that begins the
/// trail.
struct Trail {
  const char *tag;
  const char *function;

  constexpr explicit Trail(const char *sourceTag, const char *name = __builtin_FUNCTION())
      : tag(sourceTag), function(name) {}

  /// Whether an argument that the function needs is missing, with the line that says so.
  [[gnu::always_inline]] bool lacks(const void *argument, int line = __builtin_LINE()) const {
    if (argument == nullptr) reportMissing(tag, function, line);
    return argument == nullptr;
  }

  /// Returns the status of a read, with the line that most handlers write when it failed.
  int32_t readResult(int32_t status, int line = __builtin_LINE()) const;

 private:
  static void reportMissing(const char *tag, const char *function, int line);
};

}  // namespace pm

/// Writes a line; `code` is the status that is its reason, or 0. The format is checked.
#define PM_LOG(log, level, code, ...) \
  ::platform::ProcUserLog((log).tag, __LINE__, (log).function, (level), (code), __VA_ARGS__)

namespace pm {

/// Begins a trail with the line that most functions begin with.
[[gnu::always_inline]] inline Trail entered(const char *sourceTag,
                                            const char *name = __builtin_FUNCTION(),
                                            int line = __builtin_LINE()) {
  const Trail log(sourceTag, name);
  ProcUserLog(log.tag, line, log.function, kInfo, 0, "now in %s\n", log.function);
  return log;
}

}  // namespace pm
