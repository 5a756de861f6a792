// How a record looks, as a table that is derived from its C or C++ structure, or from a layout of
// the platform:
//
//   PM_RECORD(ConnectRecord, PM_FIELD(ssid), PM_FIELD(pwd).secret());
//
// Kind, place and size of a member come from its type; members that are not listed (reserved words,
// link pointers) are neither read nor printed. Records of the daemon, records of the platform and
// the sections of a profile are all read and printed by these tables (codec.hpp).
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "platform/layout.hpp"
#include "records/addresses.hpp"

namespace records {

enum class Kind : uint8_t {
  kUnsigned,
  kSigned,
  kEitherSign, /**< a word of the platform, whose sign nobody states */
  kFlag,
  kText,     /**< characters up to a zero or to the end of their room */
  kString,   /**< a std::string */
  kDocument, /**< a std::string of JSON, which may also be given as the JSON itself */
  kMac,
  kIpv6,
  kBytes,
  kPointer,
  kRecord,
};

struct Shape;

/// How elements are reached whose number is not fixed.
struct Sequence {
  size_t (*count)(const void *sequence);
  const void *(*at)(const void *sequence, size_t index);
  void *(*append)(void *sequence);
};

inline constexpr uint32_t kUncounted = UINT32_MAX;

struct Member {
  const char *name;
  Kind kind;
  uint32_t offset;
  uint32_t size;          ///< of one element
  uint32_t elements = 1;  ///< 1 for a plain member; what the daemon allocates for an open tail
  bool isArray = false;
  bool isTail = false;
  bool isInput = false;
  bool isOptional = false;
  uint32_t longest = 0;                ///< characters of a text
  uint32_t counter = kUncounted;       ///< place of the 32-bit word that counts the filled elements
  const Shape *shape = nullptr;        ///< of a record
  const Sequence *sequence = nullptr;  ///< of what grows: an array, or one optional value
  platform::Meaning meaning = {};

  /// Masked in what the command prints, unless the user asks for it.
  constexpr Member secret() const { return means(platform::kSecret); }

  /// What is known of the values.
  constexpr Member means(const platform::Meaning &known) const {
    Member member = *this;
    member.meaning = meaning.with(known);
    return member;
  }
  constexpr Member means(const char *text) const { return means({.text = text}); }

  /// Read by a handler whose record otherwise carries the answer.
  constexpr Member input() const {
    Member member = *this;
    member.isInput = true;
    return member;
  }

  /// May be left out of an argument; it is zero then.
  constexpr Member optional() const {
    Member member = *this;
    member.isOptional = true;
    return member;
  }

  /// What the daemon allocates for an open tail: characters of a text, else elements.
  constexpr Member capacity(uint32_t count) const {
    Member member = *this;
    (isArray ? member.elements : member.size) = count;
    if (!isArray) member.longest = count - 1;
    return member;
  }

  /// At most so many elements, or characters of a std::string.
  constexpr Member atMost(uint32_t count) const {
    Member member = *this;
    (isArray ? member.elements : member.longest) = count;
    return member;
  }

  /// What JSON calls the member, where that is no name of C++ or says more in its place.
  constexpr Member named(const char *other) const {
    Member member = *this;
    member.name = other;
    return member;
  }

  constexpr Member document() const {
    Member member = *this;
    member.kind = Kind::kDocument;
    return member;
  }

  constexpr Member countedBy(uint32_t place) const {
    Member member = *this;
    member.counter = place;
    return member;
  }

  constexpr bool isSecret() const { return meaning.isSecret; }
  constexpr uint32_t end() const { return offset + size * elements; }
};

struct Shape {
  std::string_view name;
  uint32_t size;  ///< of the structure without its open tail
  std::span<const Member> members;
  /// A plain value stands for the first member alone.
  bool hasShortForm = false;

  /// Whether `member` counts the elements of another one: left out, it follows from these.
  constexpr bool isCounter(const Member &member) const {
    for (const Member &counted : members) {
      if (counted.counter == member.offset) return true;
    }
    return false;
  }

  constexpr const Member *find(std::string_view memberName) const {
    for (const Member &member : members) {
      if (memberName == member.name) return &member;
    }
    return nullptr;
  }

  constexpr uint32_t allocation() const {
    uint32_t end = size;
    for (const Member &member : members) end = member.end() > end ? member.end() : end;
    return end;
  }
};

/// Specialised by PM_RECORD.
template <class Record>
struct RecordTable;

/// "Host" of "gateway::Host".
consteval std::string_view withoutScope(std::string_view name) {
  const size_t scope = name.rfind("::");
  return scope == std::string_view::npos ? name : name.substr(scope + 2);
}

template <class Record>
inline constexpr Shape kShape{withoutScope(RecordTable<Record>::kName), sizeof(Record),
                              RecordTable<Record>::kMembers, RecordTable<Record>::kHasShortForm};

template <class Element>
inline constexpr Sequence kVectorOf{
    [](const void *vector) { return static_cast<const std::vector<Element> *>(vector)->size(); },
    [](const void *vector, size_t index) -> const void * {
      return &(*static_cast<const std::vector<Element> *>(vector))[index];
    },
    [](void *vector) -> void * {
      return &static_cast<std::vector<Element> *>(vector)->emplace_back();
    }};

template <class Element>
inline constexpr Sequence kOptionalOf{
    [](const void *value) -> size_t {
      return static_cast<const std::optional<Element> *>(value)->has_value() ? 1 : 0;
    },
    [](const void *value, size_t) -> const void * {
      return &**static_cast<const std::optional<Element> *>(value);
    },
    [](void *value) -> void * { return &static_cast<std::optional<Element> *>(value)->emplace(); }};

template <class Element>
consteval void describeElement(Member &member) {
  member.size = sizeof(Element);
  if constexpr (std::is_same_v<std::remove_all_extents_t<Element>, char>) {
    member.kind = Kind::kText;
    member.longest = member.size == 0 ? 0 : member.size - 1;
  } else if constexpr (std::is_same_v<Element, std::string>) {
    member.kind = Kind::kString;
    member.longest = UINT32_MAX;
  } else if constexpr (std::is_same_v<Element, bool>) {
    member.kind = Kind::kFlag;
  } else if constexpr (std::is_enum_v<Element>) {
    member.kind = Kind::kUnsigned;
  } else if constexpr (std::is_integral_v<Element>) {
    member.kind = std::is_signed_v<Element> ? Kind::kSigned : Kind::kUnsigned;
  } else if constexpr (std::is_same_v<Element, MacAddress>) {
    member.kind = Kind::kMac;
  } else if constexpr (std::is_same_v<Element, Ipv6Address>) {
    member.kind = Kind::kIpv6;
  } else {
    member.kind = Kind::kRecord;
    member.shape = &kShape<Element>;
  }
}

template <class Type>
struct ElementOf {
  using Element = Type;
  static constexpr bool kIsVector = false;
  static constexpr bool kIsOptional = false;
};
template <class Type>
struct ElementOf<std::vector<Type>> {
  using Element = Type;
  static constexpr bool kIsVector = true;
  static constexpr bool kIsOptional = false;
};
template <class Type>
struct ElementOf<std::optional<Type>> {
  using Element = Type;
  static constexpr bool kIsVector = false;
  static constexpr bool kIsOptional = true;
};

template <class Type>
consteval Member describeMember(const char *name, size_t offset) {
  Member member{.name = name, .kind = {}, .offset = static_cast<uint32_t>(offset), .size = 0};
  using Inner = typename ElementOf<Type>::Element;
  if constexpr (ElementOf<Type>::kIsVector) {
    describeElement<Inner>(member);
    member.isArray = true;
    member.elements = UINT32_MAX;
    member.sequence = &kVectorOf<Inner>;
  } else if constexpr (ElementOf<Type>::kIsOptional) {
    describeElement<Inner>(member);
    member.sequence = &kOptionalOf<Inner>;
  } else {
    // An array of char is a text; everything else with an extent is an array of its elements.
    constexpr bool kIsText = std::is_same_v<std::remove_all_extents_t<Type>, char>;
    constexpr bool kIsArray = std::rank_v < Type >> (kIsText ? 1 : 0);
    using Element = std::conditional_t<kIsArray, std::remove_extent_t<Type>, Type>;
    static_assert(std::rank_v<Element> == (kIsText ? 1 : 0), "arrays of arrays are not supported");
    member.isArray = kIsArray;
    member.isTail = std::is_unbounded_array_v<Type>;
    if constexpr (kIsArray) member.elements = static_cast<uint32_t>(std::extent_v<Type>);
    if constexpr (std::is_unbounded_array_v<Element>) {
      member.kind = Kind::kText;
    } else {
      describeElement<Element>(member);
    }
  }
  return member;
}

}  // namespace records

#define PM_RECORD_AS(hasShortForm, Type, ...)                      \
  template <>                                                      \
  struct records::RecordTable<Type> {                              \
    using Record = Type;                                           \
    static constexpr char kName[] = #Type;                         \
    static constexpr bool kHasShortForm = hasShortForm;            \
    static constexpr ::records::Member kMembers[] = {__VA_ARGS__}; \
  }

/// To be used at global scope. Inside, PM_FIELD names a member of the record.
#define PM_RECORD(Type, ...) PM_RECORD_AS(false, Type, __VA_ARGS__)

#define PM_FIELD(member)                                                        \
  ::records::describeMember<std::remove_reference_t<decltype(Record::member)>>( \
      #member, offsetof(Record, member))

/// An array of which the member `count` says how many elements are filled.
#define PM_COUNTED(member, count) PM_FIELD(member).countedBy(offsetof(Record, count))
