#include "frame/instance.hpp"

namespace pm {

void InstancePath::append(const char *more) {
  const auto length = static_cast<uint32_t>(strlen(text));
  copyText(text + length, sizeof text - length, more);
}

void InstancePath::append(int32_t number) {
  char digits[kDecimalSize];
  printDecimal(digits, number);
  append(digits);
}

}  // namespace pm
