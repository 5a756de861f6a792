// Reading of request texts.
#pragma once

#include <cstdint>
#include <cstring>
#include <string_view>

#include "frame/text.hpp"

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

/// The same for a request that ends in an open text, for which the daemon allocates `Tail` bytes.
/// Nothing is read behind the end of that text.
template <class Request, uint32_t Tail>
class BoundedTailRequest {
 public:
  explicit BoundedTailRequest(const Request &given) {
    memcpy(bytes_, &given, sizeof given);
    copyText(bytes_ + sizeof given, Tail + 1, reinterpret_cast<const char *>(&given + 1));
  }

  const Request &request() const { return *reinterpret_cast<const Request *>(bytes_); }

 private:
  alignas(Request) char bytes_[sizeof(Request) + Tail + 1];
};

}  // namespace pm
