#include "frame/text.hpp"

namespace pm {

void copyText(char *destination, uint32_t size, const char *source) {
  const uint32_t length = static_cast<uint32_t>(strnlen(source, size - 1));
  memcpy(destination, source, length);
  destination[length] = '\0';
}

void copyExact(char *destination, const char *source, uint32_t limit) {
  memcpy(destination, source, strnlen(source, limit));
}

void copyWord(char *destination, const char *word, uint32_t limit) {
  const uint32_t length = static_cast<uint32_t>(strnlen(word, limit));
  memcpy(destination, word, length);
  if (length < limit) destination[length] = '\0';
}

void printDecimal(char *text, int32_t value) {
  uint32_t rest = static_cast<uint32_t>(value);
  if (value < 0) {
    *text++ = '-';
    rest = 0u - rest;
  }
  char digits[10];
  uint32_t count = 0;
  do {
    digits[count++] = static_cast<char>('0' + rest % 10);
    rest /= 10;
  } while (rest != 0);
  while (count > 0) *text++ = digits[--count];
  *text = '\0';
}

}  // namespace pm
