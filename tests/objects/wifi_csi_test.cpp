#include "pmapi/wifi_csi.h"

#include <cstring>
#include <memory>

#include "platform/wlan.hpp"
#include "tests/objects/wlan_object_test.hpp"

using namespace platform;

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

/// A record with the room that the daemon gives its list, and not a byte more.
class MacRequest {
 public:
  static constexpr size_t kRoom = 416;
  CsiMacRecord *record() { return reinterpret_cast<CsiMacRecord *>(bytes_.get()); }

 private:
  std::unique_ptr<uint8_t[]> bytes_ = std::make_unique<uint8_t[]>(sizeof(CsiMacRecord) + kRoom);
};

class WifiCsi : public WlanObjectTest {
 protected:
  uint32_t csi(int radio, const platform::Field &field) {
    return store().row<WlanCsiRecord>("IGD.CsiInfo" + std::to_string(radio)).word(field);
  }

  int32_t enable(const char *radio, int32_t value) {
    CsiEnableSetRecord record = {};
    strncpy(record.radio, radio, sizeof record.radio);
    record.enable = value;
    return pm_ubus_set_csi_enable(&record);
  }

  int32_t setMacs(int32_t operation, const std::string &list) {
    MacRequest request;
    request.record()->operation = operation;
    list.copy(request.record()->macList, MacRequest::kRoom - 1);
    return pm_ubus_set_csi_mac(request.record());
  }

  std::string macs(int32_t expected = 0) {
    MacRequest request;
    EXPECT_EQ(pm_ubus_get_csi_mac(request.record()), expected);
    return request.record()->macList;
  }
};

constexpr char kThree[] = "001122334401,001122334402,001122334403";

TEST_F(WifiCsi, EnableSetNamesTheRadioExactly) {
  EXPECT_EQ(enable("2.4G", 1), 0);
  EXPECT_EQ(csi(1, WlanCsiRecord::csiEnable), 1u);
  EXPECT_EQ(csi(2, WlanCsiRecord::csiEnable), 0u);
  EXPECT_EQ(csi(1, WlanCsiRecord::csiParam1), 100u) << "only what is marked";
  EXPECT_EQ(enable("All", 1), 0) << "2.4 GHz stood already, which does not matter";
  EXPECT_EQ(csi(2, WlanCsiRecord::csiEnable), 1u);
  EXPECT_EQ(enable("5G", 1), -1) << "nothing changed";
  EXPECT_THAT(logs(),
              HasLogLine({4, "pm_ubus_set_csi_enable", "pm_wlan_set_csi_info  fail=-9\n", -9}));

  forgetCalls();
  const std::string filled(sizeof CsiEnableSetRecord::radio, '5');
  for (const char *radio : {"all", "2.4", "", "5GHz", "A", filled.c_str()}) {
    EXPECT_EQ(enable(radio, 0), -1) << radio;
    EXPECT_THAT(logs(), HasLogLine({4, "pm_ubus_set_csi_enable", "radio illegal!"}));
  }
  EXPECT_THAT(trace(), IsEmpty());
}

TEST_F(WifiCsi, EnableGetReadsBothRadiosOrWritesNothing) {
  EXPECT_EQ(enable("2.4G", 4), 0);
  EXPECT_EQ(enable("5G", 3), 0);
  CsiEnableRecord record = {};
  EXPECT_EQ(pm_ubus_get_csi_enable(&record), 0);
  EXPECT_STREQ(record.radio1, "2.4G");
  EXPECT_EQ(record.enable1, 4);
  EXPECT_STREQ(record.radio2, "5G");
  EXPECT_EQ(record.enable2, 3);

  const gateway::Row radio = store().row<WlanCsiRecord>("IGD.CsiInfo2");
  memset(radio.data() + WlanCsiRecord::radioName.offset, 'r', WlanCsiRecord::radioName.width);
  EXPECT_EQ(pm_ubus_get_csi_enable(&record), 0);
  EXPECT_EQ(record.radio2, std::string(31, 'r'));
  EXPECT_EQ(record.enable2, 3);

  sweepFaults(
      [&] {
        record = {};
        return pm_ubus_get_csi_enable(&record);
      },
      [&](const gateway::testing::SweepRun &run) {
        EXPECT_EQ(run.status, -1);
        EXPECT_STREQ(record.radio1, "");
        EXPECT_THAT(
            logs(),
            HasLogLine({4, "pm_ubus_get_csi_enable",
                        "[pm_ubus_get_csi_enable] pm_ubus_get_csi_enable fail(-1)\r\n", -1}));
      });
}

TEST_F(WifiCsi, StationsAreAddedListedAndDeleted) {
  EXPECT_EQ(macs(), "");
  EXPECT_EQ(setMacs(1, kThree), 0);
  EXPECT_EQ(macs(), kThree);
  EXPECT_EQ(setMacs(2, "001122334402;001122334499"), 0) << "an unknown one is passed over";
  EXPECT_EQ(macs(), "001122334401,001122334403");
  EXPECT_EQ(setMacs(1, "001122334402"), 0);
  EXPECT_EQ(setMacs(1, "001122334402"), 0) << "refused with -9, ignored";
  EXPECT_THAT(trace("pm_wlan_add_csi_mac"), SizeIs(5));

  EXPECT_EQ(setMacs(3, kThree), -1);
  EXPECT_THAT(logs(), HasLogLine({4, "pm_ubus_set_csi_mac", "pm_ubus_set_csi_mac  fail=0\n"}));
}

TEST_F(WifiCsi, ATornEndOfTheListIsHandedOnAsItIs) {
  EXPECT_EQ(setMacs(1, "001122334401,0011223"), 0);
  EXPECT_EQ(setMacs(1, "001122334405,"), 0) << "a separator alone ends nothing";
  EXPECT_EQ(setMacs(1, "001122334406,x"), 0);
  EXPECT_THAT(trace("pm_wlan_add_csi_mac"), ElementsAre("pm_wlan_add_csi_mac(IGD 001122334401) = 0",
                                                        "pm_wlan_add_csi_mac(IGD 0011223) = -2004",
                                                        "pm_wlan_add_csi_mac(IGD 001122334405) = 0",
                                                        "pm_wlan_add_csi_mac(IGD 001122334406) = 0",
                                                        "pm_wlan_add_csi_mac(IGD x) = -2004"));
  forgetCalls();
  EXPECT_EQ(setMacs(1, ""), 0);
  EXPECT_THAT(trace(), IsEmpty());
}

TEST_F(WifiCsi, ListsAsManyStationsAsThereIsRoomFor) {
  std::string all;
  for (int i = 0; i < 32; ++i) {
    char mac[14];
    snprintf(mac, sizeof mac, ",0011223344%02x", static_cast<unsigned>(i));
    all += i == 0 ? mac + 1 : mac;
  }
  EXPECT_EQ(setMacs(1, all), 0);
  EXPECT_EQ(setMacs(1, "0011223344ff"), 0);
  EXPECT_THAT(trace("pm_wlan_add_csi_mac").back(), ::testing::EndsWith("= -2006")) << "full";
  EXPECT_EQ(macs(), all);
  for (const int32_t reported : {33, INT32_MAX, -1, INT32_MIN}) {
    fail(boundary::Fault{.call = "pm_wlan_list_csi_mac", .times = 1, .count = reported});
    EXPECT_EQ(macs(), reported > 0 ? all : "") << reported;
  }
  for (const char *path : {"IGD.CsiMac1", "IGD.CsiMac32"}) {
    store().row<WlanCsiMacRecord>(path).setText(WlanCsiMacRecord::macText, "0011223344aabb");
  }
  EXPECT_EQ(macs(), "0011223344aa" + all.substr(12, all.size() - 24) + "0011223344aa");
}

TEST_F(WifiCsi, TheListEndsAtAStationThatCannotBeRead) {
  EXPECT_EQ(setMacs(1, kThree), 0);
  fail("pm_wlan_get_csi_mac_par", "CsiMac2", -77);
  EXPECT_EQ(macs(), "001122334401");
  EXPECT_THAT(logs(),
              HasLogLine({4, "pm_ubus_get_csi_mac", "pm_wlan_get_csi_mac_par(1) fail=-77\n", -77}));
  fail("pm_wlan_list_csi_mac", "IGD", -78);
  EXPECT_EQ(macs(-78), "");
  EXPECT_THAT(logs(),
              HasLogLine({4, "pm_ubus_get_csi_mac", "pm_wlan_list_csi_mac fail=-78\n", -78}));
}

TEST_F(WifiCsi, ParametersGoToBothRadiosAndAreReadFromTheFirst) {
  const CsiConfigRecord wanted = {7, -8};
  EXPECT_EQ(pm_ubus_set_csi_config(&wanted), 0);
  EXPECT_EQ(csi(2, WlanCsiRecord::csiParam2), static_cast<uint32_t>(-8));
  CsiConfigRecord record = {};
  EXPECT_EQ(pm_ubus_get_csi_config(&record), 0);
  EXPECT_EQ(record.csiParam1, 7);
  EXPECT_EQ(record.csiParam2, -8);
  EXPECT_THAT(trace("pm_wlan_get_csi_info"), ElementsAre("pm_wlan_get_csi_info(IGD.CsiInfo1) = 0"));

  sweepFaults([&] { return pm_ubus_set_csi_config(&wanted); },
              [&](const gateway::testing::SweepRun &run) {
                EXPECT_EQ(run.status, -1);
                EXPECT_EQ(csi(2, WlanCsiRecord::csiParam1), 100u);
                EXPECT_EQ(csi(1, WlanCsiRecord::csiParam1), run.failed == 1 ? 100u : 7u);
                EXPECT_THAT(logs(), HasLogLine({4, "pm_ubus_set_csi_config",
                                                "pm_ubus_set_csi_config  fail=-1\n", -1}));
              });
  record = {1, 2};
  fail("pm_wlan_get_csi_info", "CsiInfo1", -77);
  EXPECT_EQ(pm_ubus_get_csi_config(&record), -1);
  EXPECT_EQ(record.csiParam1, 1);
  EXPECT_THAT(logs(),
              HasLogLine({4, "pm_ubus_get_csi_config",
                          "[pm_ubus_get_csi_config] pm_ubus_get_csi_config fail(-77)\r\n", -77}));
}

TEST_F(WifiCsi, NullRecordsAreRefused) {
  EXPECT_EQ(pm_ubus_set_csi_enable(nullptr), -257);
  EXPECT_EQ(pm_ubus_get_csi_enable(nullptr), -257);
  EXPECT_EQ(pm_ubus_set_csi_mac(nullptr), -257);
  EXPECT_EQ(pm_ubus_set_csi_config(nullptr), -257);
  for (const char *handler : {"pm_ubus_set_csi_enable", "pm_ubus_get_csi_enable",
                              "pm_ubus_set_csi_mac", "pm_ubus_set_csi_config"}) {
    EXPECT_THAT(logs(), HasLogLine({4, handler, std::string(handler) + " para is null"}));
    EXPECT_THAT(logs(), HasLogLine({5, handler, "now in " + std::string(handler) + "\n"}));
  }
  gateway().clearLogs();
  EXPECT_EQ(pm_ubus_get_csi_mac(nullptr), -1);
  EXPECT_EQ(pm_ubus_get_csi_config(nullptr), -1);
  EXPECT_THAT(logs(), SizeIs(2)) << "their entry lines alone";
  for (const char *handler : {"pm_ubus_get_csi_mac", "pm_ubus_get_csi_config"}) {
    EXPECT_THAT(logs(), HasLogLine({5, handler, "now in " + std::string(handler) + "\n"}));
  }
  EXPECT_THAT(trace(), IsEmpty());
}

TEST_F(WifiCsi, StationHandlersSurviveAnyFailure) {
  sweepFaults([this] { return setMacs(2, kThree); },
              [](const gateway::testing::SweepRun &run) { EXPECT_EQ(run.status, 0); });
  sweepFaults([this] { return enable("All", 1); },
              [](const gateway::testing::SweepRun &run) {
                EXPECT_EQ(run.status, run.failed == 1 && run.once ? 0 : -1);
              });
}

}  // namespace
