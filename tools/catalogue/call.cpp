#include "tools/catalogue/call.hpp"

#include <algorithm>
#include <cctype>
#include <nlohmann/json.hpp>

#include "tools/catalogue/answer.hpp"

namespace command {

bool Call::has(const char *name) const {
  return arguments_.contains(name);
}

std::string Call::at(const char *name) const {
  return name == nullptr ? where_ : where_ + ": " + name;
}

void Call::refuse(const char *name, const std::string &why) const {
  throw UsageError(at(name), why);
}

const Json &Call::require(const char *name) const {
  const auto found = arguments_.find(name);
  if (found == arguments_.end()) refuse(name, "missing argument");
  return *found;
}

int64_t Call::signedInteger(const char *name, int64_t min, int64_t max) const {
  return integerFromJson(require(name), at(name), min, max);
}

uint64_t Call::unsignedInteger(const char *name, uint64_t max) const {
  return unsignedFromJson(require(name), at(name), max);
}

std::string Call::text(const char *name, size_t longest, const char *preset) const {
  if (preset != nullptr && !has(name)) return preset;
  return textFromJson(require(name), at(name), longest);
}

void Call::mac(const char *name, uint8_t out[6]) const {
  std::string digits = text(name, 17);
  std::erase(digits, ':');
  const bool hexadecimal = std::all_of(digits.begin(), digits.end(),
                                       [](unsigned char digit) { return std::isxdigit(digit); });
  if (digits.size() != 12 || !hexadecimal) refuse(name, "not a MAC address");
  for (size_t i = 0; i < 6; ++i) {
    out[i] = static_cast<uint8_t>(std::stoul(digits.substr(2 * i, 2), nullptr, 16));
  }
}

void Call::record(const char *name, const Shape &shape, void *out) {
  if (name != nullptr) {
    recordFromJson(require(name), at(name), shape, out, secrets_);
    handOver(shape, out);
    return;
  }
  // The record's members stand beside other arguments, of which the codec need not know.
  Json members = Json::object();
  for (const Field &field : shape.fields) {
    if (has(field.name)) members[field.name] = arguments_[field.name];
  }
  recordFromJson(members, where_ + ": ", shape, out, secrets_);
  handOver(shape, out);
}

void Call::inputs(const Shape &shape, void *out) {
  Json members = Json::object();
  bool asks = false;
  for (const Field &field : shape.fields) {
    asks |= field.isInput;
    if (field.isInput && has(field.name)) members[field.name] = arguments_[field.name];
  }
  if (!asks) return;
  recordFromJson(members, where_ + ": ", shape, out, secrets_, Needed::kInputs);
  handOver(shape, out);
}

uint32_t Call::rowCount(const char *name, uint32_t capacity) const {
  const Json &given = require(name);
  if (!given.is_array()) refuse(name, "expected an array");
  if (given.size() > capacity) {
    refuse(name, std::to_string(given.size()) + " rows do not fit " + std::to_string(capacity));
  }
  return static_cast<uint32_t>(given.size());
}

void Call::row(const char *name, uint32_t index, const Shape &shape, void *out) {
  recordFromJson(arguments_[name][index], at(name) + "[" + std::to_string(index) + "]", shape, out,
                 secrets_);
  handOver(shape, out);
}

void Call::put(const char *name, const Json &value) {
  answer_.full[name] = value;
  answer_.shown[name] = value;
}

void Call::putInteger(const char *name, int64_t value) {
  put(name, value);
}

void Call::putUnsigned(const char *name, uint64_t value) {
  put(name, value);
}

void Call::putText(const char *name, std::string_view value, bool secret) {
  put(name, printable(value));
  if (secret && !value.empty()) answer_.shown[name] = kMask;
}

void Call::putJson(const char *name, const char *json) {
  const Json value = Json::parse(json, nullptr, false);
  put(name, value.is_discarded() ? Json(printable(json)) : value);
}

void Call::putRecord(const char *name, const Shape &shape, const void *record) {
  Json &full = name == nullptr ? answer_.full : answer_.full[name];
  Json &shown = name == nullptr ? answer_.shown : answer_.shown[name];
  recordToJson(shape, record, true, full);
  recordToJson(shape, record, false, shown);
}

void Call::putRows(const char *name, const Shape &shape, const void *records, uint32_t count) {
  put(name, Json::array());
  const auto *bytes = static_cast<const uint8_t *>(records);
  for (uint32_t i = 0; i < count; ++i) {
    recordToJson(shape, bytes + i * shape.size, true, answer_.full[name][i]);
    recordToJson(shape, bytes + i * shape.size, false, answer_.shown[name][i]);
  }
}

}  // namespace command
