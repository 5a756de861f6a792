// The library's hands on platform records: a buffer of one record or view with typed access.
//
//   ViewBuffer<GatewayIdentityView> identity;   // zeroed, header written
//   identity.set(identity.captureEth, name);              // stores and marks
//   const int32_t status = identity.write(kGatewayPath);
//
// Values are stored and marked by one call, so neither can be forgotten. Access compiles down to a
// constant offset; field names do not reach the built library.
#pragma once

#include <cstring>

#include "frame/instance.hpp"
#include "frame/text.hpp"
#include "platform/config_database.h"
#include "platform/layout.hpp"

#define PM_INLINE __attribute__((always_inline)) inline

namespace pm {

using namespace platform;

enum class Mark : uint16_t { kWrite = 1, kMatch = 2 };

void putMark(uint8_t *record, uint32_t offset, Mark mark);
void putWord(uint8_t *record, uint32_t offset, uint32_t value, Mark mark);
void putMac(uint8_t *record, uint32_t offset, const uint8_t *mac, Mark mark);

/// Copies `text` into a slot of `usable` characters, or declares the slot invalid when the text is
/// longer. The mark is written either way; the platform decides what an invalid field means.
void putText(uint8_t *record, uint32_t offset, uint32_t usable, const char *text, Mark mark);

/// Where a field lies: what is left of it where it is chosen as the library runs.
template <FieldKind Kind, uint32_t Width>
struct Place {
  uint16_t offset;

  template <bool Marked>
  consteval Place(TypedField<Kind, Marked, Width> field)
      : offset(static_cast<uint16_t>(field.offset)) {}
};

using WordPlace = Place<FieldKind::kWord, 4>;
using CounterPlace = Place<FieldKind::kCounter, 8>;

/// A constant that a handler writes into one word of a record.
struct FixedWord {
  uint16_t offset;
  int16_t value;
};

consteval FixedWord fixed(Word field, int16_t value) {
  return {static_cast<uint16_t>(field.offset), value};
}

/// A word that a handler carries from one record over into another.
struct CarriedWord {
  uint16_t from;
  uint16_t to;
};

consteval CarriedWord carried(Word from, Word to) {
  return {static_cast<uint16_t>(from.offset), static_cast<uint16_t>(to.offset)};
}

/// Stores and marks every word of a table.
void putWords(uint8_t *record, const FixedWord *words, uint32_t count);
void carryWords(uint8_t *record, const uint8_t *source, const CarriedWord *words, uint32_t count);

template <class T>
PM_INLINE T loadAs(const uint8_t *record, uint32_t offset) {
  T value;
  memcpy(&value, __builtin_assume_aligned(record + offset, 4), sizeof value);
  return value;
}

/// Stores a plain value; slots are filled through the marking calls only.
template <class T>
PM_INLINE void storePlain(uint8_t *record, uint32_t offset, T value) {
  memcpy(__builtin_assume_aligned(record + offset, 4), &value, sizeof value);
}

// What a record holds, be it a buffer's or a row of one.

template <bool Marked>
PM_INLINE uint32_t load(const uint8_t *record, TypedField<FieldKind::kWord, Marked, 4> field) {
  return loadAs<uint32_t>(record, field.offset);
}

PM_INLINE uint32_t load(const uint8_t *record, WordPlace place) {
  return loadAs<uint32_t>(record, place.offset);
}

template <bool Marked>
PM_INLINE uint8_t load(const uint8_t *record, TypedField<FieldKind::kByte, Marked, 1> field) {
  return record[field.offset];
}

template <bool Marked>
PM_INLINE uint64_t load(const uint8_t *record, TypedField<FieldKind::kCounter, Marked, 8> field) {
  return loadAs<uint64_t>(record, field.offset);
}

PM_INLINE uint64_t load(const uint8_t *record, CounterPlace place) {
  return loadAs<uint64_t>(record, place.offset);
}

template <bool Marked>
PM_INLINE const uint8_t *load(const uint8_t *record, TypedField<FieldKind::kMac, Marked, 6> field) {
  return record + field.offset;
}

template <bool Marked, uint32_t Width>
PM_INLINE const uint8_t *load(const uint8_t *record,
                              TypedField<FieldKind::kBytes, Marked, Width> field) {
  return record + field.offset;
}

/// The characters of a text, which has no end where the platform filled its field.
template <bool Marked, uint32_t Width>
PM_INLINE const char *load(const uint8_t *record,
                           TypedField<FieldKind::kText, Marked, Width> field) {
  return reinterpret_cast<const char *>(record + field.offset);
}

template <bool Marked>
PM_INLINE int32_t loadSigned(const uint8_t *record, TypedField<FieldKind::kWord, Marked, 4> field) {
  return loadAs<int32_t>(record, field.offset);
}

PM_INLINE void writeHeader(uint8_t *view, uint32_t size) {
  storePlain<uint32_t>(view, 0, size);
  storePlain<uint32_t>(view, 4, PLATFORM_BLOCK_MARKER);
}

/// Zeroes a view of `size` bytes and writes its header.
void prepareView(uint8_t *view, uint32_t size);

template <class Layout>
class alignas(8) RecordBuffer : public Layout {
 public:
  using Layout::bytes;

  RecordBuffer() { clear(); }
  RecordBuffer(const RecordBuffer &) = delete;
  RecordBuffer &operator=(const RecordBuffer &) = delete;

  void clear() { memset(bytes, 0, Layout::kSize); }

  template <class AnyField>
  PM_INLINE auto get(AnyField field) const {
    return load(bytes, field);
  }

  template <bool Marked>
  PM_INLINE int32_t getSigned(TypedField<FieldKind::kWord, Marked, 4> field) const {
    return loadSigned(bytes, field);
  }

  template <class Row, uint32_t Count>
  PM_INLINE const uint8_t *row(const PlainRows<Row, Count> &rows, uint32_t index) const {
    return bytes + rows.offset + index * Row::kSize;
  }

  /// Where a word stands, for calls that take it from there.
  PM_INLINE uint8_t *at(Word field) { return bytes + field.offset; }

  /// The field as a C text. The platform may have filled the field to its last byte, which is given
  /// up for the terminator.
  template <bool Marked, uint32_t Width>
  PM_INLINE const char *text(TypedField<FieldKind::kText, Marked, Width> field) {
    bytes[field.offset + Width - 1] = '\0';
    return reinterpret_cast<const char *>(bytes + field.offset);
  }

  PM_INLINE void set(Word field, uint32_t newValue) {
    putWord(bytes, field.offset, newValue, Mark::kWrite);
  }

  PM_INLINE void set(Word field, int32_t newValue) {
    putWord(bytes, field.offset, static_cast<uint32_t>(newValue), Mark::kWrite);
  }

  PM_INLINE void set(Byte field, uint8_t newValue) {
    bytes[field.offset] = newValue;
    putMark(bytes, field.offset, Mark::kWrite);
  }

  PM_INLINE void set(Mac field, const uint8_t *newMac) {
    putMac(bytes, field.offset, newMac, Mark::kWrite);
  }

  PM_INLINE void set(Pointer field, const void *newPointer) {
    putWord(bytes, field.offset, static_cast<uint32_t>(reinterpret_cast<uintptr_t>(newPointer)),
            Mark::kWrite);
  }

  template <uint32_t Width>
  PM_INLINE void set(TypedField<FieldKind::kText, true, Width> field, const char *newText) {
    putText(bytes, field.offset, Width - 4, newText, Mark::kWrite);
  }

  template <uint32_t Count>
  PM_INLINE void set(const FixedWord (&words)[Count]) {
    putWords(bytes, words, Count);
  }

  template <uint32_t Count>
  PM_INLINE void carry(const uint8_t *source, const CarriedWord (&words)[Count]) {
    carryWords(bytes, source, words, Count);
  }

  PM_INLINE void put(PlainWord field, uint32_t newValue) {
    storePlain(bytes, field.offset, newValue);
  }

  PM_INLINE void put(PlainByte field, uint8_t newValue) { bytes[field.offset] = newValue; }

  PM_INLINE void put(PlainMac field, const uint8_t *newMac) {
    memcpy(bytes + field.offset, newMac, 6);
  }

  PM_INLINE void put(PlainPointer field, const void *newPointer) {
    storePlain(bytes, field.offset, newPointer);
  }

  template <uint32_t Width>
  PM_INLINE void put(PlainBytes<Width> field, const uint8_t *newBytes) {
    memcpy(bytes + field.offset, newBytes, Width);
  }

  template <class Row, uint32_t Count>
  PM_INLINE void put(const PlainRows<Row, Count> &rows, uint32_t index, const uint8_t *newRow) {
    memcpy(bytes + rows.offset + index * Row::kSize, newRow, Row::kSize);
  }

  template <uint32_t Width>
  PM_INLINE void put(TypedField<FieldKind::kText, false, Width> field, const char *newText) {
    copyText(reinterpret_cast<char *>(bytes + field.offset), Width, newText);
  }
};

template <class Layout>
class ViewBuffer : public RecordBuffer<Layout> {
 public:
  using Layout::bytes;

  ViewBuffer() { writeHeader(bytes, Layout::kSize); }

  /// Makes the buffer fit for another read.
  void reset() { prepareView(bytes, Layout::kSize); }

  int32_t read(const InstancePath &path) { return readAt(path.text); }
  int32_t write(const InstancePath &path) { return writeAt(path.text); }

  /// The same with a path that is handed on as it was given.
  int32_t readAt(const char *path) { return vcorDbGetView(Layout::kId, path, bytes); }
  /// The header is written anew: a platform's read may have put its own there.
  int32_t writeAt(const char *path) {
    writeHeader(bytes, Layout::kSize);
    return vcorDbSetView(Layout::kId, path, bytes);
  }
  int32_t query(InstanceList *found) { return vcorDbQryView(Layout::kId, bytes, found); }

  PM_INLINE void match(Word field, uint32_t wanted) {
    putWord(bytes, field.offset, wanted, Mark::kMatch);
  }

  PM_INLINE void match(Mac field, const uint8_t *wantedMac) {
    putMac(bytes, field.offset, wantedMac, Mark::kMatch);
  }

  template <uint32_t Width>
  PM_INLINE void match(TypedField<FieldKind::kText, true, Width> field, const char *wanted) {
    putText(bytes, field.offset, Width - 4, wanted, Mark::kMatch);
  }
};

}  // namespace pm
