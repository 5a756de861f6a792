// What requests of the library must be before a family looks at them.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <span>

#include "records/row.hpp"

namespace gateway {

using namespace records;

/// Throws Refusal unless the request has `size` bytes.
void requireSize(std::span<const uint8_t> request, size_t size);

/// A request of exactly one record.
template <class Record>
Row exactly(std::span<const uint8_t> request) {
  requireSize(request, Record::kSize);
  return fieldsOf<Record>(const_cast<uint8_t *>(request.data()));
}

/// Throws Refusal unless each of the fields is marked, and none of them as invalid.
void requireMarks(const Row &record, std::initializer_list<platform::Field> fields);

}  // namespace gateway
