#pragma once

namespace gateway {

/// Points the loaded library's calls of libc at the gateway; false while no library is loaded.
bool takeOverLibraryCalls();

}  // namespace gateway
