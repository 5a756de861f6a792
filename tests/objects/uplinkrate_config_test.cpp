#include "pmapi/uplinkrate_config.h"

#include <cstring>

#include "platform/attached_devices.hpp"
#include "platform/device.hpp"
#include "platform/firewall.hpp"
#include "platform/limits.hpp"
#include "platform/ports.hpp"
#include "platform/sampling.hpp"
#include "platform/timers.hpp"
#include "platform/traffic_rules.hpp"
#include "platform/wan.hpp"
#include "platform/wlan.hpp"
#include "tests/support/gateway_test.hpp"

using namespace platform;

namespace gateway {
namespace {

class UplinkRateConfigTest : public GatewayTest {
 protected:
  UplinkRateConfigTest() { loadExample("home_router.json"); }

  int32_t set(const std::string &interface, const char *report, const char *sample) {
    // The name may run on into the next field, as it does in the daemon's own records.
    std::memset(&record, 0, sizeof record);
    std::strcpy(record.reportInterval, report);
    std::strcpy(record.sampleInterval, sample);
    std::memcpy(record.interface, interface.c_str(), interface.size());
    return pm_ubus_uplinkrate_config_set(&record);
  }

  std::string text(const char *path, const platform::Field &field) {
    return store().row<UplinkRateConfigView>(path).text(field);
  }

  UplinkRateConfigRecord record = {};
};

TEST_F(UplinkRateConfigTest, WritesTheTextsAsTheyStand) {
  EXPECT_EQ(set("nbif0", "abc", "-5"), 0);
  EXPECT_EQ(text("nbif0", UplinkRateConfigView::interfaceName), "nbif0");
  EXPECT_EQ(text("nbif0", UplinkRateConfigView::reportInterval), "abc");
  EXPECT_EQ(text("nbif0", UplinkRateConfigView::sampleInterval), "-5");
  EXPECT_THAT(logs(), HasLogLine({5, "pm_ubus_uplinkrate_config_set",
                                  "ubusuplinkrate_config->interface:nbif0, "
                                  "ubusuplinkrate_config->reportInterval:abc, "
                                  "ubusuplinkrate_config->sampleInterval:-5\n"}));
}

TEST_F(UplinkRateConfigTest, InterfaceMayHaveThirtyTwoCharacters) {
  const std::string longest(32, 'n');
  store().create<UplinkRateConfigView>(longest);
  EXPECT_EQ(set(longest, "", "60"), 0);
  EXPECT_EQ(text(longest.c_str(), UplinkRateConfigView::interfaceName), longest);

  expectComplaint("the instance path is longer than 32 characters");
  EXPECT_EQ(set(longest, "1", "60"), -1) << "33 characters, the next field's one included";
}

TEST_F(UplinkRateConfigTest, IntervalThatRunsIntoTheNextIsSentAsInvalid) {
  EXPECT_EQ(set("nbif0", "300", "30"), 0);
  std::memset(record.reportInterval, '6', sizeof record.reportInterval);
  EXPECT_EQ(pm_ubus_uplinkrate_config_set(&record), -1) << "and the platform refuses it";
  EXPECT_EQ(text("nbif0", UplinkRateConfigView::reportInterval), "300");
}

TEST_F(UplinkRateConfigTest, Failures) {
  fail("vcorDbSetView", "DBVIEW_UPLINKRATE_CONFIG br0", -5);
  EXPECT_EQ(set("br0", "600", "60"), -1);
  EXPECT_THAT(logs(), HasLogLine({4, "pm_ubus_uplinkrate_config_set",
                                  "[pm_ubus_uplinkrate_config_set] dbsetview fail(-5)\r\n", -5}));
  EXPECT_EQ(pm_ubus_uplinkrate_config_set(nullptr), -257);
  EXPECT_THAT(logs(), HasLogLine({4, "pm_ubus_uplinkrate_config_set",
                                  "pm_ubus_uplinkrate_config_set para is null"}));
}

}  // namespace
}  // namespace gateway
