#include "boundary/names.hpp"

#include <algorithm>
#include <iterator>

#include "platform/config_database.h"
#include "platform/host.h"
#include "platform/logger.h"
#include "platform/multiap.h"
#include "platform/proxy.h"
#include "platform/wan.h"

namespace boundary {

namespace {

struct Enumerator {
  std::string_view enumeration;
  std::string_view name;
  int64_t value;
};

constexpr Enumerator kEnumerators[] = {
#define ENUMERATOR(enumeration, name) {#enumeration, #name, platform::name},
#include "generated/enums.inc"
#undef ENUMERATOR
};

constexpr std::string_view kCalls[] = {
#define CALL(result, name, ...) #name,
#include "generated/calls.inc"
#undef CALL
};

}  // namespace

std::string_view enumerator(std::string_view enumeration, int64_t value) {
  for (const Enumerator &known : kEnumerators) {
    if (known.value == value && known.enumeration == enumeration) return known.name;
  }
  return {};
}

bool isPlatformCall(std::string_view name) {
  return std::ranges::find(kCalls, name) != std::end(kCalls);
}

std::string eventName(uint32_t event) {
  const std::string_view name = enumerator("CtSgwEvent", event);
  return name.empty() ? "event " + std::to_string(event) : std::string(name);
}

}  // namespace boundary
