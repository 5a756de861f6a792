/**
 * @file types.h
 * What the records and functions of all objects share.
 *
 * Unless a function says otherwise:
 * - The caller owns every record and buffer; no pointer is kept after the call.
 * - A call runs on the caller's thread until the platform has answered. Nothing is locked: calls
 *   must never overlap.
 * - 0 is success. The library's other codes are named in status.h; any other is a "platform
 *   status", the platform's own non-zero code, handed on unchanged. Functions of type uint32_t
 *   return the same codes converted: PM_STATUS_NULL_RECORD is 0xFFFFFEFF.
 * - What was changed before a failing step stays changed.
 * - A NULL record, or a NULL output of a getter, yields PM_STATUS_FAILED and the platform is not
 *   asked.
 *   Other pointers must not be NULL.
 * - An array parameter says how many elements the caller's array has to have. gcc warns of a
 *   shorter one in C.
 * - Records that receive answers are to be zero-filled by the caller. Texts in them have at most
 *   their size minus one characters.
 * - Request texts are read as C strings from the start of their field: a text that is not
 *   terminated inside its field runs on into the next one. The record's end ends it: what fills the
 *   last field is as long as that field.
 *
 * An "unterminated copy" into a caller's text writes the characters alone, without a zero. It ends
 * with the value, with the platform's field, or one short of the stated size of the destination,
 * whichever comes first, so the destination must be zero-filled.
 */
#ifndef PMAPI_TYPES_H_
#define PMAPI_TYPES_H_

#include <stdint.h>

#include "pmapi/status.h"

#if defined(__SIZEOF_POINTER__) && __SIZEOF_POINTER__ != 4
#error "pmapi has a 32-bit ABI: compile for a target with 4-byte pointers, such as armel or i686."
#endif

#ifdef __cplusplus
/** Opens the C declarations of a header. */
#define PMAPI_BEGIN_DECLS extern "C" {
/** Closes them. */
#define PMAPI_END_DECLS }
#else
#define PMAPI_BEGIN_DECLS
#define PMAPI_END_DECLS
#endif

/** Marks everything that the library exports. */
#define PMAPI_EXPORT __attribute__((visibility("default")))

/** Gives a uint64_t member the 8-byte alignment of ARM; i386 alone would align it to 4. */
#define PMAPI_ALIGN8 __attribute__((aligned(8)))

PMAPI_BEGIN_DECLS

/** Links of a circular doubly linked list; the head of an empty list points at itself. */
typedef struct ListLink {
  struct ListLink *next;
  struct ListLink *prev;
} ListLink;

PMAPI_END_DECLS

#endif /* PMAPI_TYPES_H_ */
