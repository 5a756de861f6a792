// How the daemon's records look, as tables that are derived from the public C structs.
//
//   PM_RECORD(ConnectRecord, PM_FIELD(ssid), PM_FIELD(pwd).secret());
//
// The kind, place and size of a member come from its type; members that are not listed (reserved
// words, link pointers) are neither read nor printed.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <type_traits>

namespace command {

enum class Kind : uint8_t { kText, kSigned, kUnsigned, kRecord };

struct Shape;

inline constexpr uint32_t kUncounted = UINT32_MAX;

struct Field {
  const char *name;
  Kind kind;
  uint32_t offset;
  uint32_t size;      ///< of one element
  uint32_t elements;  ///< 1 for a plain member; what the daemon allocates for an open tail
  bool isArray;
  bool isTail;
  const Shape *shape;             ///< of a record, else null
  uint32_t counter = kUncounted;  ///< place of the 32-bit word that counts the filled elements
  bool isSecret = false;
  bool isInput = false;
  bool isOptional = false;

  /// Masked in what the command prints, unless the user asks for it.
  constexpr Field secret() const {
    Field field = *this;
    field.isSecret = true;
    return field;
  }

  /// Read by a handler whose record otherwise carries the answer.
  constexpr Field input() const {
    Field field = *this;
    field.isInput = true;
    return field;
  }

  /// May be left out of an argument; it is zero then.
  constexpr Field optional() const {
    Field field = *this;
    field.isOptional = true;
    return field;
  }

  /// What the daemon allocates for an open tail: characters of a text, else elements.
  constexpr Field capacity(uint32_t count) const {
    Field field = *this;
    (isArray ? field.elements : field.size) = count;
    return field;
  }

  constexpr Field countedBy(uint32_t place) const {
    Field field = *this;
    field.counter = place;
    return field;
  }

  constexpr uint32_t end() const { return offset + size * elements; }
};

struct Shape {
  const char *name;
  uint32_t size;  ///< of the struct without its open tail
  std::span<const Field> fields;

  /// Whether `field` counts the elements of another one: left out, it follows from these.
  constexpr bool isCounter(const Field &field) const {
    for (const Field &counted : fields) {
      if (counted.counter == field.offset) return true;
    }
    return false;
  }

  constexpr uint32_t allocation() const {
    uint32_t end = size;
    for (const Field &field : fields) end = field.end() > end ? field.end() : end;
    return end;
  }
};

/// Specialised by PM_RECORD.
template <class Record>
struct RecordTable;

template <class Record>
inline constexpr Shape kShape{RecordTable<Record>::kName, sizeof(Record),
                              RecordTable<Record>::kFields};

template <class Member>
consteval Field describeField(const char *name, size_t offset) {
  using Outer = std::remove_extent_t<Member>;
  // An array of char is a text; everything else with an extent is an array of its elements.
  constexpr bool isText = std::is_same_v<std::remove_all_extents_t<Member>, char>;
  constexpr bool isArray = std::rank_v < Member >> (isText ? 1 : 0);
  constexpr bool isTail = std::is_unbounded_array_v<Member>;
  using Element = std::conditional_t<isArray, Outer, Member>;
  static_assert(std::rank_v<Element> == (isText ? 1 : 0), "arrays of arrays are not supported");

  Field field{};
  field.name = name;
  field.offset = static_cast<uint32_t>(offset);
  field.elements = isArray ? static_cast<uint32_t>(std::extent_v<Member>) : 1;
  field.isArray = isArray;
  field.isTail = isTail;
  field.counter = kUncounted;
  if constexpr (!isTail || isArray) field.size = sizeof(Element);
  if constexpr (isText) {
    field.kind = Kind::kText;
  } else if constexpr (std::is_integral_v<Element>) {
    field.kind = std::is_signed_v<Element> ? Kind::kSigned : Kind::kUnsigned;
  } else {
    field.kind = Kind::kRecord;
    field.shape = &kShape<Element>;
  }
  return field;
}

}  // namespace command

// To be used in namespace command. Inside, PM_FIELD names a member of the record.
#define PM_RECORD(Type, ...)                          \
  template <>                                         \
  struct RecordTable<Type> {                          \
    using Record = Type;                              \
    static constexpr char kName[] = #Type;            \
    static constexpr Field kFields[] = {__VA_ARGS__}; \
  }

#define PM_FIELD(member) describeField<decltype(Record::member)>(#member, offsetof(Record, member))

/// An array of which the member `count` says how many elements are filled.
#define PM_COUNTED(member, count) PM_FIELD(member).countedBy(offsetof(Record, count))
