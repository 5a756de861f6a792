#include "frame/record_buffer.hpp"

namespace pm {

void putMark(uint8_t *record, uint32_t offset, Mark mark) {
  const auto value = static_cast<uint16_t>(mark);
  memcpy(record + offset - kMarkDistance, &value, sizeof value);
}

void putWord(uint8_t *record, uint32_t offset, uint32_t value, Mark mark) {
  putMark(record, offset, mark);
  storePlain(record, offset, value);
}

void putMac(uint8_t *record, uint32_t offset, const uint8_t *mac, Mark mark) {
  putMark(record, offset, mark);
  memcpy(record + offset, mac, 6);
}

void putText(uint8_t *record, uint32_t offset, uint32_t usable, const char *text, Mark mark) {
  putMark(record, offset, mark);
  const uint32_t length = static_cast<uint32_t>(strnlen(text, usable + 1));
  if (length > usable) {
    storePlain<int32_t>(record, offset - kValidityDistance, -1);
    return;
  }
  // Padded as strncpy would: a shorter text must not leave the end of an earlier one behind.
  memcpy(record + offset, text, length);
  memset(record + offset + length, 0, usable + 4 - length);
}

void putWords(uint8_t *record, const FixedWord *words, uint32_t count) {
  for (uint32_t i = 0; i < count; ++i) {
    putWord(record, words[i].offset, static_cast<uint32_t>(int32_t{words[i].value}), Mark::kWrite);
  }
}

void carryWords(uint8_t *record, const uint8_t *source, const CarriedWord *words, uint32_t count) {
  for (uint32_t i = 0; i < count; ++i) {
    putWord(record, words[i].to, loadAs<uint32_t>(source, words[i].from), Mark::kWrite);
  }
}

void prepareView(uint8_t *view, uint32_t size) {
  memset(view, 0, size);
  writeHeader(view, size);
}

}  // namespace pm
