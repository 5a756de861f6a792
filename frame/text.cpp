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

}  // namespace pm
