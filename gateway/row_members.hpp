// Members of a section that a row of the store holds as long as the gateway runs: one state, which
// the section and the row both show.
//
// Such a member is optional: what a profile says in it moves into the row. A function of the family
// names the members and their fields once, for each of these to visit.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>

#include "gateway/store.hpp"
#include "records/codec.hpp"

namespace gateway {

inline void write(const Row &row, const platform::Field &field, uint32_t value) {
  row.setWord(field, value);
}
inline void write(const Row &row, const platform::Field &field, const std::string &value) {
  row.setText(field, value);
}

inline void write(const Row &row, const platform::Field &field, int32_t value) {
  row.setWord(field, static_cast<uint32_t>(value));
}

template <class Value>
Value read(const Row &row, const platform::Field &field) {
  if constexpr (std::is_same_v<Value, std::string>) {
    return row.text(field);
  } else {
    return static_cast<Value>(row.word(field));
  }
}

/// Where a profile says this field of a row.
inline std::string placeInRow(const Row &row, const std::string &path,
                              const platform::Field &field) {
  const std::string tables = row.layout().isView() ? "views" : "records";
  return placeOf(placeOf(placeOf(tables, row.layout().name), path), field.name);
}

/// Refuses what `row`, which stood in the profile as well, says differently.
struct SameAsRow {
  Row row;
  std::string rowPath;
  std::string place;

  template <class Value>
  void operator()(const platform::Field &field, const std::optional<Value> &member,
                  const char *name) const {
    if (member && *member != read<Value>(row, field)) refuse(field, name);
  }

  [[noreturn]] void refuse(const platform::Field &field, const char *name) const {
    throw InputError(placeOf(place, name), "differs from " + placeInRow(row, rowPath, field));
  }
};

struct IntoRow {
  Row row;

  template <class Value>
  void operator()(const platform::Field &field, std::optional<Value> &member, const char *) const {
    if (member) write(row, field, *std::exchange(member, std::nullopt));
  }
};

struct OutOfRow {
  Row row;

  template <class Value>
  void operator()(const platform::Field &field, std::optional<Value> &member, const char *) const {
    member = read<Value>(row, field);
  }
};

}  // namespace gateway
