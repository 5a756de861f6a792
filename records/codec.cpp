#include "records/codec.hpp"

#include <algorithm>
#include <cstring>
#include <limits>
#include <map>
#include <nlohmann/json.hpp>

#include "records/addresses.hpp"
#include "records/row.hpp"

namespace records {

namespace {

using platform::Code;
using platform::Meaning;

// A word this large is a small negative number, such as a signal level.
constexpr uint32_t kNegativeFrom = 0xffff0000u;
constexpr uint32_t kIpv6Size = 16;

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

[[noreturn]] void refuseType(const Json &value, const std::string &where,
                             const std::string &wanted) {
  throw InputError(where, "expected " + wanted + ", got " + typeName(value));
}

[[noreturn]] void refuseRange(const Json &value, const std::string &where, const std::string &least,
                              const std::string &most) {
  throw InputError(where, value.dump() + " is outside " + least + " to " + most);
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

const Code *codeOf(const Meaning &meaning, uint64_t value) {
  for (const Code &code : std::span(meaning.codes, meaning.codeCount)) {
    if (code.value == value) return &code;
  }
  return nullptr;
}

std::string namesOf(const Meaning &meaning) {
  std::string names;
  for (const Code &code : std::span(meaning.codes, meaning.codeCount)) {
    names += (names.empty() ? "\"" : ", \"") + std::string(code.name) + "\"";
  }
  return names;
}

uint32_t codeNamed(const Json &value, const std::string &where, const Meaning &meaning) {
  for (const Code &code : std::span(meaning.codes, meaning.codeCount)) {
    if (value == code.name) return code.value;
  }
  throw InputError(where, value.dump() + " is none of " + namesOf(meaning));
}

/// A number, the name of a code, a truth value for a word, a dotted address.
uint64_t numberFromJson(const Json &value, const std::string &where, const Member &member) {
  if (value.is_string() && member.meaning.codes != nullptr) {
    return codeNamed(value, where, member.meaning);
  }
  const bool isWord = member.kind == Kind::kEitherSign;
  if (value.is_string() && (isWord || member.meaning.isIpv4)) {
    const std::optional<uint32_t> address = parseIpv4(value.get<std::string>());
    if (!address) throw InputError(where, value.dump() + " is no IPv4 address");
    return *address;
  }
  if (isWord && value.is_boolean()) return value.get<bool>() ? 1 : 0;
  const auto most = static_cast<int64_t>(largestUnsigned(4));
  if (isWord) {
    return static_cast<uint64_t>(integerFromJson(value, where, INT32_MIN, most));
  }
  if (member.kind == Kind::kUnsigned) {
    return unsignedFromJson(value, where, largestUnsigned(member.size));
  }
  const int64_t largest = largestSigned(member.size);
  return static_cast<uint64_t>(integerFromJson(value, where, -largest - 1, largest));
}

template <class Address>
void addressFromJson(const Json &value, const std::string &where, const char *wanted,
                     std::optional<Address> (*parse)(const std::string &), void *place) {
  if (!value.is_string()) refuseType(value, where, wanted);
  const std::optional<Address> address = parse(value.get<std::string>());
  if (!address) throw InputError(where, value.dump() + " is not " + wanted);
  std::memcpy(place, address->data(), address->size());
}

std::optional<MacAddress> macIn(const std::string &text) {
  return parseMac(text);
}

void bytesFromJson(const Json &value, const std::string &where, uint32_t size, void *place) {
  const std::string text = textFromJson(value, where, UINT32_MAX);
  const std::optional<std::vector<uint8_t>> bytes = parseHex(text);
  if (!bytes) throw InputError(where, "expected pairs of hexadecimal digits");
  if (bytes->size() > size) {
    throw InputError(where,
                     std::to_string(bytes->size()) + " bytes do not fit " + std::to_string(size));
  }
  std::memset(place, 0, size);
  std::memcpy(place, bytes->data(), bytes->size());
}

void textInto(const std::string &text, const Member &member, void *place) {
  if (member.kind != Kind::kText) {
    *static_cast<std::string *>(place) = text;
    return;
  }
  std::memset(place, 0, member.size);
  std::memcpy(place, text.data(), text.size());
}

/// Profiles hold any bytes where documents hold UTF-8.
std::string documentFromJson(const Json &value, const std::string &where) {
  if (value.is_string()) return textFromJson(value, where, UINT32_MAX);
  const std::string text = bytesFromUtf8(withTexts(value, bytesToUtf8).dump());
  return textFromJson(text, where, UINT32_MAX);
}

struct Input {
  Needed needed;
  Secrets *secrets;
};

void recordFromJson(const Json &value, const std::string &where, const Shape &shape, void *record,
                    const Input &input);

void elementFromJson(const Json &value, const std::string &where, const Member &member, void *place,
                     const Input &input) {
  switch (member.kind) {
    case Kind::kUnsigned:
    case Kind::kSigned:
    case Kind::kEitherSign: {
      const uint64_t number = numberFromJson(value, where, member);
      std::memcpy(place, &number, member.size);
      return;
    }
    case Kind::kFlag:
      if (!value.is_boolean()) refuseType(value, where, "true or false");
      *static_cast<bool *>(place) = value.get<bool>();
      return;
    case Kind::kText:
    case Kind::kString: {
      const std::string text = textFromJson(value, where, member.longest);
      if (member.isSecret() && !text.empty() && input.secrets != nullptr) {
        input.secrets->insert(text);
      }
      return textInto(text, member, place);
    }
    case Kind::kDocument:
      return textInto(documentFromJson(value, where), member, place);
    case Kind::kMac:
      return addressFromJson<MacAddress>(value, where, "a MAC address", macIn, place);
    case Kind::kIpv6:
      return addressFromJson<Ipv6Address>(value, where, "an IPv6 address", parseIpv6, place);
    case Kind::kBytes:
      return bytesFromJson(value, where, member.size, place);
    case Kind::kPointer:
      throw InputError(where, "a pointer cannot be given");
    case Kind::kRecord:
      return recordFromJson(value, where, *member.shape, place, input);
  }
}

void *elementAt(const Member &member, void *place, size_t index) {
  if (member.sequence != nullptr) return member.sequence->append(place);
  return static_cast<uint8_t *>(place) + index * member.size;
}

void arrayFromJson(const Json &value, const std::string &where, const Member &member, void *place,
                   const Input &input) {
  if (!value.is_array()) refuseType(value, where, "an array");
  if (value.size() > member.elements) {
    throw InputError(where, std::to_string(value.size()) + " elements do not fit " +
                                std::to_string(member.elements));
  }
  for (size_t i = 0; i < value.size(); ++i) {
    elementFromJson(value[i], placeOf(where, i), member, elementAt(member, place, i), input);
  }
}

void memberFromJson(const Json &value, const std::string &where, const Member &member,
                    uint8_t *record, const Input &input) {
  void *place = record + member.offset;
  if (member.isArray) return arrayFromJson(value, where, member, place, input);
  elementFromJson(value, where, member,
                  member.sequence == nullptr ? place : member.sequence->append(place), input);
}

bool isNeeded(const Shape &shape, const Member &member, Needed needed) {
  if (member.isOptional || shape.isCounter(member)) return false;
  return needed == Needed::kAll || (needed == Needed::kInputs && member.isInput);
}

/// A count that was left out follows from what was given.
void fillCounters(const Json &value, const Shape &shape, uint8_t *record) {
  for (const Member &member : shape.members) {
    if (member.counter == kUncounted || !value.contains(member.name)) continue;
    const auto counter = std::ranges::find_if(shape.members, [&](const Member &other) {
      return other.offset == member.counter && other.kind != Kind::kRecord;
    });
    if (counter != shape.members.end() && value.contains(counter->name)) continue;
    const auto count = static_cast<uint32_t>(value[member.name].size());
    std::memcpy(record + member.counter, &count, sizeof count);
  }
}

void recordFromJson(const Json &value, const std::string &where, const Shape &shape, void *record,
                    const Input &input) {
  auto *bytes = static_cast<uint8_t *>(record);
  if (shape.hasShortForm && !value.is_object()) {
    return memberFromJson(value, where, shape.members.front(), bytes, input);
  }
  requireObject(value, where);
  for (const auto &entry : value.items()) {
    if (shape.find(entry.key()) == nullptr) {
      throw InputError(placeOf(where, entry.key()), "no such member in " + std::string(shape.name));
    }
  }
  for (const Member &member : shape.members) {
    const auto found = value.find(member.name);
    if (found != value.end()) {
      memberFromJson(*found, placeOf(where, member.name), member, bytes, input);
    } else if (isNeeded(shape, member, input.needed)) {
      throw InputError(placeOf(where, member.name), "missing argument");
    }
  }
  fillCounters(value, shape, bytes);
}

Json numberToJson(const Member &member, const void *place) {
  const uint64_t value = loadUnsigned(place, member.size);
  if (const Code *code = codeOf(member.meaning, value)) return code->name;
  if (member.meaning.isIpv4) return printIpv4(static_cast<uint32_t>(value));
  const bool isNegative = member.kind == Kind::kEitherSign && value >= kNegativeFrom;
  if (member.kind == Kind::kSigned || isNegative) return loadSigned(place, member.size);
  return value;
}

Json bytesToJson(const void *place, uint32_t size) {
  const auto *begin = static_cast<const uint8_t *>(place);
  std::vector<uint8_t> bytes(begin, begin + size);
  while (!bytes.empty() && bytes.back() == 0) bytes.pop_back();
  return printHex(bytes);
}

template <class Address>
Address addressAt(const void *place) {
  Address address;
  std::memcpy(address.data(), place, address.size());
  return address;
}

Json textToJson(std::string_view text, const Member &member, const Print &print) {
  if (member.isSecret() && !print.showsSecrets && !text.empty()) return kMask;
  return print.escapesBytes ? printable(text) : std::string(text);
}

/// One that is a text, is written in another way or is no JSON stays the text that it is.
Json documentToJson(const std::string &text) {
  try {
    // It stands below the levels of the document that holds it.
    constexpr int kLevelsAbove = 2;
    Json document = parseJson(text, "", kDeepestJson - kLevelsAbove);
    if (!document.is_string() && document.dump() == text) return document;
  } catch (const InputError &) {
  }
  return text;
}

Json elementToJson(const Member &member, const void *place, const Print &print) {
  switch (member.kind) {
    case Kind::kUnsigned:
    case Kind::kSigned:
    case Kind::kEitherSign:
      return numberToJson(member, place);
    case Kind::kFlag:
      return *static_cast<const bool *>(place);
    case Kind::kText: {
      const auto *text = static_cast<const char *>(place);
      return textToJson({text, strnlen(text, member.size)}, member, print);
    }
    case Kind::kString:
      return textToJson(*static_cast<const std::string *>(place), member, print);
    case Kind::kDocument:
      return documentToJson(*static_cast<const std::string *>(place));
    case Kind::kMac:
      return printMac(addressAt<MacAddress>(place));
    case Kind::kIpv6:
      return printIpv6(addressAt<Ipv6Address>(place));
    case Kind::kBytes:
      return bytesToJson(place, member.size);
    case Kind::kPointer:
      return nullptr;
    case Kind::kRecord:
      break;
  }
  return toJson(*member.shape, place, print);
}

size_t countOf(const Member &member, const uint8_t *record) {
  if (member.sequence != nullptr) return member.sequence->count(record + member.offset);
  if (member.counter == kUncounted) return member.elements;
  // The count may be any word, and one that is negative says that nothing is filled.
  const int64_t count = loadSigned(record + member.counter, 4);
  return static_cast<size_t>(std::clamp<int64_t>(count, 0, member.elements));
}

const void *elementAt(const Member &member, const uint8_t *record, size_t index) {
  const uint8_t *place = record + member.offset;
  return member.sequence != nullptr ? member.sequence->at(place, index)
                                    : place + index * member.size;
}

bool isZero(const Member &member, const uint8_t *record) {
  if (member.sequence != nullptr) return countOf(member, record) == 0;
  if (member.kind == Kind::kString || member.kind == Kind::kDocument) {
    return reinterpret_cast<const std::string *>(record + member.offset)->empty();
  }
  const uint8_t *begin = record + member.offset;
  return std::all_of(begin, begin + member.size * member.elements,
                     [](uint8_t byte) { return byte == 0; });
}

Json memberToJson(const Member &member, const uint8_t *record, const Print &print) {
  if (!member.isArray) return elementToJson(member, elementAt(member, record, 0), print);
  Json elements = Json::array();
  const size_t count = countOf(member, record);
  for (size_t i = 0; i < count; ++i) {
    elements.push_back(elementToJson(member, elementAt(member, record, i), print));
  }
  const bool isFixed = member.sequence == nullptr && member.counter == kUncounted;
  while (print.omitsZeros && isFixed && !elements.empty() && elements.back().empty()) {
    elements.erase(elements.size() - 1);
  }
  return elements;
}

Json elementSchema(const Member &member) {
  const Json name = {{"type", "string"}};
  switch (member.kind) {
    case Kind::kUnsigned:
      return {{"type", "integer"}, {"minimum", 0}, {"maximum", largestUnsigned(member.size)}};
    case Kind::kSigned:
      return {{"type", "integer"},
              {"minimum", -largestSigned(member.size) - 1},
              {"maximum", largestSigned(member.size)}};
    case Kind::kEitherSign:
      return {{"anyOf",
               {{{"type", "integer"}, {"minimum", INT32_MIN}, {"maximum", UINT32_MAX}},
                {{"type", "boolean"}},
                {{"type", "string"}, {"pattern", "^[0-9]{1,3}(\\.[0-9]{1,3}){3}$"}}}}};
    case Kind::kFlag:
      return {{"type", "boolean"}};
    case Kind::kText:
      return {{"type", "string"}, {"maxLength", member.longest}};
    case Kind::kString:
      if (member.longest == UINT32_MAX) return name;
      return {{"type", "string"}, {"maxLength", member.longest}};
    case Kind::kDocument:
      return Json::object();
    case Kind::kMac:
      return {{"type", "string"},
              {"pattern", "^([0-9A-Fa-f]{2}(:[0-9A-Fa-f]{2}){5}|[0-9A-Fa-f]{12})$"}};
    case Kind::kIpv6:
      return {{"type", "string"}, {"pattern", "^[0-9A-Fa-f:.]{2,45}$"}};
    case Kind::kBytes:
      return {{"type", "string"},
              {"pattern", "^([0-9A-Fa-f]{2}){0," + std::to_string(member.size) + "}$"}};
    case Kind::kRecord:
      return schemaOf(*member.shape);
    default:
      return name;
  }
}

/// What the schema says of a member beyond its type.
std::string descriptionOf(const Meaning &meaning) {
  std::string text = meaning.text == nullptr ? "" : meaning.text;
  const auto append = [&](const std::string &more) { text += (text.empty() ? "" : ", ") + more; };
  if (meaning.unit != nullptr) append(std::string("in ") + meaning.unit);
  if (meaning.hasRange()) {
    append(std::to_string(meaning.least) + " to " + std::to_string(meaning.most));
  }
  for (const Code &code : std::span(meaning.codes, meaning.codeCount)) {
    append(std::to_string(code.value) + " is " + code.name);
  }
  return text.empty() ? "nothing more is known of it" : text;
}

Json memberSchema(const Member &member) {
  Json schema = elementSchema(member);
  if (member.meaning.codes != nullptr) {
    Json names = Json::array();
    for (const Code &code : std::span(member.meaning.codes, member.meaning.codeCount)) {
      if (std::ranges::find(names, Json(code.name)) == names.end()) names.push_back(code.name);
    }
    schema = {{"anyOf", {{{"enum", std::move(names)}}, std::move(schema)}}};
  } else if (member.meaning.isIpv4 && member.kind != Kind::kEitherSign) {
    schema = {{"anyOf", {std::move(schema), {{"type", "string"}, {"format", "ipv4"}}}}};
  }
  if (member.isArray) {
    schema = {{"type", "array"}, {"items", std::move(schema)}};
    if (member.elements != UINT32_MAX) schema["maxItems"] = member.elements;
  }
  schema["description"] = descriptionOf(member.meaning);
  return schema;
}

Member memberOf(const platform::Field &field) {
  using platform::FieldKind;
  Member member{.name = field.name, .kind = {}, .offset = field.offset, .size = field.width};
  member.meaning = field.meaning;
  switch (field.kind) {
    case FieldKind::kWord:
      member.kind = Kind::kEitherSign;
      break;
    case FieldKind::kByte:
    case FieldKind::kCounter:
      member.kind = Kind::kUnsigned;
      break;
    case FieldKind::kMac:
      member.kind = Kind::kMac;
      break;
    case FieldKind::kText:
      member.kind = Kind::kText;
      member.longest = textCapacity(field);
      break;
    case FieldKind::kBytes:
      member.kind = field.width == kIpv6Size ? Kind::kIpv6 : Kind::kBytes;
      break;
    case FieldKind::kPointer:
      member.kind = Kind::kPointer;
      break;
    case FieldKind::kRows:
      member.kind = Kind::kRecord;
      member.isArray = true;
      member.elements = field.rows;
      member.shape = &shapeOf(layoutOf(field.rowType));
      break;
  }
  return member;
}

struct LayoutShape {
  std::vector<Member> members;
  Shape shape;
};

}  // namespace

std::string placeOf(std::string_view where, std::string_view member) {
  const bool isAlone = where.empty() || where.back() == ' ';
  return std::string(where) + (isAlone ? "" : ".") + std::string(member);
}

std::string placeOf(std::string_view where, size_t index) {
  return std::string(where) + "[" + std::to_string(index) + "]";
}

int64_t integerFromJson(const Json &value, const std::string &where, int64_t least, int64_t most) {
  if (!value.is_number_integer()) refuseType(value, where, "a whole number");
  const bool tooLarge =
      value.is_number_unsigned() && value.get<uint64_t>() > static_cast<uint64_t>(most);
  if (tooLarge || value.get<int64_t>() < least || value.get<int64_t>() > most) {
    refuseRange(value, where, std::to_string(least), std::to_string(most));
  }
  return value.get<int64_t>();
}

uint64_t unsignedFromJson(const Json &value, const std::string &where, uint64_t most) {
  if (!value.is_number_integer()) refuseType(value, where, "a whole number");
  const bool negative = !value.is_number_unsigned() && value.get<int64_t>() < 0;
  if (negative || value.get<uint64_t>() > most) {
    refuseRange(value, where, "0", std::to_string(most));
  }
  return value.get<uint64_t>();
}

std::string textFromJson(const Json &value, const std::string &where, size_t longest) {
  if (!value.is_string()) refuseType(value, where, "a text");
  std::string text = value.get<std::string>();
  if (text.size() > longest) {
    throw InputError(where, "a text of " + std::to_string(text.size()) + " bytes does not fit " +
                                std::to_string(longest));
  }
  if (text.find('\0') != std::string::npos) throw InputError(where, "the text holds a zero");
  return text;
}

void requireObject(const Json &value, const std::string &where) {
  if (!value.is_object()) refuseType(value, where, "an object");
}

void fromJson(const Json &value, const std::string &where, const Shape &shape, void *record,
              Needed needed, Secrets *secrets) {
  recordFromJson(value, where, shape, record, {needed, secrets});
}

void appendJson(const Shape &shape, const void *record, const Print &print, Json &out) {
  const auto *bytes = static_cast<const uint8_t *>(record);
  for (const Member &member : shape.members) {
    const bool isAbsent = member.sequence != nullptr && !member.isArray && isZero(member, bytes);
    const bool isOmitted =
        print.omitsZeros && (member.kind == Kind::kPointer || isZero(member, bytes));
    if (isAbsent || isOmitted) continue;
    out[member.name] = memberToJson(member, bytes, print);
  }
}

Json toJson(const Shape &shape, const void *record, const Print &print) {
  Json object = Json::object();
  appendJson(shape, record, print, object);
  return object;
}

Json schemaOf(const Shape &shape) {
  Json members = Json::object();
  for (const Member &member : shape.members) {
    if (member.kind != Kind::kPointer) members[member.name] = memberSchema(member);
  }
  Json schema = {
      {"type", "object"}, {"additionalProperties", false}, {"properties", std::move(members)}};
  if (!shape.hasShortForm) return schema;
  return {{"anyOf", {memberSchema(shape.members.front()), std::move(schema)}}};
}

const Shape &shapeOf(const Layout &layout) {
  static std::map<platform::RecordType, LayoutShape> shapes;
  const auto [found, isNew] = shapes.try_emplace(layout.type);
  LayoutShape &made = found->second;
  if (isNew) {
    for (const platform::Field &field : layout.fields) made.members.push_back(memberOf(field));
    made.shape = {layout.name, layout.size, made.members};
  }
  return made.shape;
}

}  // namespace records
