// Makes tables of what include/platform declares, while the compiler runs: the fields of a record
// in the order of their lines, and the names of records and views.
#pragma once

#include <array>
#include <string_view>
#include <tuple>
#include <utility>

#include "records/layouts.hpp"

namespace records {

// Deliberately not constexpr: reaching one of these ends compilation with its name in the message.
void fieldLeavesItsRecord();
void fieldsOverlap();
void fieldIsNotAligned();

consteval uint32_t alignmentOf(const platform::Field &field) {
  switch (field.kind) {
    case platform::FieldKind::kWord:
    case platform::FieldKind::kCounter:
    case platform::FieldKind::kPointer:
    case platform::FieldKind::kRows:
      return 4;
    case platform::FieldKind::kText:
      return field.marked ? 4 : 1;  // that of its validity word
    default:
      return 1;
  }
}

template <size_t Count>
consteval void checkLayout(const std::array<platform::Field, Count> &fields, uint32_t first,
                           uint32_t size) {
  for (size_t i = 0; i < Count; ++i) {
    const platform::Field &field = fields[i];
    if (field.marked && field.offset < first + platform::kSlotDistance) fieldLeavesItsRecord();
    if (field.offset < first || field.end() > size) fieldLeavesItsRecord();
    if (field.offset % alignmentOf(field) != 0) fieldIsNotAligned();
    for (size_t j = 0; j < i; ++j) {
      if (field.begin() < fields[j].end() && fields[j].begin() < field.end()) fieldsOverlap();
    }
  }
}

template <class Record, uint32_t Number>
concept DeclaresFieldAt = requires {
  Record::fieldAt(platform::Line<Number>{});
};

template <class Record, uint32_t Number, size_t Count>
consteval void takeField(std::array<platform::Field, Count> &fields, size_t &next) {
  if constexpr (DeclaresFieldAt<Record, Number>) {
    fields[next++] = Record::fieldAt(platform::Line<Number>{});
  }
}

template <class Record, uint32_t... Lines>
consteval auto collectFields(std::integer_sequence<uint32_t, Lines...>) {
  std::array<platform::Field, (0 + ... + DeclaresFieldAt<Record, Lines>)> fields{};
  size_t next = 0;
  (takeField<Record, Lines>(fields, next), ...);
  checkLayout(fields, Record::kFirst, Record::kSize);
  return fields;
}

template <class Record, uint32_t LastLine>
inline constexpr auto kFieldsOf =
    collectFields<Record>(std::make_integer_sequence<uint32_t, LastLine>());

/// The first argument of a template, out of what a compiler prints of it, without its scope.
consteval std::string_view firstArgument(std::string_view signature) {
  signature.remove_prefix(signature.find("= ") + 2);
  signature = signature.substr(0, signature.find_first_of(";]"));
  const size_t scope = signature.rfind("::");
  if (scope != std::string_view::npos) signature.remove_prefix(scope + 2);
  return signature;
}

template <class Type>
consteval std::string_view nameOf() {
  return firstArgument(__PRETTY_FUNCTION__);
}

template <auto Value>
consteval std::string_view nameOf() {
  return firstArgument(__PRETTY_FUNCTION__);
}

template <class Record, uint32_t LastLine>
constexpr Layout describe() {
  const platform::RecordType type = platform::typeOf<Record>();
  if constexpr (requires { Record::kId; }) {
    return {nameOf<Record::kId>(), Record::kId, Record::kSize, kFieldsOf<Record, LastLine>, type};
  } else {
    return {nameOf<Record>(), 0, Record::kSize, kFieldsOf<Record, LastLine>, type};
  }
}

template <uint32_t LastLine, class... Records>
constexpr std::array<Layout, sizeof...(Records)> describeAll(
    platform::LayoutList<LastLine, Records...>) {
  return {describe<Records, LastLine>()...};
}

/// The layouts of several families, one after the other.
template <class... Families>
constexpr auto describeFamilies() {
  return std::apply(
      [](const auto &...family) {
        std::array<Layout, (0 + ... + std::tuple_size_v<std::remove_cvref_t<decltype(family)>>)>
            all{};
        size_t next = 0;
        const auto append = [&](const auto &layouts) {
          for (const Layout &layout : layouts) all[next++] = layout;
        };
        (append(family), ...);
        return all;
      },
      std::tuple(describeAll(Families{})...));
}

}  // namespace records
