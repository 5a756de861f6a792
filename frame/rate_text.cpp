#include "frame/rate_text.hpp"

#include <cstdio>

#include "frame/text.hpp"

namespace pm {

namespace {

constexpr uint32_t kUnit = 1024;
/// From here on the whole part is more than a decimal of 32 bits.
constexpr float kLargeCounter = 0x1p41F;

/// Ties go to the even number, as printf has it.
uint32_t roundedThousandths(uint32_t counter) {
  const uint32_t product = counter % kUnit * 1000;
  const uint32_t thousandths = product / kUnit;
  const uint32_t rest = product % kUnit;
  const bool up = rest > kUnit / 2 || (rest == kUnit / 2 && thousandths % 2 != 0);
  return up ? thousandths + 1 : thousandths;
}

}  // namespace

void printRate(char *text, uint32_t size, float counter) {
  if (counter >= kLargeCounter) {
    snprintf(text, size, "%.3f", static_cast<double>(counter / kUnit));
    return;
  }
  if (counter < 0) {
    *text++ = '-';
    counter = -counter;
  }
  const auto whole = static_cast<uint64_t>(counter);
  printDecimal(text, static_cast<uint32_t>(whole / kUnit));
  text += strlen(text);
  const uint32_t thousandths = roundedThousandths(static_cast<uint32_t>(whole));
  const char fraction[] = {'.', static_cast<char>('0' + thousandths / 100),
                           static_cast<char>('0' + thousandths / 10 % 10),
                           static_cast<char>('0' + thousandths % 10), '\0'};
  memcpy(text, fraction, sizeof fraction);
}

}  // namespace pm
