#include "records/json.hpp"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <set>
#include <vector>

namespace records {

namespace {

/// Looks at each event of the parser; what it throws ends the parsing.
class Inspector {
 public:
  Inspector(const std::string &place, int deepest) : place_(place), deepest_(deepest) {}

  bool operator()(int depth, Json::parse_event_t event, const Json &parsed) {
    using Event = Json::parse_event_t;
    if (event == Event::object_start || event == Event::array_start) {
      if (depth >= deepest_) {
        throw InputError(place_, "nested deeper than " + std::to_string(deepest_) + " levels");
      }
      names_.emplace_back();
    } else if (event == Event::object_end || event == Event::array_end) {
      names_.pop_back();
    } else if (event == Event::key) {
      checkName(parsed.get_ref<const std::string &>());
    }
    return true;
  }

 private:
  void checkName(const std::string &name) {
    if (name.find('\0') != std::string::npos) {
      throw InputError(place_, "a member's name holds a zero");
    }
    if (!names_.back().insert(name).second) {
      throw InputError(place_, "the member \"" + name + "\" stands twice");
    }
  }

  const std::string &place_;
  int deepest_;
  std::vector<std::set<std::string>> names_;
};

/// The bytes of U+F780 to U+F7FF, which stand for the bytes 0x80 to 0xFF.
std::string standIn(char byte) {
  const auto value = static_cast<uint8_t>(byte);
  return {'\xef', static_cast<char>(0x9e + (value >> 6 & 1)),
          static_cast<char>(0x80 | (value & 0x3f))};
}

bool isStandIn(std::string_view sequence) {
  return sequence.size() == 3 && sequence[0] == '\xef' &&
         (sequence[1] == '\x9e' || sequence[1] == '\x9f');
}

}  // namespace

Json parseJson(std::string_view text, const std::string &place, int deepest) {
  // The parser would take it for the end.
  const size_t zero = text.find('\0');
  if (zero != std::string_view::npos) {
    throw InputError(place, "not JSON at byte " + std::to_string(zero + 1) + ", a zero");
  }
  Inspector inspector(place, deepest);
  try {
    return Json::parse(text, std::ref(inspector));
  } catch (const Json::parse_error &error) {
    throw InputError(place, "not JSON at byte " + std::to_string(error.byte));
  } catch (const Json::out_of_range &) {
    throw InputError(place, "a number is too large");
  }
}

Json withTexts(const Json &value, const std::function<std::string(std::string_view)> &change) {
  if (value.is_string()) return change(value.get_ref<const std::string &>());
  if (!value.is_structured()) return value;
  Json changed = value.is_array() ? Json::array() : Json::object();
  for (const auto &[name, element] : value.items()) {
    if (value.is_array()) {
      changed.push_back(withTexts(element, change));
    } else {
      changed[change(name)] = withTexts(element, change);
    }
  }
  return changed;
}

size_t utf8Length(std::string_view bytes) {
  const auto byte = [&](size_t i) { return static_cast<uint8_t>(bytes[i]); };
  const uint8_t lead = byte(0);
  if (lead < 0x80) return 1;
  const size_t length = lead >= 0xf0 ? 4 : lead >= 0xe0 ? 3 : 2;
  if (lead < 0xc2 || lead > 0xf4 || bytes.size() < length) return 0;
  for (size_t i = 1; i < length; ++i) {
    if ((byte(i) & 0xc0) != 0x80) return 0;
  }
  // Overlong forms, surrogates and what lies beyond the last code point differ in the second byte.
  const uint8_t second = byte(1);
  const bool outside = (lead == 0xe0 && second < 0xa0) || (lead == 0xed && second > 0x9f) ||
                       (lead == 0xf0 && second < 0x90) || (lead == 0xf4 && second > 0x8f);
  return outside ? 0 : length;
}

std::string bytesToUtf8(std::string_view bytes) {
  std::string text;
  while (!bytes.empty()) {
    const size_t length = utf8Length(bytes);
    const bool kept = length > 0 && !isStandIn(bytes.substr(0, length));
    text += kept ? std::string(bytes.substr(0, length)) : standIn(bytes[0]);
    bytes.remove_prefix(kept ? length : 1);
  }
  return text;
}

std::string bytesFromUtf8(std::string_view text) {
  std::string bytes;
  while (!text.empty()) {
    const size_t length = std::max<size_t>(utf8Length(text), 1);
    if (isStandIn(text.substr(0, length))) {
      bytes += static_cast<char>(0x80 | (text[1] & 1) << 6 | (text[2] & 0x3f));
    } else {
      bytes += text.substr(0, length);
    }
    text.remove_prefix(length);
  }
  return bytes;
}

std::string printable(std::string_view bytes) {
  static constexpr char kDigits[] = "0123456789abcdef";
  std::string text;
  while (!bytes.empty()) {
    const size_t length = utf8Length(bytes);
    if (length == 0) {
      const auto byte = static_cast<uint8_t>(bytes[0]);
      text += {'\\', 'x', kDigits[byte >> 4], kDigits[byte & 15]};
    } else {
      text += bytes.substr(0, length);
    }
    bytes.remove_prefix(std::max<size_t>(length, 1));
  }
  return text;
}

std::string_view boundedText(const void *bytes, size_t size) {
  const auto *text = static_cast<const char *>(bytes);
  return {text, strnlen(text, size)};
}

}  // namespace records
