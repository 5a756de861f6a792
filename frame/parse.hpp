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

/// The number that a text begins with, 0 when there is none.
int32_t numberIn(const char *text);

/// A request whose texts are read as C strings. One that fills its field runs on into the fields
/// behind it, as the daemon wrote them, but not out of the request.
template <class Request>
struct BoundedRequest {
  explicit BoundedRequest(const Request &given) : request(given), end('\0') {}

  Request request;
  char end;
};

}  // namespace pm
