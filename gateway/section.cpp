#include "gateway/section.hpp"

#include <algorithm>
#include <limits>
#include <nlohmann/json.hpp>

namespace gateway {

namespace {

std::vector<Section *> &registry() {
  static std::vector<Section *> sections;
  return sections;
}

}  // namespace

std::string textIn(const Json &value, const std::string &place) {
  if (!value.is_string()) throw InputError(place, "must be a text");
  std::string text = value.get<std::string>();
  // The platform's texts end at their first zero: what is behind it would be lost.
  if (text.find('\0') != std::string::npos) throw InputError(place, "the text holds a zero");
  return text;
}

Section::Section(std::string_view name) : name_(name) {
  registry().push_back(this);
}

const std::vector<Section *> &Section::all() {
  // Registration follows the order of linking; the profile's must not.
  std::sort(registry().begin(), registry().end(),
            [](const Section *a, const Section *b) { return a->name() < b->name(); });
  return registry();
}

Members::Members(const Json &value, std::string place) : value_(value), place_(std::move(place)) {
  if (!value.is_object()) throw InputError(place_, "must be an object");
}

std::string Members::placeOf(std::string_view member) const {
  return place_.empty() ? std::string(member) : place_ + "." + std::string(member);
}

const Json *Members::take(std::string_view member) {
  taken_.emplace_back(member);
  const auto found = value_.find(taken_.back());
  return found == value_.end() ? nullptr : &*found;
}

void Members::number(std::string_view member, int64_t *out) {
  const Json *value = take(member);
  if (value == nullptr) return;
  if (!value->is_number_integer()) throw InputError(placeOf(member), "must be a whole number");
  if (value->is_number_unsigned() && value->get<uint64_t>() > std::numeric_limits<int64_t>::max()) {
    throw InputError(placeOf(member), "number out of range");
  }
  *out = value->get<int64_t>();
}

void Members::word(std::string_view member, uint32_t *out) {
  int64_t wide = *out;
  number(member, &wide);
  if (wide < 0 || wide > std::numeric_limits<uint32_t>::max()) {
    throw InputError(placeOf(member), "number out of range");
  }
  *out = static_cast<uint32_t>(wide);
}

void Members::flag(std::string_view member, bool *out) {
  const Json *value = take(member);
  if (value == nullptr) return;
  if (!value->is_boolean()) throw InputError(placeOf(member), "must be true or false");
  *out = value->get<bool>();
}

void Members::text(std::string_view member, std::string *out) {
  const Json *value = take(member);
  if (value == nullptr) return;
  *out = textIn(*value, placeOf(member));
}

void Members::each(std::string_view member,
                   const std::function<void(const Json &element, const std::string &place)> &read) {
  const Json *value = take(member);
  if (value == nullptr) return;
  if (!value->is_array()) throw InputError(placeOf(member), "must be an array");
  for (size_t i = 0; i < value->size(); ++i) {
    read((*value)[i], placeOf(member) + "[" + std::to_string(i) + "]");
  }
}

void Members::choice(std::string_view member, const std::vector<std::string_view> &choices,
                     uint32_t *out) {
  const Json *value = take(member);
  if (value == nullptr) return;
  std::string known;
  for (size_t i = 0; i < choices.size(); ++i) {
    if (*value == choices[i]) {
      *out = static_cast<uint32_t>(i);
      return;
    }
    known += (i == 0 ? "\"" : ", \"") + std::string(choices[i]) + "\"";
  }
  throw InputError(placeOf(member), "must be one of " + known);
}

void Members::finish() const {
  for (const auto &[name, value] : value_.items()) {
    if (std::find(taken_.begin(), taken_.end(), name) == taken_.end()) {
      throw InputError(placeOf(name), "no such member");
    }
  }
}

void TableSection::load(const Json &value, const std::string &place) {
  fromJson(value, place, *shape(), data());
  isNamed_ = true;
  loaded(place);
}

Json TableSection::save() const {
  saving();
  Json saved = toJson(*shape(), data());
  return !isNamed_ && saved == toJson(*shape(), untouched()) ? Json(nullptr) : saved;
}

}  // namespace gateway
