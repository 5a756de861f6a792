// Copies of texts between records whose fields need not end with a zero.
#pragma once

#include <cstdint>
#include <cstring>

namespace pm {

/// Copies at most size-1 characters of `source` (which ends with a zero) and terminates.
void copyText(char *destination, uint32_t size, const char *source);

template <uint32_t Size>
inline void copyText(char (&destination)[Size], const char *source) {
  copyText(destination, Size, source);
}

/// Copies exactly the text's characters, at most `limit`, and no terminator: the caller of the
/// handler has zeroed the destination.
void copyExact(char *destination, const char *source, uint32_t limit);

/// Copies a word within `limit`, with a terminator where there is room for one.
void copyWord(char *destination, const char *word, uint32_t limit);

/// Room for any 32-bit number in decimal digits, its sign and terminator included.
inline constexpr uint32_t kDecimalSize = 12;

/// Prints a number as "%d" would, at a fraction of the price.
void printDecimal(char *text, int32_t value);

/// A word of a record, whose numbers are signed.
inline void printDecimal(char *text, uint32_t word) {
  printDecimal(text, static_cast<int32_t>(word));
}

/// Whether `name` begins with `prefix`.
inline bool startsWith(const char *name, const char *prefix) {
  return strncmp(name, prefix, strlen(prefix)) == 0;
}

/// Whether `given`, taken over its own length, is a beginning of `word`; an empty text is. Most
/// words differ in their first letter, sooner than libc measures a text.
inline bool abbreviates(const char *given, const char *word) {
  while (*given != '\0' && *given == *word) ++given, ++word;
  return *given == '\0';
}

}  // namespace pm
