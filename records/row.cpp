#include "records/row.hpp"

#include <cstring>
#include <stdexcept>

namespace records {

using platform::Field;

namespace {

template <class Value>
Value load(const uint8_t *from) {
  Value value;
  std::memcpy(&value, from, sizeof value);
  return value;
}

template <class Value>
void store(uint8_t *to, Value value) {
  std::memcpy(to, &value, sizeof value);
}

}  // namespace

uint32_t textCapacity(const Field &field) {
  return field.marked ? field.width - platform::kValidityDistance : field.width - 1;
}

uint32_t Row::word(const Field &field) const {
  return load<uint32_t>(base_ + field.offset);
}
uint8_t Row::byte(const Field &field) const {
  return base_[field.offset];
}
uint64_t Row::counter(const Field &field) const {
  return load<uint64_t>(base_ + field.offset);
}

std::string Row::text(const Field &field) const {
  const char *begin = reinterpret_cast<const char *>(base_ + field.offset);
  return {begin, strnlen(begin, field.width)};
}

MacAddress Row::mac(const Field &field) const {
  return load<MacAddress>(base_ + field.offset);
}

std::vector<uint8_t> Row::bytes(const Field &field) const {
  return {base_ + field.offset, base_ + field.end()};
}

uint16_t Row::mark(const Field &field) const {
  return load<uint16_t>(base_ + field.offset - platform::kMarkDistance);
}

int32_t Row::validity(const Field &field) const {
  return load<int32_t>(base_ + field.offset - platform::kValidityDistance);
}

void Row::setWord(const Field &field, uint32_t value) const {
  store(base_ + field.offset, value);
}
void Row::setByte(const Field &field, uint8_t value) const {
  base_[field.offset] = value;
}
void Row::setCounter(const Field &field, uint64_t value) const {
  store(base_ + field.offset, value);
}

void Row::setText(const Field &field, std::string_view value) const {
  if (value.size() > textCapacity(field)) {
    throw std::length_error("text of " + std::to_string(value.size()) +
                            " characters does not fit " + std::to_string(textCapacity(field)));
  }
  std::memset(base_ + field.offset, 0, field.width);
  std::memcpy(base_ + field.offset, value.data(), value.size());
}

void Row::setMac(const Field &field, const MacAddress &value) const {
  store(base_ + field.offset, value);
}

void Row::setBytes(const Field &field, const std::vector<uint8_t> &value) const {
  if (value.size() != field.width * field.rows) throw std::length_error("wrong number of bytes");
  std::memcpy(base_ + field.offset, value.data(), value.size());
}

}  // namespace records
