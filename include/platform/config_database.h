/* The configuration database: typed views addressed by instance paths. */
#ifndef PLATFORM_CONFIG_DATABASE_H
#define PLATFORM_CONFIG_DATABASE_H

#include "platform/import.h"
#include "platform/view_ids.h"

PLATFORM_BEGIN_DECLS

#define PLATFORM_BLOCK_MARKER 0x01020304u
#define PLATFORM_INSTANCE_SIZE 32

/** Where a list or query call puts the instance paths that it finds. */
typedef struct InstanceList {
  uint32_t marker;   /**< PLATFORM_BLOCK_MARKER, set by the caller */
  uint32_t capacity; /**< paths that `instances` holds, set by the caller */
  uint32_t dwCount;  /**< paths found; may exceed `capacity`, paths beyond it are not written */
  char (*instances)[PLATFORM_INSTANCE_SIZE];
} InstanceList;

/**
 * All views begin with the header {length in bytes, PLATFORM_BLOCK_MARKER}; the caller zeroes the
 * rest and fills the header before every call. Status 0 is success.
 */
PLATFORM_IMPORT int32_t vcorDbGetView(uint32_t viewId, const char *instance, void *view);
/** Writes the fields whose mark is 1. */
PLATFORM_IMPORT int32_t vcorDbSetView(uint32_t viewId, const char *instance, void *view);
/** Lists the instances whose fields equal those of `keyView` that carry mark 2. */
PLATFORM_IMPORT int32_t vcorDbQryView(uint32_t viewId, void *keyView, InstanceList *list);
/** Lists all instances under `parent`; `capacity` repeats the list's own. */
PLATFORM_IMPORT int32_t vcorDbLstView(uint32_t viewId, const char *parent, InstanceList *list,
                                      uint32_t capacity);
/** Creates an instance under `parent` and writes its path into `identity`. */
PLATFORM_IMPORT int32_t vcorDbAddView(uint32_t viewId, const char *parent,
                                      char identity[PLATFORM_INSTANCE_SIZE]);
PLATFORM_IMPORT int32_t vcorDbDelView(uint32_t viewId, const char *instance);
/** Commits the database to flash. */
PLATFORM_IMPORT int32_t vcorDbSave(void);
PLATFORM_IMPORT int32_t vcorDbSaveDbus(void);

PLATFORM_END_DECLS

#endif
