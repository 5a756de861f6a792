// Profiles keep the order in which their author wrote them: it is the order of WAN connections,
// stations and rules.
#pragma once

#include <functional>
#include <nlohmann/json_fwd.hpp>
#include <stdexcept>
#include <string>
#include <string_view>

namespace records {

using Json = nlohmann::ordered_json;

/// What was given cannot be: what() is "PLACE: REASON" on one line.
class InputError : public std::runtime_error {
 public:
  explicit InputError(const std::string &line) : std::runtime_error(line) {}
  InputError(const std::string &place, const std::string &reason)
      : std::runtime_error(place.empty() ? reason : place + ": " + reason) {}
};

/// Who walks a document calls itself for each level: what comes from outside has no more of them.
constexpr int kDeepestJson = 100;

/// `text` as JSON. Throws InputError with `place` for a text that is none, nests more than
/// `deepest` levels, names a member twice or holds a zero byte.
Json parseJson(std::string_view text, const std::string &place, int deepest = kDeepestJson);

/// The same document with each text and each name of a member changed.
Json withTexts(const Json &value, const std::function<std::string(std::string_view)> &change);

/// Length of the UTF-8 sequence at the start of `bytes`, 0 when there is none.
size_t utf8Length(std::string_view bytes);

/// Bytes that are no UTF-8 become "\\xNN", so that any text can be printed.
std::string printable(std::string_view bytes);

/// Up to `size` bytes, to the terminating zero where there is one.
std::string_view boundedText(const void *bytes, size_t size);

/// Any bytes as UTF-8, and back. A byte 0xNN that belongs to no UTF-8 becomes the private code
/// point U+F7NN; where a text holds such a code point itself, its bytes are taken one by one.
std::string bytesToUtf8(std::string_view bytes);
std::string bytesFromUtf8(std::string_view text);

}  // namespace records
