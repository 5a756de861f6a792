#include "gateway/requests.hpp"

#include <string>

#include "boundary/boundary.hpp"

namespace gateway {

using namespace boundary;

void requireSize(std::span<const uint8_t> request, size_t size) {
  if (request.size() == size) return;
  throw Refusal(kBadRequest, "a request of " + std::to_string(request.size()) + " bytes where " +
                                 std::to_string(size) + " are expected");
}

void requireMarks(const Row &record, std::initializer_list<platform::Field> fields) {
  for (const platform::Field &field : fields) {
    const bool isText = field.kind == platform::FieldKind::kText;
    if (isText && record.validity(field) == -1) throw Refusal(kInvalidField);
    if (record.mark(field) == 1) continue;
    throw Refusal(kBadRequest, std::string("the record has no ") + field.name);
  }
}

}  // namespace gateway
