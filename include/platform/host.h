/* Utilities of the daemon's process: memory blocks, address texts, figures of the hardware. */
#ifndef PLATFORM_HOST_H
#define PLATFORM_HOST_H

#include "platform/import.h"

PLATFORM_BEGIN_DECLS

/** Memory figures in the unit of the running system. */
typedef struct MemInfo {
  uint32_t total;
  uint32_t free;
  uint32_t buffers;
  uint32_t cached;
} MemInfo;

/** Bits of the mask that GetUpMode delivers. */
enum UpModeMask { UP_MODE_MASK_GPON = 8, UP_MODE_MASK_XGPON = 64 };

/** A block of at least `size` bytes with any content; NULL when there is none. */
PLATFORM_IMPORT void *GetUB(uint32_t size);
/** Gives a block of GetUB back. */
PLATFORM_IMPORT void RetUB(void *block);

/** Reads twelve hexadecimal digits, or six pairs with ":"; 0 when `text` is no MAC. */
PLATFORM_IMPORT int32_t StrToMAC(const char *text, uint8_t mac[6]);
/** Prints six bytes as text; `length` is the size of `text`. */
PLATFORM_IMPORT int32_t MACToStr(const uint8_t mac[6], char *text, uint32_t length);
/** Prints a dotted address whose first octet is the most significant byte of `address`. */
PLATFORM_IMPORT int32_t IPToStr(uint32_t address, char *text, uint32_t length);
/** Reads a dotted address into a word whose most significant byte is the first octet. */
PLATFORM_IMPORT int32_t StrToIP(const char *text, uint32_t *address);
/** Prints an IPv6 address; `length` is the size of `text`. */
PLATFORM_IMPORT int32_t IPv6ToStr(const uint8_t address[16], char *text, uint32_t length);
/** -1 for an address that is not worth reporting. */
PLATFORM_IMPORT int32_t ChkIPv6(const uint8_t address[16]);
/** Copies at most `size` - 1 characters and terminates them; returns `destination`. */
PLATFORM_IMPORT char *SafeStrncpy(char *destination, const char *source, uint32_t size);
/** Prints `value` in base `radix`; `text` must hold it. Returns `text`. */
PLATFORM_IMPORT char *itoa(int32_t value, char *text, int32_t radix);

/** Number of the processor model, 1 to 5; 0 is success here and in the getters below. */
PLATFORM_IMPORT int32_t GetCpuType(int32_t *type);
PLATFORM_IMPORT int32_t GetFlashSizeTotal(uint32_t *size);
PLATFORM_IMPORT int32_t GetRamSizeTotal(uint32_t *size);
PLATFORM_IMPORT int32_t GetMemInfo(MemInfo *figures);
/** The kinds of uplink that the hardware has, as UpModeMask bits. */
PLATFORM_IMPORT int32_t GetUpMode(uint32_t *mask);
/** Runs `program` with `commandLine` (which begins with the program's name); 0 when started. */
PLATFORM_IMPORT int32_t PcStartProgram(const char *program, const char *commandLine,
                                       int32_t reserved1, int32_t reserved2);

PLATFORM_END_DECLS

#endif
