#include "gateway/record_json.hpp"

#include <algorithm>
#include <limits>
#include <nlohmann/json.hpp>

#include "gateway/addresses.hpp"

namespace gateway {

using platform::Field;
using platform::FieldKind;

namespace {

constexpr uint32_t kIpv6Width = 16;
// A word this large is a small negative number, such as a signal level.
constexpr uint32_t kNegativeFrom = 0xffff0000u;

int64_t numberIn(const Json &value, int64_t least, uint64_t most) {
  if (value.is_number_unsigned()) {
    if (value.get<uint64_t>() <= most) return static_cast<int64_t>(value.get<uint64_t>());
  } else if (value.is_number_integer()) {
    if (value.get<int64_t>() >= least) return value.get<int64_t>();
  } else {
    throw std::invalid_argument("must be a whole number");
  }
  throw std::invalid_argument("number out of range");
}

std::string textIn(const Json &value) {
  if (!value.is_string()) throw std::invalid_argument("must be a text");
  std::string text = value.get<std::string>();
  if (text.find('\0') != std::string::npos) throw std::invalid_argument("the text holds a zero");
  return text;
}

/// A number, or a dotted address for the words that hold one.
uint32_t wordIn(const Json &value) {
  if (value.is_string()) {
    const std::optional<uint32_t> address = parseIpv4(value.get<std::string>());
    if (!address) throw std::invalid_argument("must be a whole number or an IPv4 address");
    return *address;
  }
  if (value.is_boolean()) return value.get<bool>() ? 1 : 0;
  return static_cast<uint32_t>(
      numberIn(value, std::numeric_limits<int32_t>::min(), std::numeric_limits<uint32_t>::max()));
}

MacAddress macIn(const Json &value) {
  const std::optional<MacAddress> mac = parseMac(textIn(value));
  if (!mac) throw std::invalid_argument("must be a MAC address");
  return *mac;
}

std::vector<uint8_t> bytesIn(const Json &value, const Field &field) {
  const std::string text = textIn(value);
  if (field.width == kIpv6Width) {
    const std::optional<Ipv6Address> address = parseIpv6(text);
    if (!address) throw std::invalid_argument("must be an IPv6 address");
    return {address->begin(), address->end()};
  }
  std::optional<std::vector<uint8_t>> bytes = parseHex(text);
  if (!bytes) throw std::invalid_argument("must be pairs of hexadecimal digits");
  if (bytes->size() > field.width) {
    throw std::invalid_argument(std::to_string(bytes->size()) + " bytes do not fit " +
                                std::to_string(field.width));
  }
  bytes->resize(field.width);
  return *bytes;
}

void loadField(const Row &row, const Field &field, const Json &value) {
  switch (field.kind) {
    case FieldKind::kWord:
      return row.setWord(field, wordIn(value));
    case FieldKind::kByte:
      return row.setByte(field, static_cast<uint8_t>(numberIn(value, 0, 0xff)));
    case FieldKind::kMac:
      return row.setMac(field, macIn(value));
    case FieldKind::kCounter:
      return row.setCounter(
          field, static_cast<uint64_t>(numberIn(value, 0, std::numeric_limits<uint64_t>::max())));
    case FieldKind::kText:
      return row.setText(field, textIn(value));
    case FieldKind::kBytes:
      return row.setBytes(field, bytesIn(value, field));
    case FieldKind::kPointer:
      throw std::invalid_argument("a pointer has no place in a profile");
  }
}

Json saveField(const Row &row, const Field &field) {
  switch (field.kind) {
    case FieldKind::kWord: {
      const uint32_t word = row.word(field);
      if (word >= kNegativeFrom) return static_cast<int32_t>(word);
      return word;
    }
    case FieldKind::kByte:
      return row.byte(field);
    case FieldKind::kMac:
      return printMac(row.mac(field));
    case FieldKind::kCounter:
      return row.counter(field);
    case FieldKind::kText:
      return row.text(field);
    case FieldKind::kBytes: {
      std::vector<uint8_t> bytes = row.bytes(field);
      if (field.width != kIpv6Width) {
        while (!bytes.empty() && bytes.back() == 0) bytes.pop_back();
        return printHex(bytes);
      }
      Ipv6Address address;
      std::copy(bytes.begin(), bytes.end(), address.begin());
      return printIpv6(address);
    }
    case FieldKind::kPointer:
      break;
  }
  return nullptr;
}

bool isZero(const Row &row, const Field &field) {
  const uint8_t *begin = row.data() + field.offset;
  return std::all_of(begin, begin + field.width, [](uint8_t byte) { return byte == 0; });
}

}  // namespace

void loadRecord(const Row &row, const Json &members, const std::string &place) {
  if (!members.is_object()) throw ProfileError(place, "must be an object");
  for (const auto &[name, value] : members.items()) {
    const Field *field = row.layout().find(name);
    if (field == nullptr) throw ProfileError(place + "." + name, "no such field");
    try {
      loadField(row, *field, value);
    } catch (const std::exception &error) {
      throw ProfileError(place + "." + name, error.what());
    }
  }
}

Json saveRecord(const Row &row) {
  Json members = Json::object();
  for (const Field &field : row.layout().fields) {
    if (field.kind == FieldKind::kPointer || isZero(row, field)) continue;
    members[field.name] = saveField(row, field);
  }
  return members;
}

}  // namespace gateway
