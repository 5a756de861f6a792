// The trail through the daemon's logger. A source file names itself once:
//
//   static constexpr char kSourceTag[] = "object_nexumd_port_pmapi.c";
//
// and then logs with the macros below; formats are checked against their arguments.
#pragma once

#include "platform/logger.h"

namespace pm {

using namespace platform;

inline constexpr int32_t kFault = LOG_LEVEL_FAULT;
inline constexpr int32_t kError = LOG_LEVEL_ERROR;
inline constexpr int32_t kInfo = LOG_LEVEL_INFO;
inline constexpr int32_t kTrace = LOG_LEVEL_TRACE;
inline constexpr int32_t kVerbose = LOG_LEVEL_VERBOSE;

/// Whose lines a shared step writes.
struct LogOrigin {
  const char *tag;
  const char *function;
};

/// Returns the status of a read, with the line that most handlers write when it failed.
int32_t reportedRead(const LogOrigin &origin, int32_t status);

}  // namespace pm

#define PM_LOG_CODE(level, code, ...) \
  ProcUserLog(kSourceTag, __LINE__, __func__, (level), (code), __VA_ARGS__)

#define PM_LOG(level, ...) PM_LOG_CODE(level, 0, __VA_ARGS__)

/// A failure line; `status` is what failed.
#define PM_FAIL(status, ...) PM_LOG_CODE(::pm::kError, status, __VA_ARGS__)

#define PM_ENTER() PM_LOG(::pm::kInfo, "now in %s\n", __func__)

#define PM_ORIGIN        \
  ::pm::LogOrigin {      \
    kSourceTag, __func__ \
  }

#define PM_LOG_FOR(origin, level, code, ...) \
  ProcUserLog((origin).tag, __LINE__, (origin).function, (level), (code), __VA_ARGS__)
