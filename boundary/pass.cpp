#include "boundary/pass.hpp"

#include <cstdio>
#include <string_view>

#include "records/addresses.hpp"
#include "records/layouts.hpp"

namespace boundary {

namespace {

constexpr uint32_t kShortestTextRequest = 32;
constexpr uint32_t kMacSize = 6;
constexpr uint32_t kIpv6Size = 16;

/// These say how a call is made, not what it is about.
constexpr std::string_view kSilent[] = {"capacity",  "flags",     "length",       "requestLength",
                                        "reserved1", "reserved2", "messageClass", "radix"};

constexpr std::string_view kPaths[] = {"instance", "parent",      "identity",   "keyInstance",
                                       "portPath", "instance24G", "instance5G", "name"};

bool contains(std::span<const std::string_view> names, std::string_view name) {
  return std::ranges::find(names, name) != names.end();
}

template <size_t Size>
std::array<uint8_t, Size> bytesAt(const uint8_t *bytes) {
  std::array<uint8_t, Size> copied;
  std::memcpy(copied.data(), bytes, Size);
  return copied;
}

std::string hexadecimal(uint64_t number) {
  char text[24];
  std::snprintf(text, sizeof text, "0x%llx", static_cast<unsigned long long>(number));
  return text;
}

}  // namespace

KeyPart keyOf(const Parameter &parameter, uint64_t number) {
  if (contains(kSilent, parameter.name)) return {};
  const auto word = static_cast<uint32_t>(number);
  if (parameter.name == "viewId") return records::viewName(word);
  if (parameter.name == "event") return eventName(word);
  if (parameter.name == "messageId") return hexadecimal(number);
  if (parameter.name == "address") return records::printIpv4(word);
  return std::to_string(word);
}

KeyPart keyOf(const Parameter &parameter, const char *given) {
  if (parameter.name == "program") return {};
  return text(given);
}

KeyPart keyOf(const Parameter &parameter, const uint8_t *bytes) {
  if (bytes == nullptr) return "(null)";
  if (parameter.elements == kMacSize) return records::printMac(bytesAt<kMacSize>(bytes));
  if (parameter.elements == kIpv6Size) return records::printIpv6(bytesAt<kIpv6Size>(bytes));
  return {};
}

KeyPart keyOfRequest(const void *request, uint32_t length) {
  const auto *begin = static_cast<const char *>(request);
  if (begin == nullptr || length < kShortestTextRequest || *begin < ' ') return {};
  return std::string(begin, strnlen(begin, length));
}

KeyPart keyOf(const Parameter &, const platform::UpModeInfo *uplink) {
  return uplink == nullptr ? "(null)" : std::to_string(uplink->mode);
}

bool delivers(std::string_view name) {
  return name.starts_with("Get") || name.starts_with("pm_get_");
}

int32_t naturalFailure(std::string_view name) {
  return name == "StrToMAC" ? 0 : kFailed;
}

void checkPath(const Parameter &parameter, const char *given) {
  if (!contains(kPaths, parameter.name)) return;
  if (strnlen(given, PLATFORM_INSTANCE_SIZE + 1) > PLATFORM_INSTANCE_SIZE) {
    throw Refusal(kPathTooLong, "the instance path is longer than " +
                                    std::to_string(PLATFORM_INSTANCE_SIZE) + " characters");
  }
  Boundary::current().checkPath(given);
}

}  // namespace boundary
