// The platform's numbers by name.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace boundary {

/// The name that an enumeration of the platform's headers has for a number; empty when it has none.
std::string_view enumerator(std::string_view enumeration, int64_t value);

/// Whether the platform's headers declare a function of that name.
bool isPlatformCall(std::string_view name);

/// "CTSGW_EVENT_SET_LOCK", or "event 7" for one that the platform does not have.
std::string eventName(uint32_t event);

}  // namespace boundary
