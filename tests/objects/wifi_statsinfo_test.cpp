#include "pmapi/wifi_statsinfo.h"

#include <algorithm>
#include <cstring>

#include "platform/wlan.hpp"
#include "tests/objects/wlan_object_test.hpp"

using namespace platform;

namespace {

using ::testing::Each;
using ::testing::SizeIs;

using PmUbusGetWifiStatsinfo = WlanObjectTest;
using WifiStatsGetters = WlanObjectTest;

using CounterGetter = int32_t (*)(const char *, uint64_t *);

struct NamedGetter {
  const char *name;
  CounterGetter get;
};
constexpr NamedGetter kGetters[] = {
    {"ubus_getTotalBytesSent", ubus_getTotalBytesSent},
    {"ubus_getTotalBytesReceived", ubus_getTotalBytesReceived},
    {"ubus_getTotalPacketsSent", ubus_getTotalPacketsSent},
    {"ubus_getTotalPacketsReceived", ubus_getTotalPacketsReceived},
    {"ubus_getErrorsSent", ubus_getErrorsSent},
    {"ubus_getErrorsReceived", ubus_getErrorsReceived},
    {"ubus_getDiscardPacketsSent", ubus_getDiscardPacketsSent},
    {"ubus_getDiscardPacketsReceived", ubus_getDiscardPacketsReceived},
};

TEST_F(PmUbusGetWifiStatsinfo, WidensTheDriversCounters) {
  WifiStatsRecord stats = {};
  EXPECT_EQ(pm_ubus_get_wifi_statsinfo("IGD.LD1.WLAN1", &stats), 0);
  EXPECT_STREQ(stats.radio, "2.4G");
  EXPECT_STREQ(stats.ssid, "Kestrel-Home");
  EXPECT_EQ(stats.totalBytesSent, 6442450944u);
  EXPECT_EQ(stats.totalBytesReceived, 912680550u);
  EXPECT_EQ(stats.totalPacketsSent, 4294967295u);
  EXPECT_EQ(stats.totalPacketsReceived, 1203344u);
  EXPECT_EQ(stats.errorsSent, 17u);
  EXPECT_EQ(stats.errorsReceived, 5u);
  EXPECT_EQ(stats.discardPacketsSent, 211u);
  EXPECT_EQ(stats.discardPacketsReceived, 3u);
  EXPECT_THAT(trace("pm_wlan_get_config_driver"), SizeIs(8)) << "one read per counter";
  EXPECT_THAT(logs(),
              HasLogLine({5, "pm_ubus_get_wifi_statsinfo", "now in pm_ubus_get_wifi_statsinfo\n"}));
}

TEST_F(PmUbusGetWifiStatsinfo, AnUnknownBandHasNoTextAndItsCountersAllTheSame) {
  ssid(5).setWord(WlanConfigRecord::band, 2);
  WifiStatsRecord stats = {};
  EXPECT_EQ(pm_ubus_get_wifi_statsinfo("IGD.LD1.WLAN5", &stats), 0);
  EXPECT_STREQ(stats.radio, "");
  EXPECT_EQ(stats.totalBytesReceived, 10737418240u);
}

TEST_F(PmUbusGetWifiStatsinfo, SucceedsWhateverFails) {
  WifiStatsRecord stats;
  sweepFaults(
      [&] {
        stats = {};
        return pm_ubus_get_wifi_statsinfo("IGD.LD1.WLAN1", &stats);
      },
      [&](const gateway::testing::SweepRun &run) {
        EXPECT_EQ(run.status, 0);
        EXPECT_EQ(stats.discardPacketsReceived, run.once && run.failed < 10 ? 3u : 0u);
      });
  EXPECT_EQ(pm_ubus_get_wifi_statsinfo("IGD.LD1.WLAN1", nullptr), -1);
  EXPECT_THAT(logs(), HasLog(4, "pm_ubus_get_wifi_statsinfo para is null"));
}

TEST_F(WifiStatsGetters, CopyAtMost31CharactersAndNoTerminator) {
  for (const uint32_t length : {5u, 31u, 32u, WlanConfigRecord::ssid.width}) {
    memset(ssid(1).data() + WlanConfigRecord::ssid.offset, 0, WlanConfigRecord::ssid.width);
    memset(ssid(1).data() + WlanConfigRecord::ssid.offset, 's', length);
    std::string text(32, '#');
    EXPECT_EQ(ubus_getSsid("IGD.LD1.WLAN1", text.data()), 0);
    const uint32_t copied = std::min(length, 31u);
    EXPECT_EQ(text, std::string(copied, 's') + std::string(32 - copied, '#'));
  }
}

std::string failureLine(const char *getter) {
  return "[" + std::string(getter) + "] dbgetview fail(-2002)\r\n";
}

TEST_F(WifiStatsGetters, NameTheFailedReadAndWriteNothing) {
  for (const NamedGetter &getter : kGetters) {
    EXPECT_EQ(getter.get("IGD.LD1.WLAN1", nullptr), -1);
    uint64_t counter = 77;
    EXPECT_EQ(getter.get("IGD.LD1.WLAN9", &counter), -1);
    EXPECT_EQ(counter, 77u);
    EXPECT_THAT(logs(), HasLogLine({4, getter.name, failureLine(getter.name), -2002}));
  }
  EXPECT_EQ(ubus_getRadio("IGD.LD1.WLAN1", nullptr), -1);
  EXPECT_EQ(ubus_getSsid("IGD.LD1.WLAN1", nullptr), -1);
  char text[32] = {};
  EXPECT_EQ(ubus_getRadio("IGD.LD1.WLAN9", text), -1);
  EXPECT_EQ(ubus_getSsid("IGD.LD1.WLAN9", text), -1);
  EXPECT_THAT(text, Each('\0'));
  for (const char *getter : {"ubus_getRadio", "ubus_getSsid"}) {
    EXPECT_THAT(logs(), HasLogLine({4, getter, failureLine(getter), -2002}));
  }
  EXPECT_EQ(trace().size(), std::size(kGetters) + 2) << "no output, no question";
}

}  // namespace
