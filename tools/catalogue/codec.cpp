#include "tools/catalogue/codec.hpp"

#include <algorithm>
#include <cstring>
#include <nlohmann/json.hpp>

#include "gateway/json.hpp"

namespace command {
namespace {

const char *typeName(const Json &value) {
  switch (value.type()) {
    case Json::value_t::null:
      return "null";
    case Json::value_t::object:
      return "an object";
    case Json::value_t::array:
      return "an array";
    case Json::value_t::string:
      return "a text";
    case Json::value_t::boolean:
      return "a truth value";
    case Json::value_t::number_float:
      return "a fraction";
    default:
      return "a number";
  }
}

[[noreturn]] void refuseType(const Json &value, const std::string &where, const char *wanted) {
  throw UsageError(where, std::string("expected ") + wanted + ", got " + typeName(value));
}

[[noreturn]] void refuseRange(const Json &value, const std::string &where, const std::string &min,
                              const std::string &max) {
  throw UsageError(where, value.dump() + " is outside " + min + " to " + max);
}

std::string member(const std::string &where, const std::string &name) {
  return where.empty() || where.back() == ' ' ? where + name : where + "." + name;
}

void storeInteger(uint64_t value, void *place, uint32_t size) {
  std::memcpy(place, &value, size);
}

uint64_t loadUnsigned(const void *place, uint32_t size) {
  uint64_t value = 0;
  std::memcpy(&value, place, size);
  return value;
}

int64_t loadSigned(const void *place, uint32_t size) {
  const unsigned unused = 64 - 8 * size;
  return static_cast<int64_t>(loadUnsigned(place, size) << unused) >> unused;
}

uint64_t largestUnsigned(uint32_t size) {
  return UINT64_MAX >> (64 - 8 * size);
}

int64_t largestSigned(uint32_t size) {
  return static_cast<int64_t>(largestUnsigned(size) >> 1);
}

void elementFromJson(const Json &value, const std::string &where, const Field &field, void *place,
                     Secrets &secrets) {
  switch (field.kind) {
    case Kind::kText: {
      const std::string text = textFromJson(value, where, field.size - 1);
      if (field.isSecret && !text.empty()) secrets.insert(text);
      std::memcpy(place, text.data(), text.size());
      return;
    }
    case Kind::kSigned: {
      const int64_t max = largestSigned(field.size);
      storeInteger(static_cast<uint64_t>(integerFromJson(value, where, -max - 1, max)), place,
                   field.size);
      return;
    }
    case Kind::kUnsigned:
      storeInteger(unsignedFromJson(value, where, largestUnsigned(field.size)), place, field.size);
      return;
    case Kind::kRecord:
      recordFromJson(value, where, *field.shape, place, secrets);
  }
}

Json elementToJson(const Field &field, const void *place, bool showSecrets) {
  switch (field.kind) {
    case Kind::kText: {
      const std::string_view text = boundedText(place, field.size);
      if (field.isSecret && !showSecrets && !text.empty()) return kMask;
      return printable(text);
    }
    case Kind::kSigned:
      return loadSigned(place, field.size);
    case Kind::kUnsigned:
      return loadUnsigned(place, field.size);
    case Kind::kRecord:
      break;
  }
  Json record = Json::object();
  recordToJson(*field.shape, place, showSecrets, record);
  return record;
}

void arrayFromJson(const Json &value, const std::string &where, const Field &field, uint8_t *record,
                   Secrets &secrets) {
  if (!value.is_array()) refuseType(value, where, "an array");
  if (value.size() > field.elements) {
    throw UsageError(where, std::to_string(value.size()) + " elements do not fit " +
                                std::to_string(field.elements));
  }
  for (size_t i = 0; i < value.size(); ++i) {
    elementFromJson(value[i], where + "[" + std::to_string(i) + "]", field,
                    record + field.offset + i * field.size, secrets);
  }
}

Json arrayToJson(const Field &field, const uint8_t *record, bool showSecrets) {
  uint32_t filled = field.elements;
  if (field.counter != kUncounted) {
    // The count may be any word, and one that is negative says that nothing is filled.
    const int64_t count = loadSigned(record + field.counter, 4);
    filled = static_cast<uint32_t>(std::clamp<int64_t>(count, 0, field.elements));
  }
  Json rows = Json::array();
  for (uint32_t i = 0; i < filled; ++i) {
    rows.push_back(elementToJson(field, record + field.offset + i * field.size, showSecrets));
  }
  return rows;
}

}  // namespace

std::string printable(std::string_view bytes) {
  static constexpr char kDigits[] = "0123456789abcdef";
  std::string text;
  while (!bytes.empty()) {
    const size_t length = gateway::utf8Length(bytes);
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

int64_t integerFromJson(const Json &value, const std::string &where, int64_t min, int64_t max) {
  if (!value.is_number_integer()) refuseType(value, where, "a whole number");
  const bool tooLarge =
      value.is_number_unsigned() && value.get<uint64_t>() > static_cast<uint64_t>(max);
  if (tooLarge || value.get<int64_t>() < min || value.get<int64_t>() > max) {
    refuseRange(value, where, std::to_string(min), std::to_string(max));
  }
  return value.get<int64_t>();
}

uint64_t unsignedFromJson(const Json &value, const std::string &where, uint64_t max) {
  if (!value.is_number_integer()) refuseType(value, where, "a whole number");
  const bool negative = !value.is_number_unsigned() && value.get<int64_t>() < 0;
  if (negative || value.get<uint64_t>() > max) refuseRange(value, where, "0", std::to_string(max));
  return value.get<uint64_t>();
}

std::string textFromJson(const Json &value, const std::string &where, size_t longest) {
  if (!value.is_string()) refuseType(value, where, "a text");
  std::string text = value.get<std::string>();
  if (text.size() > longest) {
    throw UsageError(where, "a text of " + std::to_string(text.size()) + " bytes does not fit " +
                                std::to_string(longest));
  }
  if (text.find('\0') != std::string::npos) throw UsageError(where, "the text holds a zero");
  return text;
}

void recordFromJson(const Json &value, const std::string &where, const Shape &shape, void *record,
                    Secrets &secrets, Needed needed) {
  if (!value.is_object()) refuseType(value, where, "an object");
  for (const auto &entry : value.items()) {
    const std::string &name = entry.key();
    if (std::none_of(shape.fields.begin(), shape.fields.end(),
                     [&](const Field &field) { return field.name == name; })) {
      throw UsageError(member(where, name), std::string("no such member in ") + shape.name);
    }
  }
  auto *bytes = static_cast<uint8_t *>(record);
  for (const Field &field : shape.fields) {
    const auto found = value.find(field.name);
    if (found == value.end()) {
      const bool isNeeded = needed == Needed::kAll || field.isInput;
      if (!isNeeded || field.isOptional || shape.isCounter(field)) continue;
      throw UsageError(member(where, field.name), "missing argument");
    }
    if (field.isArray) {
      arrayFromJson(*found, member(where, field.name), field, bytes, secrets);
    } else {
      elementFromJson(*found, member(where, field.name), field, bytes + field.offset, secrets);
    }
  }
  // A count that the user left out follows from what was given.
  for (const Field &field : shape.fields) {
    if (field.counter == kUncounted || !value.contains(field.name)) continue;
    const auto counter = std::find_if(
        shape.fields.begin(), shape.fields.end(),
        [&](const Field &f) { return f.offset == field.counter && f.kind != Kind::kRecord; });
    if (counter != shape.fields.end() && value.contains(counter->name)) continue;
    storeInteger(value[field.name].size(), bytes + field.counter, 4);
  }
}

void recordToJson(const Shape &shape, const void *record, bool showSecrets, Json &out) {
  const auto *bytes = static_cast<const uint8_t *>(record);
  for (const Field &field : shape.fields) {
    out[field.name] = field.isArray ? arrayToJson(field, bytes, showSecrets)
                                    : elementToJson(field, bytes + field.offset, showSecrets);
  }
}

}  // namespace command
