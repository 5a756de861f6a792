// What a section and a row of the store both show is one state: changed in one, saved once, and
// refused when a profile says it twice and differently.
#include <nlohmann/json.hpp>

#include "gateway/ports.hpp"
#include "gateway/stations.hpp"
#include "platform/attached_devices.hpp"
#include "platform/ports.h"
#include "platform/ports.hpp"
#include "platform/wlan.hpp"
#include "tests/support/gateway_test.hpp"

using namespace platform;

namespace gateway {
namespace {

class OneStateTest : public GatewayTest {
 protected:
  Row device() { return store().row<AccessDeviceView>("IGD.LD1.Hosts.Adev1"); }
  Row association() { return store().row<AssociatedDeviceView>("IGD.LD1.WLAN1.AD1"); }

  uint32_t rateOfPort4() {
    uint32_t state = 0;
    uint32_t rate = 0;
    uint32_t third = 0;
    EXPECT_EQ(pm_wan_get_port_link_state_type(&state, &rate, &third, 4), kOk);
    return rate;
  }

  void refuses(const std::string &profile, const std::string &place, const std::string &other) {
    try {
      gateway().load(Json::parse(profile));
      ADD_FAILURE() << profile;
    } catch (const InputError &error) {
      EXPECT_EQ(error.what(), place + ": differs from " + other);
    }
  }
};

TEST_F(OneStateTest, StationIsSavedWithWhatItsRowsHaveBecome) {
  loadExample("home_router.json");
  association().setWord(AssociatedDeviceView::rssi, static_cast<uint32_t>(-33));
  device().setText(AccessDeviceView::vendor, "Pear");
  device().setText(AccessDeviceView::ipv6Address, "fe80::1,fe80::2");
  const Json saved = gateway().save();
  const Json &station = saved["stations"]["all"][0];
  EXPECT_EQ(station["association"]["rssi"], -33);
  EXPECT_EQ(station["vendor"], "Pear");
  EXPECT_EQ(station["ipv6"], Json({"fe80::1", "fe80::2"}));
  EXPECT_FALSE(saved["views"].contains("DBVIEW_WLAN_AD"));
  EXPECT_FALSE(saved["views"].contains("DBVIEW_ACCESS_DEV"));

  Json changed = saved;
  changed["stations"]["all"][0]["association"]["rssi"] = -44;
  changed["stations"]["all"][0]["lastConnection"] = "yesterday";
  gateway().load(changed);
  EXPECT_EQ(association().word(AssociatedDeviceView::rssi), static_cast<uint32_t>(-44));
  EXPECT_EQ(device().text(AccessDeviceView::lastConnection), "yesterday");
  EXPECT_EQ(gateway().save(), changed);
}

TEST_F(OneStateTest, WhatOnlyARowSaysStays) {
  loadProfile(R"({
    "views": {"DBVIEW_ACCESS_DEV": {"IGD.LD1.Hosts.Adev1": {"vendor": "Pear", "adevValue": 3}},
              "DBVIEW_ETH_PORTCONF": {"IGD.ETH5": {"rateCode": 2, "parameterRun3": "01"}}},
    "stations": {"all": [{"mac": "020000000001", "vendor": "Pear"}]},
    "ports": {"all": [{"number": 4, "instance": "IGD.ETH5", "mac": "020000000002"},
                      {"number": 5, "instance": "IGD.ETH6", "mac": "020000000003"}]}})");
  EXPECT_EQ(rateOfPort4(), 2u);
  store().row<EthPortConfigView>("IGD.ETH5").setWord(EthPortConfigView::rateCode, 1);
  store().row<EthPortConfigView>("IGD.ETH6").setWord(EthPortConfigView::rateCode, 7);
  EXPECT_EQ(rateOfPort4(), 1u);

  const Json saved = gateway().save();
  EXPECT_EQ(saved["stations"]["all"][0]["adevValue"], 3);
  EXPECT_EQ(saved["views"]["DBVIEW_ETH_PORTCONF"]["IGD.ETH5"]["rateCode"], "100Mbps");
  EXPECT_FALSE(saved["views"]["DBVIEW_ETH_PORTCONF"].contains("IGD.ETH6"));
  EXPECT_FALSE(saved["ports"]["all"][0].contains("rateCode"));
  EXPECT_EQ(saved["ports"]["all"][1]["rateCode"], 7);
  gateway().load(saved);
  EXPECT_EQ(gateway().save(), saved);
}

TEST_F(OneStateTest, ProfileThatSaysOneThingTwiceAndDifferentlyIsRefused) {
  const std::string wlan = "views.DBVIEW_WLAN_AD.IGD.LD1.WLAN1.AD1.";
  const auto associated = [](const std::string &row) {
    return R"({"views": {"DBVIEW_WLAN_AD": {"IGD.LD1.WLAN1.AD1": {)" + row +
           R"(}}}, "stations": {"all": [{"mac": "020000000001", "association":
             {"ssid": "IGD.LD1.WLAN1", "rssi": -58}}]}})";
  };
  refuses(associated(R"("rssi": -60)"), "stations.all[0].association.rssi", wlan + "rssi");
  refuses(associated(R"("rssi": -58, "ssidInstance": "IGD.LD1.WLAN2")"),
          "stations.all[0].association.ssid", wlan + "ssidInstance");
  refuses(associated(R"("rssi": -58, "ssidInstance": "IGD.LD1.WLAN1", "mac": "020000000002")"),
          "stations.all[0].mac", wlan + "mac");

  const auto device = [](const std::string &row, const std::string &station) {
    return R"({"views": {"DBVIEW_ACCESS_DEV": {"IGD.LD1.Hosts.Adev1": {)" + row +
           R"(}}}, "stations": {"all": [{"mac": "020000000001", )" + station + "}]}}";
  };
  const std::string access = "views.DBVIEW_ACCESS_DEV.IGD.LD1.Hosts.Adev1.";
  refuses(device(R"("vendor": "Pear")", R"("vendor": "Apple")"), "stations.all[0].vendor",
          access + "vendor");
  refuses(device(R"("ipv6Address": "fe80::1")", R"("ipv6": ["fe80::2"])"), "stations.all[0].ipv6",
          access + "ipv6Address");

  refuses(R"({"views": {"DBVIEW_ETH_PORTCONF": {"IGD.ETH5": {"rateCode": "100Mbps"}}}, "ports":
             {"all": [{"instance": "IGD.ETH5", "mac": "020000000002", "rateCode": "10Mbps"}]}})",
          "ports.all[0].rateCode", "views.DBVIEW_ETH_PORTCONF.IGD.ETH5.rateCode");
  refuses(R"({"records": {"WlanConfigRecord":
             {"IGD.LD1.WLAN1": {"channel": 6}, "IGD.LD1.WLAN5": {"channel": 36},
              "IGD.LD1.WLAN2": {"channel": 11}}}})",
          "records.WlanConfigRecord.IGD.LD1.WLAN2.channel",
          "records.WlanConfigRecord.IGD.LD1.WLAN1.channel");
}

}  // namespace
}  // namespace gateway
