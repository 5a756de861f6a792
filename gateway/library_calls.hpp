#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace gateway {

/// A function that the library calls under this name, and where the call shall go.
struct ReplacedCall {
  std::string_view symbol;
  uintptr_t function;
};

/// Points calls of the loaded library elsewhere; false while no library is loaded.
bool replaceLibraryCalls(std::span<const ReplacedCall> calls);

/// Points the loaded library's calls of libc at the gateway; false while no library is loaded.
bool takeOverLibraryCalls();

}  // namespace gateway
