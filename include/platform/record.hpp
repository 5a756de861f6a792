// Layouts of the platform's records and views: what lies where, under which name, and nothing else.
//
// A platform record is a row of slots. A value at offset V carries a 16-bit mark at V-26 and, when
// it is a text, a signed validity word at V-4; the slot as a whole begins at V-28. Some records
// also hold plain values without a mark. A record is declared once, as a list of fields:
//
//   struct GatewayIdentityView : View<DBVIEW_GATEWAY_IDENTITY, 872> {
//     static constexpr Text<32> productToken{"productToken", 100};
//     static constexpr Text<32> captureEth{"captureEth", 548};
//     static constexpr auto fields = layout(productToken, captureEth);
//   };
//
// layout() does not compile when a field leaves its record or two fields overlap. The names are for
// those who print and parse records; code that only moves values never refers to them.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace platform {

enum class FieldKind : uint8_t { kWord, kByte, kMac, kCounter, kText, kBytes, kPointer };

inline constexpr uint32_t kMarkDistance = 26;
inline constexpr uint32_t kValidityDistance = 4;
inline constexpr uint32_t kSlotDistance = 28;
inline constexpr uint32_t kViewHeaderSize = 8;

struct Field {
  const char *name;
  uint32_t offset;
  uint32_t width;
  FieldKind kind;
  bool marked;

  constexpr uint32_t begin() const { return marked ? offset - kSlotDistance : offset; }
  constexpr uint32_t end() const { return offset + width; }
};

template <FieldKind Kind, bool Marked, uint32_t Width>
struct TypedField : Field {
  consteval TypedField(const char *fieldName, uint32_t valueOffset)
      : Field{fieldName, valueOffset, Width, Kind, Marked} {}
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

namespace detail {

// Deliberately not constexpr: reaching one of these ends compilation with its name in the message.
void fieldLeavesItsRecord();
void fieldsOverlap();
void fieldIsNotAligned();

consteval uint32_t alignmentOf(const Field &field) {
  switch (field.kind) {
    case FieldKind::kWord:
    case FieldKind::kCounter:
    case FieldKind::kPointer:
      return 4;
    case FieldKind::kText:
      return field.marked ? 4 : 1;  // that of its validity word
    default:
      return 1;
  }
}

template <size_t Count>
consteval void checkLayout(const std::array<Field, Count> &fields, uint32_t first, uint32_t size) {
  for (size_t i = 0; i < Count; ++i) {
    const Field &field = fields[i];
    if (field.marked && field.offset < first + kSlotDistance) fieldLeavesItsRecord();
    if (field.offset < first || field.end() > size) fieldLeavesItsRecord();
    if (field.offset % alignmentOf(field) != 0) fieldIsNotAligned();
    for (size_t j = 0; j < i; ++j) {
      if (field.begin() < fields[j].end() && fields[j].begin() < field.end()) fieldsOverlap();
    }
  }
}

template <uint32_t First, uint32_t Size, class... Fields>
consteval std::array<Field, sizeof...(Fields)> checkedLayout(const Fields &...fields) {
  const std::array<Field, sizeof...(Fields)> all{fields...};
  checkLayout(all, First, Size);
  return all;
}

}  // namespace detail

/// A headerless record of Size bytes, exchanged with a pm_* call, a message or an event.
template <uint32_t Size>
struct Record {
  static constexpr uint32_t kSize = Size;
  static constexpr uint32_t kFirst = 0;

  alignas(4) uint8_t bytes[Size];

  template <class... Fields>
  static consteval auto layout(const Fields &...fields) {
    return detail::checkedLayout<kFirst, kSize>(fields...);
  }
};

/// A configuration view: the same with an 8-byte header {length, marker} and the platform's id.
template <uint32_t Id, uint32_t Size>
struct View {
  static constexpr uint32_t kId = Id;
  static constexpr uint32_t kSize = Size;
  static constexpr uint32_t kFirst = kViewHeaderSize;

  alignas(4) uint8_t bytes[Size];

  template <class... Fields>
  static consteval auto layout(const Fields &...fields) {
    return detail::checkedLayout<kFirst, kSize>(fields...);
  }
};

}  // namespace platform
