/* What every header of imported functions needs: C linkage and the mark of an import. */
#ifndef PLATFORM_IMPORT_H
#define PLATFORM_IMPORT_H

#include <stdint.h>

#ifdef __cplusplus
/* One namespace holds the functions and, in C++, the layouts of their records. */
#define PLATFORM_BEGIN_DECLS \
  namespace platform {       \
  extern "C" {
#define PLATFORM_END_DECLS \
  }                        \
  }
#else
#define PLATFORM_BEGIN_DECLS
#define PLATFORM_END_DECLS
#endif

/** Stands in front of every function that the daemon's process supplies to the library. */
#define PLATFORM_IMPORT __attribute__((visibility("default"))) extern

/** Status of a platform call that changed nothing because the value stood already. */
#define PLATFORM_NOTHING_CHANGED (-9)

#endif
