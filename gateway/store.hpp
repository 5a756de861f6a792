// The gateway's configuration: records of every layout, kept under (layout, instance path) in the
// order in which they were made, and served by the rules of marked fields.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "gateway/addresses.hpp"
#include "gateway/layouts.hpp"

namespace gateway {

/// The fields of one record, addressed by their declarations: `row.word(View::workingMode)`.
class Row {
 public:
  Row(const Layout &layout, uint8_t *base) : layout_(&layout), base_(base) {}

  const Layout &layout() const { return *layout_; }
  uint8_t *data() const { return base_; }

  uint32_t word(const platform::Field &field) const;
  uint8_t byte(const platform::Field &field) const;
  uint64_t counter(const platform::Field &field) const;
  std::string text(const platform::Field &field) const;
  MacAddress mac(const platform::Field &field) const;
  std::vector<uint8_t> bytes(const platform::Field &field) const;
  uint16_t mark(const platform::Field &field) const;
  int32_t validity(const platform::Field &field) const;

  void setWord(const platform::Field &field, uint32_t value) const;
  void setByte(const platform::Field &field, uint8_t value) const;
  void setCounter(const platform::Field &field, uint64_t value) const;
  /// Throws std::length_error when the text does not fit its field.
  void setText(const platform::Field &field, std::string_view value) const;
  void setMac(const platform::Field &field, const MacAddress &value) const;
  void setBytes(const platform::Field &field, const std::vector<uint8_t> &value) const;

 private:
  const Layout *layout_;
  uint8_t *base_;
};

/// A record that the library handed over, or that goes into a reply, of any declared type.
template <class Record>
Row fieldsOf(void *record) {
  static const Layout layout{"", 0, Record::kSize, Record::fields, &Record::fields};
  return {layout, static_cast<uint8_t *>(record)};
}

/// Usable characters of a text field: a marked one keeps four bytes for the platform, its last one
/// zero.
uint32_t textCapacity(const platform::Field &field);

enum class Unchanged { kAccepted, kReported };

class Store {
 public:
  static constexpr uint32_t kDefaultLimit = 256;

  bool has(const Layout &layout, std::string_view path) const;

  /// Copies the record out; the caller's header stays.
  int32_t get(const Layout &layout, std::string_view path, void *record) const;
  /// Applies the fields marked 1; one of them declared invalid refuses the whole record.
  int32_t set(const Layout &layout, std::string_view path, const void *record,
              Unchanged unchanged = Unchanged::kAccepted);
  /// Finds the instances that equal `key` in every field marked 2.
  int32_t query(const Layout &layout, const void *key, std::vector<std::string> *found) const;
  std::vector<std::string> list(const Layout &layout, std::string_view parent) const;
  int32_t add(const Layout &layout, std::string_view parent, std::string *path);
  int32_t remove(const Layout &layout, std::string_view path);

  /// The instance's record, made of zeros when there is none yet.
  Row create(const Layout &layout, std::string_view path);
  /// Throws std::out_of_range when there is no such instance.
  Row row(const Layout &layout, std::string_view path) const;

  template <class Record>
  Row create(std::string_view path) {
    return create(layoutOf<Record>(), path);
  }
  template <class Record>
  Row row(std::string_view path) const {
    return row(layoutOf<Record>(), path);
  }
  template <class Record>
  bool has(std::string_view path) const {
    return has(layoutOf<Record>(), path);
  }

  /// Instances that a layout may have before `add` answers that the table is full.
  void limit(const Layout &layout, uint32_t instances) { limits_[&layout] = instances; }

  /// All instances of a layout, oldest first.
  std::vector<std::string> paths(const Layout &layout) const;
  void clear();

 private:
  struct Instance {
    std::string path;
    std::vector<uint8_t> bytes;
  };
  using Table = std::vector<Instance>;

  const Instance *find(const Layout &layout, std::string_view path) const;

  std::map<const Layout *, Table> tables_;
  std::map<const Layout *, uint32_t> limits_;
};

}  // namespace gateway
