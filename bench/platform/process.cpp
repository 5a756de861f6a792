// What the process supplies besides records and views: the logger, memory blocks, small utilities,
// and time that does not pass.
#include <sys/sysinfo.h>
#include <unistd.h>

#include <algorithm>
#include <cstdarg>
#include <cstring>

#include "bench/platform/process.hpp"
#include "bench/platform/recorder.hpp"
#include "platform/host.h"
#include "platform/logger.h"
#include "platform/multiap.h"

using bench::fillTyped;
using bench::note;
using bench::plain;

namespace bench {

const char *meshDump = "";

namespace {

constexpr uint32_t kBlockSize = 2048;
constexpr uint32_t kBlocks = 2048;

alignas(8) uint8_t blocks[kBlocks][kBlockSize];
void *freeBlocks[kBlocks];
uint32_t freeCount = 0;

const bool blocksAreFree = (freeAllBlocks(), true);

}  // namespace

void freeAllBlocks() {
  freeCount = 0;
  for (auto &block : blocks) freeBlocks[freeCount++] = block;
}

BlockState saveBlocks() {
  return BlockState(freeBlocks, freeBlocks + freeCount);
}

void restoreBlocks(const BlockState &state) {
  std::copy(state.begin(), state.end(), freeBlocks);
  freeCount = static_cast<uint32_t>(state.size());
}

}  // namespace bench

int32_t platform::ProcUserLog(const char *sourceTag, int32_t line, const char *functionName, int32_t level,
                    int32_t code, const char *format, ...) {
  if (bench::recorder.isOn()) [[unlikely]] {
    note<ProcUserLog>({}, sourceTag, line, functionName, level, code, format, 0, 0);
  }
  return 0;
}

void *platform::GetUB(uint32_t size) {
  note<GetUB>({}, size);
  if (size > bench::kBlockSize || bench::freeCount == 0) return nullptr;
  return bench::freeBlocks[--bench::freeCount];
}

void platform::RetUB(void *block) {
  note<RetUB>({}, block);
  bench::freeBlocks[bench::freeCount++] = block;
}

int32_t platform::StrToMAC(const char *text, uint8_t mac[6]) {
  note<StrToMAC>({}, text, mac);
  bench::answerTo<StrToMAC>.give(mac);
  return 1;
}

int32_t platform::MACToStr(const uint8_t mac[6], char *text, uint32_t length) {
  note<MACToStr>({}, mac, text, length);
  return bench::answerTo<MACToStr>.give(text);
}

int32_t platform::IPToStr(uint32_t address, char *text, uint32_t length) {
  note<IPToStr>({}, address, text, length);
  return bench::answerTo<IPToStr>.give(text);
}

int32_t platform::StrToIP(const char *text, uint32_t *address) {
  note<StrToIP>({}, text, address);
  return bench::answerTo<StrToIP>.give(address);
}

int32_t platform::IPv6ToStr(const uint8_t address[16], char *text, uint32_t length) {
  note<IPv6ToStr>({}, address, text, length);
  return bench::answerTo<IPv6ToStr>.give(text);
}

int32_t platform::ChkIPv6(const uint8_t address[16]) {
  return plain<ChkIPv6>(address);
}

char *platform::SafeStrncpy(char *destination, const char *source, uint32_t size) {
  note<SafeStrncpy>({}, destination, source, size);
  if (size == 0) return destination;
  uint32_t i = 0;
  for (; i + 1 < size && source[i] != '\0'; ++i) destination[i] = source[i];
  destination[i] = '\0';
  return destination;
}

char *platform::itoa(int32_t value, char *text, int32_t radix) {
  note<itoa>({}, value, text, radix);
  bench::answerTo<itoa>.give(text);
  return text;
}

int32_t platform::GetCpuType(int32_t *type) {
  note<GetCpuType>({}, type);
  return bench::answerTo<GetCpuType>.give(type);
}

int32_t platform::GetFlashSizeTotal(uint32_t *size) {
  note<GetFlashSizeTotal>({}, size);
  return bench::answerTo<GetFlashSizeTotal>.give(size);
}

int32_t platform::GetRamSizeTotal(uint32_t *size) {
  note<GetRamSizeTotal>({}, size);
  return bench::answerTo<GetRamSizeTotal>.give(size);
}

int32_t platform::GetMemInfo(MemInfo *figures) {
  return fillTyped<GetMemInfo>(figures, figures);
}

int32_t platform::GetUpMode(uint32_t *mask) {
  note<GetUpMode>({}, mask);
  return bench::answerTo<GetUpMode>.give(mask);
}

int32_t platform::PcStartProgram(const char *program, const char *commandLine, int32_t reserved1,
                       int32_t reserved2) {
  return plain<PcStartProgram>(program, commandLine, reserved1, reserved2);
}

void *platform::mapd_interface_ctrl_open(const char *controlPath) {
  note<mapd_interface_ctrl_open>({}, controlPath);
  return bench::blocks;
}

int32_t platform::mapd_interface_get_topology(void *handle, char *buffer, int32_t *length,
                                    const char *dumpPath) {
  note<mapd_interface_get_topology>({static_cast<uint32_t>(*length)}, handle, buffer, length,
                                    dumpPath);
  const auto size = std::min(strlen(bench::meshDump) + 1, static_cast<size_t>(*length));
  memcpy(buffer, bench::meshDump, size);
  *length = static_cast<int32_t>(size);
  return 0;
}

void platform::mapd_interface_ctrl_close(void *handle) {
  note<mapd_interface_ctrl_close>({}, handle);
}

unsigned sleep(unsigned) {
  return 0;
}
