// A house of stations: who is listed, who is associated, and what they move as time passes.
#include "gateway/stations.hpp"

#include <nlohmann/json.hpp>

#include "boundary/status.hpp"
#include "platform/attached_devices.h"
#include "platform/attached_devices.hpp"
#include "platform/device.hpp"
#include "platform/firewall.hpp"
#include "platform/limits.hpp"
#include "platform/ports.h"
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

class StationsTest : public GatewayTest {
 protected:
  StationsTest() { loadExample("home_router.json"); }

  uint32_t listed(int32_t (*list)(InstanceList *)) {
    InstanceList found = {PLATFORM_BLOCK_MARKER, 4, 0, paths};
    EXPECT_EQ(list(&found), kOk);
    return found.dwCount;
  }

  uint64_t bytesSent(const std::string &path) {
    StationStatisticsRecord record = {};
    EXPECT_EQ(pm_bw_get_hard_stats(path.c_str(), &record), kOk);
    return fieldsOf<StationStatisticsRecord>(&record).counter(
        StationStatisticsRecord::totalBytesSent);
  }

  char paths[4][PLATFORM_INSTANCE_SIZE] = {};
};

TEST_F(StationsTest, StationThatLeavesIsListedAmongAllOnly) {
  Station &pad = *stations().byMac({0xf4, 0x0f, 0x24, 0x10, 0x88, 0x01});
  const std::string association = stations().associationPathOf(pad);
  EXPECT_EQ(stations().byAssociation(association), &pad);
  EXPECT_EQ(listed(plib_adev_list_view_all), 12u);
  EXPECT_EQ(listed(plib_adev_list_view), 9u);
  EXPECT_STREQ(paths[3], "IGD.LD1.Hosts.Adev4");

  stations().leave(pad);
  EXPECT_EQ(listed(plib_adev_list_view_all), 12u);
  EXPECT_EQ(listed(plib_adev_list_view), 8u);
  EXPECT_STREQ(paths[0], "IGD.LD1.Hosts.Adev2");
  EXPECT_FALSE(store().has<AssociatedDeviceView>(association));
  EXPECT_EQ(stations().byAssociation(association), nullptr);

  gateway().clock().advance(3600);
  stations().associate(pad, {"IGD.LD1.WLAN5", -50, 866700, 780000});
  EXPECT_EQ(listed(plib_adev_list_view), 9u);
  EXPECT_EQ(store().row<AssociatedDeviceView>("IGD.LD1.WLAN5.AD1").mac(AssociatedDeviceView::mac),
            pad.mac);
  EXPECT_EQ(
      store().row<AccessDeviceView>("IGD.LD1.Hosts.Adev1").text(AccessDeviceView::lastConnection),
      "2026-05-28 21:26:40");
  EXPECT_EQ(pad.connectedAt, 1040400u);
}

TEST_F(StationsTest, CountersGrowUntilTheStationLeaves) {
  const uint64_t before = bytesSent("IGD.LD1.Hosts.Adev1");
  gateway().clock().advance(100);
  EXPECT_EQ(bytesSent("IGD.LD1.Hosts.Adev1"), before + 204800);
  stations().leave(stations().all[0]);
  gateway().clock().advance(100);
  EXPECT_EQ(bytesSent("IGD.LD1.Hosts.Adev1"), before + 204800);
  StationStatisticsRecord record = {};
  EXPECT_EQ(pm_bw_get_hard_stats("IGD.LD1.Hosts.Adev13", &record), kUnknownInstance);
}

TEST_F(StationsTest, HouseIsTheSameAfterSavingAndLoading) {
  gateway().clock().advance(50);
  stations().leave(stations().all[2]);
  const Json saved = gateway().save();
  gateway().load(saved);
  EXPECT_EQ(gateway().save(), saved);
  EXPECT_EQ(listed(plib_adev_list_view), 8u);
  EXPECT_EQ(bytesSent("IGD.LD1.Hosts.Adev1"), 734003200u + 50 * 2048);
}

TEST_F(StationsTest, ProfilesThatAreWrongAreRefusedAtTheirPlace) {
  const struct {
    const char *station;
    const char *reason;
  } cases[] = {
      {R"({"mac": "zz"})", "stations.all[0].mac"},
      {R"({"mac": "020000000001", "ipv4": "1.2.3"})", "stations.all[0].ipv4"},
      {R"({"mac": "020000000001", "ipv6": ["x"]})", "stations.all[0].ipv6[0]"},
      {R"({"mac": "020000000001", "kind": "fridge"})", "stations.all[0].kind"},
      {R"({"mac": "020000000001", "association": {}})", "stations.all[0].association.ssid"},
      {R"({"mac": "020000000001", "interface": "an-interface-of-26-letters"})", "stations.all[0]"},
      {R"({"mac": "020000000001", "bytesSent": -1})", "stations.all[0].bytesSent"},
      {R"({"mac": "020000000001", "bytesSent": {"rate": 1}})", "stations.all[0].bytesSent.rate"},
      {R"({"mac": "020000000001"}, {"mac": "020000000001"})", "stations.all[1]"}};
  for (const auto &one : cases) {
    try {
      gateway().load(Json::parse(std::string(R"({"stations": {"all": [)") + one.station + "]}}"));
      ADD_FAILURE() << one.station;
    } catch (const InputError &error) {
      EXPECT_THAT(error.what(), ::testing::HasSubstr(one.reason));
    }
  }
}

}  // namespace
}  // namespace gateway
