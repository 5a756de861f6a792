// Rates as the daemon prints them.
#pragma once

#include <cstdint>

namespace pm {

/// Prints counter / 1024 as "%.3f" would, at a fraction of the price. The counter is a whole
/// number; it comes in single precision, as the daemon's own figures do.
void printRate(char *text, uint32_t size, float counter);

}  // namespace pm
