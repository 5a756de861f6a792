// Access to the fields of one record, wherever it lies.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "records/addresses.hpp"
#include "records/layouts.hpp"

namespace records {

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
  return {layoutOf<Record>(), static_cast<uint8_t *>(record)};
}

/// Usable characters of a text field: a marked one keeps four bytes for the platform, its last one
/// zero.
uint32_t textCapacity(const platform::Field &field);

}  // namespace records
