#include "catalogue/call.hpp"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "catalogue/answer.hpp"

namespace catalogue {

namespace {

constexpr Print kFull{.escapesBytes = true};
constexpr Print kShown{.showsSecrets = false, .escapesBytes = true};

}  // namespace

bool Call::has(const char *name) const {
  return arguments_.contains(name);
}

std::string Call::at(const char *name) const {
  return name == nullptr ? where_ : where_ + ": " + name;
}

void Call::refuse(const char *name, const std::string &why) const {
  throw InputError(at(name), why);
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
  const std::optional<MacAddress> address = parseMac(text(name, 17));
  if (!address) refuse(name, "not a MAC address");
  std::ranges::copy(*address, out);
}

void Call::record(const char *name, const Shape &shape, void *out) {
  if (name != nullptr) {
    fromJson(require(name), at(name), shape, out, Needed::kAll, &secrets_);
    handOver(shape, out);
    return;
  }
  // The record's members stand beside other arguments, of which the codec need not know.
  Json members = Json::object();
  for (const Member &field : shape.members) {
    if (has(field.name)) members[field.name] = arguments_[field.name];
  }
  fromJson(members, where_ + ": ", shape, out, Needed::kAll, &secrets_);
  handOver(shape, out);
}

void Call::inputs(const Shape &shape, void *out) {
  Json members = Json::object();
  bool asks = false;
  for (const Member &field : shape.members) {
    asks |= field.isInput;
    if (field.isInput && has(field.name)) members[field.name] = arguments_[field.name];
  }
  if (!asks) return;
  fromJson(members, where_ + ": ", shape, out, Needed::kInputs, &secrets_);
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
  fromJson(arguments_[name][index], placeOf(at(name), index), shape, out, Needed::kAll, &secrets_);
  handOver(shape, out);
}

void Call::put(const char *name, const Json &value) {
  answer_.full[name] = value;
  answer_.shown[name] = value;
}

void Call::putSigned(const char *name, int64_t value) {
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
  appendJson(shape, record, kFull, full);
  appendJson(shape, record, kShown, shown);
}

void Call::putRows(const char *name, const Shape &shape, const void *records, uint32_t count) {
  put(name, Json::array());
  const auto *bytes = static_cast<const uint8_t *>(records);
  for (uint32_t i = 0; i < count; ++i) {
    appendJson(shape, bytes + i * shape.size, kFull, answer_.full[name][i]);
    appendJson(shape, bytes + i * shape.size, kShown, answer_.shown[name][i]);
  }
}

}  // namespace catalogue
