// Layouts of the platform's records and views: what lies where, under which name, and what it
// means.
//
// A platform record is a row of slots. A value at offset V carries a 16-bit mark at V-26 and, when
// it is a text, a signed validity word at V-4; the slot as a whole begins at V-28. Some records
// also hold plain values without a mark. A record is a list of fields, one a line:
//
//   struct GatewayIdentityView : View<DBVIEW_GATEWAY_IDENTITY, 872> {
//     FIELD(Text<32>, productToken, 100);
//     FIELD(Text<32>, captureEth, 548, note("the interface that is watched"));
//   };
//
// A family's header ends with LAYOUTS(WanLayouts, WanConnectionView, ...): who walks all records
// (records/layouts.hpp) finds them there, and does not compile when a field leaves its record or
// two fields overlap. Names and meanings are for those who print and parse records; code that only
// moves values never refers to them.
#pragma once

#include <cstddef>
#include <cstdint>

#include "platform/view_ids.h"

namespace platform {

enum class FieldKind : uint8_t { kWord, kByte, kMac, kCounter, kText, kBytes, kPointer, kRows };

inline constexpr uint32_t kMarkDistance = 26;
inline constexpr uint32_t kValidityDistance = 4;
inline constexpr uint32_t kSlotDistance = 28;
inline constexpr uint32_t kViewHeaderSize = 8;

/// A number that stands for something, and the word for it. Arrays of texts, not of pointers:
/// nothing has to be relocated when the library that reads them is loaded.
struct Code {
  uint32_t value;
  char name[20];
  uint32_t daemonNumber = 0; /**< what the daemon says instead, where it says a number */
};

/// What is known of a value beyond its place.
struct Meaning {
  const char *text = nullptr;
  const char *unit = nullptr;
  const Code *codes = nullptr;
  uint32_t codeCount = 0;
  int32_t least = 0;
  int32_t most = 0; /**< a range where it is above `least` */
  bool isIpv4 = false;
  bool isSecret = false;

  constexpr bool hasRange() const { return most > least; }
  constexpr bool isKnown() const {
    return text != nullptr || unit != nullptr || codes != nullptr || hasRange() || isIpv4;
  }

  /// Both together: what `other` says is added.
  constexpr Meaning with(const Meaning &other) const {
    Meaning all = *this;
    if (other.text != nullptr) all.text = other.text;
    if (other.unit != nullptr) all.unit = other.unit;
    if (other.codes != nullptr) all.codes = other.codes, all.codeCount = other.codeCount;
    if (other.hasRange()) all.least = other.least, all.most = other.most;
    all.isIpv4 |= other.isIpv4;
    all.isSecret |= other.isSecret;
    return all;
  }
};

consteval Meaning note(const char *text) {
  return {.text = text};
}
consteval Meaning unit(const char *name) {
  return {.unit = name};
}
consteval Meaning range(int32_t least, int32_t most) {
  return {.least = least, .most = most};
}
template <uint32_t Count>
consteval Meaning codes(const Code (&table)[Count]) {
  return {.codes = table, .codeCount = Count};
}
/// The word is an address whose first octet is the most significant byte.
inline constexpr Meaning kIpv4{.isIpv4 = true};
/// Not to be shown: a key, a password.
inline constexpr Meaning kSecret{.isSecret = true};

/// Tells one type of record from another.
using RecordType = const char *;

template <class Record>
inline constexpr char kRecordTag = 0;

template <class Record>
constexpr RecordType typeOf() {
  return &kRecordTag<Record>;
}

struct Field {
  const char *name;
  uint32_t offset;
  uint32_t width; /**< of one row, where there are several */
  FieldKind kind;
  bool marked;
  Meaning meaning = {};
  uint32_t rows = 1;
  RecordType rowType = nullptr; /**< of rows: what each of them is */

  constexpr uint32_t begin() const { return marked ? offset - kSlotDistance : offset; }
  constexpr uint32_t end() const { return offset + width * rows; }
};

template <FieldKind Kind, bool Marked, uint32_t Width>
struct TypedField : Field {
  template <class... Meanings>
  consteval TypedField(const char *fieldName, uint32_t valueOffset, const Meanings &...meanings)
      : Field{fieldName, valueOffset, Width, Kind, Marked, together(Meaning{}, meanings...)} {}

 private:
  static consteval Meaning together(Meaning all) { return all; }
  template <class... Meanings>
  static consteval Meaning together(const Meaning &first, const Meaning &second,
                                    const Meanings &...rest) {
    return together(first.with(second), rest...);
  }
};

using Word = TypedField<FieldKind::kWord, true, 4>;
using Byte = TypedField<FieldKind::kByte, true, 1>;
using Mac = TypedField<FieldKind::kMac, true, 6>;
using Counter = TypedField<FieldKind::kCounter, true, 8>;
using Pointer = TypedField<FieldKind::kPointer, true, 4>;

/// N usable characters; the value is N+4 bytes wide and its last byte stays zero.
template <uint32_t N>
requires(N == 8 || N == 16 || N == 32 || N == 64 || N == 128 ||
         N == 256) using Text = TypedField<FieldKind::kText, true, N + 4>;

template <uint32_t Width>
using Bytes = TypedField<FieldKind::kBytes, true, Width>;

using PlainWord = TypedField<FieldKind::kWord, false, 4>;
using PlainByte = TypedField<FieldKind::kByte, false, 1>;
using PlainMac = TypedField<FieldKind::kMac, false, 6>;
using PlainCounter = TypedField<FieldKind::kCounter, false, 8>;
using PlainPointer = TypedField<FieldKind::kPointer, false, 4>;

/// A text without a mark in Width bytes, its terminating zero included where there is one.
template <uint32_t Width>
using PlainText = TypedField<FieldKind::kText, false, Width>;

template <uint32_t Width>
using PlainBytes = TypedField<FieldKind::kBytes, false, Width>;

/// `Count` records of one type, one after the other.
template <class Record, uint32_t Count>
struct PlainRows : Field {
  using Row = Record;
  static constexpr uint32_t kCount = Count;

  consteval PlainRows(const char *fieldName, uint32_t valueOffset, const Meaning &known = {})
      : Field{fieldName, valueOffset, Record::kSize, FieldKind::kRows,
              false,     known,       Count,         typeOf<Record>()} {}
};

/// A line of a source file, as a type.
template <uint32_t Number>
struct Line {};

/// A headerless record of Size bytes, exchanged with a pm_* call, a message or an event.
template <uint32_t Size>
struct Record {
  static constexpr uint32_t kSize = Size;
  static constexpr uint32_t kFirst = 0;

  alignas(4) uint8_t bytes[Size];
};

/// A configuration view: the same with an 8-byte header {length, marker} and the platform's id.
template <PlatformViewId Id, uint32_t Size>
struct View {
  static constexpr PlatformViewId kId = Id;
  static constexpr uint32_t kSize = Size;
  static constexpr uint32_t kFirst = kViewHeaderSize;

  alignas(4) uint8_t bytes[Size];
};

/// The layouts of a family, all of them declared above that line of its header.
template <uint32_t LastLine, class... Layouts>
struct LayoutList {};

}  // namespace platform

/// Declares the field `name` of a record, with what is known of it. The record's fields are found
/// again by the lines on which they stand, so that each is written once.
#define FIELD(Kind, name, ...)                                       \
  static constexpr Kind name{#name, __VA_ARGS__};                    \
  static constexpr const auto &fieldAt(::platform::Line<__LINE__>) { \
    return name;                                                     \
  }

#define LAYOUTS(Family, ...) using Family = ::platform::LayoutList<__LINE__, __VA_ARGS__>
