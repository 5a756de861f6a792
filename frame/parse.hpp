// Reading of request texts.
#pragma once

#include <cstdint>
#include <string_view>

namespace pm {

/// Takes the next piece off a list separated by ",". Empty pieces are passed over; false at the
/// end of the list.
bool nextListItem(const char *&rest, std::string_view &item);

/// Reads twelve hexadecimal digits; false at the first character that is none. Nothing behind the
/// twelfth is looked at.
bool parseMacDigits(const char *digits, uint8_t mac[6]);

}  // namespace pm
