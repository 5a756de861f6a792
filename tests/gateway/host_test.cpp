#include "gateway/host.hpp"

#include <cstring>

#include "boundary/status.hpp"
#include "platform/logger.h"
#include "tests/support/gateway_test.hpp"

namespace gateway {
namespace {

using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

class HostTest : public GatewayTest {};

TEST_F(HostTest, LogKeepsTheRenderedLine) {
  EXPECT_EQ(ProcUserLog("tag.c", 12, "handler", LOG_LEVEL_ERROR, -3, "%s fail(%d)\n", "call", -3),
            0);
  ASSERT_EQ(logs().size(), 1u);
  EXPECT_EQ(logs()[0].tag, "tag.c");
  EXPECT_EQ(logs()[0].line, 12);
  EXPECT_THAT(logs(), HasLogLine({4, "handler", "call fail(-3)\n", -3}));
  EXPECT_THAT(logs(), HasLog(4, HasSubstr("fail")));
  EXPECT_THAT(logs(), Not(HasLog(5, HasSubstr("fail"))));
}

TEST_F(HostTest, BlocksComePoisonedAndAreCounted) {
  auto *block = static_cast<uint8_t *>(GetUB(20));
  EXPECT_THAT(std::vector<uint8_t>(block, block + 20), Each(0xa5));
  EXPECT_THAT(blocks().liveSizes(), ElementsAre(20u));
  gateway().reset();
  EXPECT_EQ(blocks().live(), 0u) << "what was taken before a reset is not counted after it";
  RetUB(block);
  expectComplaint("no block of GetUB");
  RetUB(block);
}

TEST_F(HostTest, AddressesAreReadAndPrinted) {
  uint8_t mac[6] = {};
  EXPECT_EQ(StrToMAC("001A2b3c4d5e", mac), 1);
  EXPECT_EQ(StrToMAC("00:1A:2b:3c:4d:5f", mac), 1);
  for (const char *bad :
       {"", "00:1a:2b:3c:4d", "00-1a-2b-3c-4d-5e", "001a2b3c4d5", "001a2b3c4d5g"}) {
    EXPECT_EQ(StrToMAC(bad, mac), 0) << bad;
  }
  char text[40];
  EXPECT_EQ(MACToStr(mac, text, sizeof text), kOk);
  EXPECT_STREQ(text, "00:1a:2b:3c:4d:5f");
  expectComplaint("does not fit 17");
  EXPECT_EQ(MACToStr(mac, text, 17), kBadRequest);

  uint32_t address = 0;
  EXPECT_EQ(StrToIP("10.0.0.2", &address), kOk);
  EXPECT_EQ(address, 0x0a000002u);
  EXPECT_EQ(StrToIP("10.0.0.256", &address), kFailed);
  EXPECT_EQ(IPToStr(address, text, sizeof text), kOk);
  EXPECT_STREQ(text, "10.0.0.2");

  const uint8_t global[16] = {0x20, 1, 0xd, 0xb8, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1};
  const uint8_t linkLocal[16] = {0xfe, 0x80, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1};
  const uint8_t none[16] = {};
  EXPECT_EQ(IPv6ToStr(global, text, sizeof text), kOk);
  EXPECT_STREQ(text, "2001:db8::1");
  EXPECT_EQ(ChkIPv6(global), kOk);
  EXPECT_EQ(ChkIPv6(linkLocal), kFailed);
  EXPECT_EQ(ChkIPv6(none), kFailed);
}

TEST_F(HostTest, NumbersAndTextsAreCopiedWithinBounds) {
  char text[40];
  EXPECT_STREQ(itoa(-2147483647 - 1, text, 10), "-2147483648");
  EXPECT_STREQ(itoa(255, text, 16), "ff");
  EXPECT_STREQ(SafeStrncpy(text, "abcdef", 4), "abc");
  EXPECT_STREQ(SafeStrncpy(text, "abc", sizeof text), "abc");
}

int32_t refusePrograms(Gateway &, const std::string &commandLine) {
  return commandLine.find("refused") == std::string::npos ? 0 : 1;
}
const ProgramHandler kTestProgram{"test-program", refusePrograms};

TEST_F(HostTest, ProgramsAreRememberedAndReachTheirHandler) {
  EXPECT_EQ(PcStartProgram("unknown", "unknown -x", 0, 0), 0);
  EXPECT_EQ(PcStartProgram("test-program", "test-program refused", 0, 0), 1);
  ASSERT_EQ(host().programs.size(), 2u);
  EXPECT_EQ(host().programs[0].commandLine, "unknown -x");
}

TEST_F(HostTest, FiguresComeFromTheProfile) {
  loadProfile(R"({"host": {"cpuType": 5, "flashSize": 128, "ramSize": 256, "upMode": 8,
                           "memory": {"total": 9, "free": 3, "buffers": 2, "cached": 1}}})");
  int32_t type = 0;
  uint32_t flash = 0, ram = 0, mask = 0;
  MemInfo memory = {};
  EXPECT_EQ(GetCpuType(&type) | GetFlashSizeTotal(&flash) | GetRamSizeTotal(&ram) |
                GetUpMode(&mask) | GetMemInfo(&memory),
            kOk);
  EXPECT_THAT((std::vector<uint32_t>{static_cast<uint32_t>(type), flash, ram, mask, memory.total,
                                     memory.free, memory.buffers, memory.cached}),
              ElementsAre(5u, 128u, 256u, 8u, 9u, 3u, 2u, 1u));
}

}  // namespace
}  // namespace gateway
