// Rates as the daemon prints them.
#pragma once

#include <cstdint>
#include <cstdio>

namespace pm {

/// Prints counter / 1024 with three decimals. The product is taken in single precision, as the
/// daemon's own figures are.
inline void printRate(char *text, uint32_t size, float counter) {
  const float rate = counter * 0.0009765625F;
  snprintf(text, size, "%.3f", static_cast<double>(rate));
}

}  // namespace pm
