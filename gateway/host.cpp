#include "gateway/host.hpp"

#include <cstdarg>
#include <cstdlib>
#include <cstring>

#include "boundary/boundary.hpp"
#include "gateway/calls.hpp"
#include "gateway/gateway.hpp"
#include "platform/logger.h"
#include "records/addresses.hpp"

PM_RECORD(platform::MemInfo, PM_FIELD(total).means("in any unit, the same for all four"),
          PM_FIELD(free).means("used by nobody"), PM_FIELD(buffers).means("counts as free"),
          PM_FIELD(cached).means("counts as free"));

PM_RECORD(gateway::Host,
          PM_FIELD(cpuType).means("number of the processor model").means(platform::range(1, 5)),
          PM_FIELD(flashSize).means("as the host utilities count it"),
          PM_FIELD(ramSize).means("as the host utilities count it"),
          PM_FIELD(upMode).means("mask of the kinds of uplink: 8 GPON, 64 XGPON"),
          PM_FIELD(memory).means("figures of the running system"));

namespace gateway {

namespace {

constexpr int kPoison = 0xa5;

SectionOf<Host> section{"host", "Figures of the hardware"};

std::map<std::string, ProgramHandler::Run, std::less<>> &programHandlers() {
  static std::map<std::string, ProgramHandler::Run, std::less<>> handlers;
  return handlers;
}

int32_t print(const std::string &value, char *text, uint32_t length) {
  if (value.size() >= length) {
    throw Refusal(kBadRequest, "\"" + value + "\" does not fit " + std::to_string(length));
  }
  std::memcpy(text, value.c_str(), value.size() + 1);
  return kOk;
}

template <class Address>
Address addressAt(const uint8_t *bytes) {
  Address address;
  std::memcpy(address.data(), bytes, address.size());
  return address;
}

}  // namespace

Blocks &blocks() {
  static Blocks *const blocks = new Blocks;
  return *blocks;
}

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

Host &host() {
  return section.state();
}

ProgramHandler::ProgramHandler(std::string_view program, Run run) {
  programHandlers().emplace(program, run);
}

}  // namespace gateway

using namespace gateway;

int32_t platform::ProcUserLog(const char *sourceTag, int32_t line, const char *functionName,
                              int32_t level, int32_t code, const char *format, ...) {
  const boundary::Outside outside;
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

void *gateway::GetUB(uint32_t size) {
  return blocks().take(size);
}

void gateway::RetUB(void *block) {
  if (!blocks().give(block)) throw Refusal(kBadRequest, "no block of GetUB");
}

int32_t gateway::StrToMAC(const char *text, uint8_t mac[6]) {
  const std::optional<MacAddress> parsed = parseMac(text);
  if (!parsed) return 0;
  std::memcpy(mac, parsed->data(), parsed->size());
  return 1;
}

int32_t gateway::MACToStr(const uint8_t mac[6], char *text, uint32_t length) {
  return print(printMac(addressAt<MacAddress>(mac)), text, length);
}

int32_t gateway::IPToStr(uint32_t address, char *text, uint32_t length) {
  return print(printIpv4(address), text, length);
}

int32_t gateway::StrToIP(const char *text, uint32_t *address) {
  const std::optional<uint32_t> parsed = parseIpv4(text);
  if (!parsed) return kFailed;
  *address = *parsed;
  return kOk;
}

int32_t gateway::IPv6ToStr(const uint8_t address[16], char *text, uint32_t length) {
  return print(printIpv6(addressAt<Ipv6Address>(address)), text, length);
}

int32_t gateway::ChkIPv6(const uint8_t address[16]) {
  const Ipv6Address unspecified = {};
  const bool linkLocal = address[0] == 0xfe && (address[1] & 0xc0) == 0x80;
  const bool empty = std::memcmp(address, unspecified.data(), unspecified.size()) == 0;
  return empty || linkLocal ? kFailed : kOk;
}

char *gateway::SafeStrncpy(char *destination, const char *source, uint32_t size) {
  if (size == 0) return destination;
  const size_t length = strnlen(source, size - 1);
  std::memcpy(destination, source, length);
  destination[length] = '\0';
  return destination;
}

char *gateway::itoa(int32_t value, char *text, int32_t radix) {
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
  return text;
}

int32_t gateway::GetCpuType(int32_t *type) {
  *type = static_cast<int32_t>(host().cpuType);
  return kOk;
}

int32_t gateway::GetFlashSizeTotal(uint32_t *size) {
  *size = host().flashSize;
  return kOk;
}

int32_t gateway::GetRamSizeTotal(uint32_t *size) {
  *size = host().ramSize;
  return kOk;
}

int32_t gateway::GetMemInfo(MemInfo *figures) {
  *figures = host().memory;
  return kOk;
}

int32_t gateway::GetUpMode(uint32_t *mask) {
  *mask = host().upMode;
  return kOk;
}

int32_t gateway::PcStartProgram(const char *program, const char *commandLine, int32_t, int32_t) {
  host().programs.push_back({program, commandLine});
  const auto handler = programHandlers().find(std::string_view(program));
  if (handler == programHandlers().end()) return kOk;
  return handler->second(Gateway::current(), commandLine);
}
