#include "gateway/host.hpp"

#include <algorithm>
#include <cstdarg>
#include <cstdlib>
#include <cstring>
#include <nlohmann/json.hpp>

#include "gateway/addresses.hpp"
#include "gateway/boundary.hpp"
#include "gateway/gateway.hpp"
#include "platform/logger.h"

namespace gateway {

namespace {

constexpr int kPoison = 0xa5;
constexpr int kLeftBehind = 0x5a;

std::map<std::string, ProgramHandler::Run, std::less<>> &programHandlers() {
  static std::map<std::string, ProgramHandler::Run, std::less<>> handlers;
  return handlers;
}

// Made at start-up, so that its member of the profile is known before anybody calls.
[[maybe_unused]] const Host &registered = host();

void needs(bool condition, const char *complaint) {
  if (!condition) throw Refusal(kNullArgument, complaint);
}

/// A fault's count makes a text of that many letters; one that fills its room has no end.
int32_t print(const std::string &value, char *text, uint32_t length) {
  needs(text != nullptr, "no text");
  const uint32_t letters = Gateway::current().boundary().countToReport(value.size());
  if (letters != value.size()) {
    std::memset(text, 'f', std::min(letters, length));
    return kOk;
  }
  if (value.size() >= length) {
    throw Refusal(kBadRequest, "\"" + value + "\" does not fit " + std::to_string(length));
  }
  std::memcpy(text, value.c_str(), value.size() + 1);
  return kOk;
}

template <class Address>
std::string key(const uint8_t *address, std::string (*printAddress)(const Address &)) {
  if (address == nullptr) return "(null)";
  Address copy;
  std::memcpy(copy.data(), address, copy.size());
  return printAddress(copy);
}

template <class Value>
int32_t deliver(const char *call, Value *out, Value value) {
  const int32_t status = boundary::status(call, "", [&](Gateway &) {
    needs(out != nullptr, "nowhere to write");
    *out = value;
    return kOk;
  });
  // A call that fails promises nothing about the room it was given.
  if (status != kOk && out != nullptr) std::memset(out, kLeftBehind, sizeof *out);
  return status;
}

}  // namespace

void *Blocks::take(uint32_t size) {
  void *block = std::malloc(size);
  if (block == nullptr) return nullptr;
  std::memset(block, kPoison, size);
  blocks_[block] = {size, period_};
  return block;
}

bool Blocks::give(void *block) {
  if (blocks_.erase(block) == 0) return false;
  std::free(block);
  return true;
}

std::vector<uint32_t> Blocks::liveSizes() const {
  std::vector<uint32_t> sizes;
  for (const auto &[block, about] : blocks_) {
    if (about.period == period_) sizes.push_back(about.size);
  }
  return sizes;
}

size_t Blocks::live() const {
  return liveSizes().size();
}

Host &host() {
  static Host *const instance = new Host;
  return *instance;
}

void Host::reset() {
  cpuType = 3;
  flashSize = 0;
  ramSize = 0;
  memory = {};
  upMode = 0;
  programs.clear();
  blocks.startCounting();
}

void Host::load(const Json &value, const std::string &place) {
  Members members(value, place);
  members.word("cpuType", &cpuType);
  members.word("flashSize", &flashSize);
  members.word("ramSize", &ramSize);
  members.word("upMode", &upMode);
  if (const Json *figures = members.take("memory")) {
    Members memoryMembers(*figures, members.placeOf("memory"));
    memoryMembers.word("total", &memory.total);
    memoryMembers.word("free", &memory.free);
    memoryMembers.word("buffers", &memory.buffers);
    memoryMembers.word("cached", &memory.cached);
    memoryMembers.finish();
  }
  members.finish();
}

Json Host::save() const {
  return {{"cpuType", cpuType},
          {"flashSize", flashSize},
          {"ramSize", ramSize},
          {"memory",
           {{"total", memory.total},
            {"free", memory.free},
            {"buffers", memory.buffers},
            {"cached", memory.cached}}},
          {"upMode", upMode}};
}

ProgramHandler::ProgramHandler(std::string_view program, Run run) {
  programHandlers().emplace(program, run);
}

}  // namespace gateway

using namespace gateway;

int32_t ProcUserLog(const char *sourceTag, int32_t line, const char *functionName, int32_t level,
                    int32_t code, const char *format, ...) {
  va_list arguments;
  va_start(arguments, format);
  va_list again;
  va_copy(again, arguments);
  const int length = std::vsnprintf(nullptr, 0, format, arguments);
  va_end(arguments);
  std::string text(static_cast<size_t>(length < 0 ? 0 : length), '\0');
  std::vsnprintf(text.data(), text.size() + 1, format, again);
  va_end(again);
  Gateway &gateway = Gateway::current();
  gateway.log({boundary::text(sourceTag), line, boundary::text(functionName), level, code,
               std::move(text)});
  return gateway.logResult();
}

void *GetUB(uint32_t size) {
  return boundary::pointer<void *>("GetUB", std::to_string(size),
                                   [&](Gateway &) { return host().blocks.take(size); });
}

void RetUB(void *block) {
  boundary::note("RetUB", "", [&](Gateway &) {
    if (!host().blocks.give(block)) throw Refusal(kBadRequest, "no block of GetUB");
  });
}

int32_t StrToMAC(const char *text, uint8_t mac[6]) {
  return boundary::status(
      "StrToMAC", boundary::text(text),
      [&](Gateway &) {
        if (text == nullptr || mac == nullptr) return 0;
        const std::optional<MacAddress> parsed = parseMac(text);
        if (!parsed) return 0;
        std::memcpy(mac, parsed->data(), parsed->size());
        return 1;
      },
      0);
}

int32_t MACToStr(const uint8_t mac[6], char *text, uint32_t length) {
  return boundary::status("MACToStr", key<MacAddress>(mac, printMac), [&](Gateway &) {
    needs(mac != nullptr, "no MAC");
    return print(key<MacAddress>(mac, printMac), text, length);
  });
}

int32_t IPToStr(uint32_t address, char *text, uint32_t length) {
  return boundary::status("IPToStr", printIpv4(address),
                          [&](Gateway &) { return print(printIpv4(address), text, length); });
}

int32_t StrToIP(const char *text, uint32_t *address) {
  return boundary::status("StrToIP", boundary::text(text), [&](Gateway &) -> int32_t {
    if (text == nullptr || address == nullptr) return kFailed;
    const std::optional<uint32_t> parsed = parseIpv4(text);
    if (!parsed) return kFailed;
    *address = *parsed;
    return kOk;
  });
}

int32_t IPv6ToStr(const uint8_t address[16], char *text, uint32_t length) {
  return boundary::status("IPv6ToStr", key<Ipv6Address>(address, printIpv6), [&](Gateway &) {
    needs(address != nullptr, "no address");
    return print(key<Ipv6Address>(address, printIpv6), text, length);
  });
}

int32_t ChkIPv6(const uint8_t address[16]) {
  return boundary::status("ChkIPv6", key<Ipv6Address>(address, printIpv6), [&](Gateway &) {
    if (address == nullptr) return kFailed;
    const Ipv6Address unspecified = {};
    const bool linkLocal = address[0] == 0xfe && (address[1] & 0xc0) == 0x80;
    const bool empty = std::memcmp(address, unspecified.data(), unspecified.size()) == 0;
    return empty || linkLocal ? kFailed : kOk;
  });
}

char *SafeStrncpy(char *destination, const char *source, uint32_t size) {
  boundary::note("SafeStrncpy", boundary::text(source), [&](Gateway &) {
    needs(destination != nullptr && source != nullptr, "no text");
    if (size == 0) return;
    const size_t length = strnlen(source, size - 1);
    std::memcpy(destination, source, length);
    destination[length] = '\0';
  });
  return destination;
}

char *itoa(int32_t value, char *text, int32_t radix) {
  boundary::note("itoa", std::to_string(value), [&](Gateway &) {
    needs(text != nullptr, "no text");
    if (radix < 2 || radix > 36) {
      throw Refusal(kBadRequest, "no digits for base " + std::to_string(radix));
    }
    constexpr const char *kDigits = "0123456789abcdefghijklmnopqrstuvwxyz";
    const bool negative = radix == 10 && value < 0;
    uint32_t rest = negative ? 0u - static_cast<uint32_t>(value) : static_cast<uint32_t>(value);
    std::string digits;
    do {
      digits.insert(digits.begin(), kDigits[rest % static_cast<uint32_t>(radix)]);
      rest /= static_cast<uint32_t>(radix);
    } while (rest != 0);
    if (negative) digits.insert(digits.begin(), '-');
    std::memcpy(text, digits.c_str(), digits.size() + 1);
  });
  return text;
}

int32_t GetCpuType(int32_t *type) {
  return deliver("GetCpuType", type, static_cast<int32_t>(host().cpuType));
}

int32_t GetFlashSizeTotal(uint32_t *size) {
  return deliver("GetFlashSizeTotal", size, host().flashSize);
}

int32_t GetRamSizeTotal(uint32_t *size) {
  return deliver("GetRamSizeTotal", size, host().ramSize);
}

int32_t GetMemInfo(MemInfo *figures) {
  return deliver("GetMemInfo", figures, host().memory);
}

int32_t GetUpMode(uint32_t *mask) {
  return deliver("GetUpMode", mask, host().upMode);
}

int32_t PcStartProgram(const char *program, const char *commandLine, int32_t, int32_t) {
  return boundary::status("PcStartProgram", boundary::text(commandLine), [&](Gateway &gateway) {
    needs(program != nullptr && commandLine != nullptr, "no program");
    host().programs.push_back({program, commandLine});
    const auto handler = programHandlers().find(std::string_view(program));
    return handler == programHandlers().end() ? int32_t{kOk}
                                              : handler->second(gateway, commandLine);
  });
}
