/* The daemon's logger. */
#ifndef PLATFORM_LOGGER_H
#define PLATFORM_LOGGER_H

#include "platform/import.h"

PLATFORM_BEGIN_DECLS

enum ProcUserLogLevel {
  LOG_LEVEL_FAULT = 0,  /* a module's error number stands in `code` */
  LOG_LEVEL_ERROR = 4,  /* a platform call failed or an argument was refused */
  LOG_LEVEL_INFO = 5,   /* entry lines and the values read or set */
  LOG_LEVEL_TRACE = 7,  /* the steps of a search */
  LOG_LEVEL_VERBOSE = 8 /* success of a single step */
};

/**
 * Writes one line. `code` is the status being reported, else 0. The text ends with nothing, with
 * "\n" or with "\r\n", blanks before or behind it included, and may hold more line ends: the logger
 * makes one line of it. The result belongs to the logger; callers that pass it on take any non-zero
 * value for a failure.
 */
PLATFORM_IMPORT int32_t ProcUserLog(const char *sourceTag, int32_t line, const char *functionName,
                                    int32_t level, int32_t code, const char *format, ...)
    __attribute__((format(printf, 6, 7)));

PLATFORM_END_DECLS

#endif
