#include "pmapi/hardwareinfo.h"

#include <cstring>

#include "gateway/host.hpp"
#include "tests/support/gateway_test.hpp"

namespace gateway {
namespace {

class HardwareInfoTest : public GatewayTest {
 protected:
  HardwareInfoTest() { loadExample("home_router.json"); }

  HardwareInfoRecord record = {};
};

TEST_F(HardwareInfoTest, FillsTheRecord) {
  EXPECT_EQ(pm_ubus_get_hardware_info(&record), 0);
  EXPECT_STREQ(record.cpuType, "K20S");
  EXPECT_EQ(record.flashSize, 262144u);
  EXPECT_EQ(record.ramSize, 524288u);
  EXPECT_EQ(record.cpuUsage, 17u);
  EXPECT_EQ(record.ramUsage, 42u);
}

TEST_F(HardwareInfoTest, ProcessorsOutsideTheTableArePrintedAndRefused) {
  const char *const names[] = {nullptr, "K10", "K20", "K20S", "K10S", "K30", nullptr};
  for (uint32_t type = 0; type < 7; ++type) {
    host().cpuType = type;
    std::strcpy(record.cpuType, "old");
    int32_t status = 0;
    const std::string printed = printedBy([&] { status = pm_ubus_get_hardware_info(&record); });
    EXPECT_EQ(status, names[type] == nullptr ? -1 : 0) << type;
    EXPECT_STREQ(record.cpuType, names[type] == nullptr ? "old" : names[type]);
    EXPECT_EQ(printed, names[type] == nullptr
                           ? "can not find current_cputype!! \nget cpuType failed! \n"
                           : "");
  }
}

TEST_F(HardwareInfoTest, MemoryUsageIsComputedInThirtyTwoBits) {
  const struct {
    MemInfo memory;
    uint32_t usage;
  } cases[] = {{{1000, 200, 100, 100}, 60},
               {{0, 0, 0, 0}, 0},
               {{100, 90, 20, 20}, 10},    // more free than there is: buffers are left out
               {{50000000, 1, 0, 0}, 14},  // 100 times that wraps
               {{10, 20, 0, 0}, 429496629}};
  for (const auto &one : cases) {
    host().memory = one.memory;
    EXPECT_EQ(pm_ubus_get_hardware_info(&record), 0);
    EXPECT_EQ(record.ramUsage, one.usage) << one.memory.total;
  }
}

TEST_F(HardwareInfoTest, EachFailureEndsTheRecordButTheMemoryFigures) {
  const struct {
    const char *call;
    const char *line;
  } cases[] = {{"GetFlashSizeTotal", "get flashSize failed! \n"},
               {"GetRamSizeTotal", "get ramSize failed! \n"},
               {"pm_srm_get_update_cpu_info", "pm_srm_get_update_cpu_info fail\n"}};
  for (const auto &one : cases) {
    fail(one.call, "", -5, 1, 1);
    EXPECT_EQ(pm_ubus_get_hardware_info(&record), -1);
    EXPECT_THAT(logs(), HasLogLine({4, "pm_ubus_get_hardware_info", one.line, -5}));
  }
  fail("GetMemInfo", "", -6, 1, 1);
  record.ramUsage = 99;
  EXPECT_EQ(pm_ubus_get_hardware_info(&record), 0);
  EXPECT_EQ(record.ramUsage, 0u) << "whatever the failed call left in its figures";
  EXPECT_THAT(logs(), HasLogLine({4, "nexumd_get_ramusage", "GetMemInfo fail", -6}));

  fail("GetCpuType", "", -7, 1, 1);
  EXPECT_EQ(printedBy([&] { EXPECT_EQ(pm_ubus_get_hardware_info(&record), -1); }),
            "GetCpuType ERROR!! cputype=1515870810\nget cpuType failed! \n");
  EXPECT_EQ(pm_ubus_get_hardware_info(nullptr), -1);
  EXPECT_THAT(logs(), HasLogLine({4, "pm_ubus_get_hardware_info",
                                  "pm_ubus_get_hardware_info para is null"}));
}

TEST_F(HardwareInfoTest, SweepOfFaults) {
  sweepFaults(
      [&] { return pm_ubus_get_hardware_info(&record); },
      [](const testing::SweepRun &run) { EXPECT_TRUE(run.status == 0 || run.status == -1); });
}

}  // namespace
}  // namespace gateway
