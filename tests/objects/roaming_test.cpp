#include "pmapi/roaming.h"

#include <cstring>
#include <nlohmann/json.hpp>

#include "gateway/block_list.hpp"
#include "gateway/stations.hpp"
#include "platform/attached_devices.hpp"
#include "platform/wlan.hpp"
#include "pmapi/stainfo.h"
#include "tests/objects/wlan_object_test.hpp"

using namespace platform;

namespace {

using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Roaming : public WlanObjectTest {
 protected:
  int32_t steering(const platform::Field &field) {
    return static_cast<int32_t>(store().row<WlanBandSteeringRecord>("IGD").word(field));
  }

  static int32_t set(int32_t roamingSwitch, int32_t low24G, int32_t low5G) {
    const RoamingRecord record = {roamingSwitch, low24G, low5G, 1, 2, 3, 4, 5, 6};
    return pm_ubus_roaming_set(&record);
  }

  static int32_t setSteering(int32_t status, int32_t low24G, int32_t low5G) {
    BandSteeringRecord record = {};
    record.bandSteeringStatus = status;
    record.rssiThreshold = low24G;
    record.rssiThreshold5G = low5G;
    return pm_ubus_roaming_bandsteering_set(&record);
  }
};

std::vector<int32_t> words(const RoamingRecord &record) {
  return {record.roamingSwitch, record.lowRSSI24G,     record.lowRSSI5G,
          record.packetLoss,    record.retryRatio,     record.xIndex,
          record.detectPeriod,  record.rssiCheckDelta, record.dismissTime};
}

TEST_F(Roaming, SettingsReadBackAndTheRestIsZero) {
  EXPECT_EQ(set(1, -70, -75), 0);
  RoamingRecord record;
  memset(&record, 0x5a, sizeof record);
  EXPECT_EQ(pm_ubus_roaming_get(&record), 0);
  EXPECT_THAT(words(record), ElementsAre(1, -70, -75, 0, 0, 0, 0, 0, 0));
  EXPECT_THAT(logs(), HasLogLine({5, "ubus_getRoamingSwitch", "now in ubus_getRoamingSwitch\n"}));
  EXPECT_THAT(logs(), HasLogLine({5, "ubus_getRoamingSwitch", "roamingSwitch:1\n"}));
  EXPECT_THAT(logs(), HasLogLine({5, "ubus_getLowRSSI24G", "LowRSSI24G:-70\n"}));
  EXPECT_THAT(logs(), HasLogLine({5, "ubus_getLowRSSI5G", "LowRSSI5G:-75\n"}));

  EXPECT_EQ(set(2, -70, -75), 0) << "any other value switches it off";
  EXPECT_EQ(steering(WlanBandSteeringRecord::steeringEnable), 0);
  EXPECT_EQ(set(0, -70, -75), -1) << "the platform says that nothing changed";
  EXPECT_THAT(logs(),
              HasLogLine({4, "ubus_setLowRSSI", "pm_wlan_set_wifibandsteering  fail=-9\n", -9}));
  EXPECT_THAT(logs(),
              HasLogLine({4, "pm_ubus_roaming_set", "call ubus_setLowRSSI faild,iRet=-1\n", -1}));
}

TEST_F(Roaming, BandSteeringSwitchesRoamingTooAndRenames5G) {
  ssid(1).setText(WlanConfigRecord::ssid, "Kestrel-New");
  EXPECT_EQ(setSteering(1, -70, -75), 0);
  EXPECT_THAT(trace(), ElementsAre("pm_wlan_set_config(IGD.LD1.WLAN1) = 0",
                                   "pm_wlan_set_wifibandsteering() = 0",
                                   "pm_wlan_set_same_ssid_2G(IGD.LD1.WLAN1 IGD.LD1.WLAN5) = 0"));
  EXPECT_EQ(ssid(5).text(WlanConfigRecord::ssid), "Kestrel-New");
  RoamingRecord roaming = {};
  EXPECT_EQ(pm_ubus_roaming_get(&roaming), 0);
  EXPECT_THAT(words(roaming), ElementsAre(1, -70, -75, 0, 0, 0, 0, 0, 0));

  BandSteeringRecord record;
  memset(&record, 0x5a, sizeof record);
  EXPECT_EQ(pm_ubus_roaming_bandsteering_get(&record), 0);
  EXPECT_EQ(record.bandSteeringStatus, 1);
  EXPECT_EQ(record.rssiThreshold, -70);
  EXPECT_EQ(record.rssiThreshold5G, -75);
  EXPECT_THAT(record.reserved, Each(0x5a));
  EXPECT_THAT(logs(), HasLogLine({5, "ubus_getBandSteeringStatus", "BandSteeringStatus:1\n"}));
  EXPECT_THAT(logs(), HasLogLine({5, "ubus_getRssiThreshold", "RssiThreshold:-70\n"}));
  EXPECT_THAT(logs(), HasLogLine({5, "ubus_getRssiThreshold5G", "RssiThreshold5G:-75\n"}));

  EXPECT_EQ(setSteering(1, -60, -75), 0) << "the flag stood already";
  EXPECT_EQ(setSteering(5, -60, -75), 0) << "any other value switches it off";
  EXPECT_EQ(setting(1, WlanConfigRecord::bandSteering), 0u);
  EXPECT_EQ(steering(WlanBandSteeringRecord::steeringEnable), 0);
}

TEST_F(Roaming, BandSteeringSetStopsAtAFailure) {
  const struct {
    const char *call;
    int32_t answer;
    int32_t status;
    const char *text;
  } failures[] = {
      {"pm_wlan_set_config", -77, -1, "pm_wlan_set_config 2.4G fail = -77\n"},
      {"pm_wlan_set_wifibandsteering", -77, -1, "pm_wlan_set_wifibandsteering  fail=-77\n"},
      {"pm_wlan_set_wifibandsteering", -9, -1, "pm_wlan_set_wifibandsteering  fail=-9\n"},
      {"pm_wlan_set_same_ssid_2G", -9, -9, "pm_wlan_set_same_ssid_2G failed!! iRet:-9\n"},
      {"pm_wlan_set_same_ssid_2G", -77, -77, "pm_wlan_set_same_ssid_2G failed!! iRet:-77\n"},
  };
  for (const auto &failure : failures) {
    restart();
    fail(failure.call, "", failure.answer);
    EXPECT_EQ(setSteering(1, -70, -75), failure.status);
    EXPECT_EQ(trace().back(), trace(failure.call).back());
    EXPECT_THAT(logs(),
                HasLogLine({4, "pm_ubus_roaming_bandsteering_set", failure.text, failure.answer}));
  }
  EXPECT_EQ(steering(WlanBandSteeringRecord::lowRssi24G), -70) << "nothing is taken back";
}

TEST_F(Roaming, GettersLeaveTheirOutputWhenTheReadFails) {
  const struct {
    const char *name;
    int32_t (*get)(uint32_t *);
  } getters[] = {
      {"ubus_getRoamingSwitch", ubus_getRoamingSwitch},
      {"ubus_getLowRSSI24G", ubus_getLowRSSI24G},
      {"ubus_getLowRSSI5G", ubus_getLowRSSI5G},
      {"ubus_getRssiThreshold", ubus_getRssiThreshold},
      {"ubus_getRssiThreshold5G", ubus_getRssiThreshold5G},
      {"ubus_getBandSteeringStatus", ubus_getBandSteeringStatus},
  };
  fail("pm_wlan_get_wifibandsteering", "", -77);
  fail("pm_wlan_get_config", "", -77);
  for (const auto &getter : getters) {
    EXPECT_EQ(getter.get(nullptr), -1);
    uint32_t value = 77;
    EXPECT_EQ(getter.get(&value), -1);
    EXPECT_EQ(value, 77u);
    const std::string call =
        getter.get == ubus_getBandSteeringStatus ? "dbgetview" : "pm_wlan_get_wifibandsteering";
    EXPECT_THAT(logs(),
                HasLogLine({4, getter.name,
                            "[" + std::string(getter.name) + "] " + call + " fail(-77)\r\n", -77}));
  }
  RoamingRecord roaming = {5, 5, 5, 5, 5, 5, 5, 5, 5};
  EXPECT_EQ(pm_ubus_roaming_get(&roaming), 0);
  EXPECT_THAT(words(roaming), Each(0));
  BandSteeringRecord record;
  memset(&record, 0x5a, sizeof record);
  EXPECT_EQ(pm_ubus_roaming_bandsteering_get(&record), 0);
  EXPECT_EQ(record.bandSteeringStatus, 0);
  EXPECT_EQ(record.rssiThreshold, 0);
  EXPECT_EQ(record.rssiThreshold5G, 0);
}

TEST_F(Roaming, WhatThePlatformDoesNotHaveHasNoEffect) {
  for (int32_t (*handler)() :
       {ubus_getPacketLoss, ubus_getRetryRatio, ubus_getXIndex, ubus_getDetectPeriod,
        ubus_getRssiCheckDelta, ubus_getDismissTime, ubus_setPacketLoss, ubus_setRetryRatio,
        ubus_setXIndex, ubus_setDetectPeriod, ubus_setRssiCheckDelta, ubus_setDismissTime}) {
    EXPECT_EQ(handler(), 0);
  }
  EXPECT_THAT(trace(), IsEmpty());
  EXPECT_THAT(logs(), IsEmpty());
}

TEST_F(Roaming, NullRecordsAreRefused) {
  EXPECT_EQ(pm_ubus_roaming_set(nullptr), -257);
  EXPECT_EQ(pm_ubus_roaming_bandsteering_set(nullptr), -257);
  EXPECT_EQ(pm_ubus_roaming_get(nullptr), -1);
  EXPECT_EQ(pm_ubus_roaming_bandsteering_get(nullptr), -1);
  EXPECT_EQ(pm_ubus_roaming_sta_disconnect(nullptr), -1);
  EXPECT_EQ(pm_ubus_roaming_starssi_get(nullptr), -1);
  EXPECT_EQ(pm_ubus_sta_num_get(nullptr), -1);
  for (const char *handler :
       {"pm_ubus_roaming_set", "pm_ubus_roaming_bandsteering_set", "pm_ubus_roaming_get",
        "pm_ubus_roaming_bandsteering_get", "pm_ubus_roaming_sta_disconnect",
        "pm_ubus_roaming_starssi_get", "pm_ubus_sta_num_get"}) {
    EXPECT_THAT(logs(), HasLogLine({4, handler, std::string(handler) + " para is null"}));
  }
  EXPECT_THAT(trace(), IsEmpty());
}

/// Stations of a home router: three on 2.4 GHz, four on 5 GHz, two on the wire, the rest away.
class RoamingStations : public GatewayTest {
 protected:
  RoamingStations() { loadExample("home_router.json"); }

  gateway::Station &tablet() { return gateway::stations().all[0]; }
  gateway::Row association(const char *path) {
    return store().row<platform::AssociatedDeviceView>(path);
  }
  static StaRssiRecord asking(const char *mac) {
    StaRssiRecord record = {};
    strncpy(record.macAddress, mac, sizeof record.macAddress - 1);
    return record;
  }
  static std::vector<int32_t> counted(int32_t expected = 0) {
    StaNumRecord record = {-7, -7, -7};
    EXPECT_EQ(pm_ubus_sta_num_get(&record), expected);
    return {record.ethNum, record.wlan24GNum, record.wlan5GNum};
  }
};

constexpr char kTablet[] = "f40f24108801";
constexpr char kTabletPath[] = "IGD.LD1.WLAN1.AD1";

TEST_F(RoamingStations, DisconnectBlocksTheStationAndRemovesItsAssociation) {
  int32_t status = -1;
  const std::string printed =
      printedBy([&] { status = pm_ubus_roaming_sta_disconnect("F4:0F:24:10:88:01"); });
  EXPECT_EQ(status, 0);
  EXPECT_EQ(printed,
            "=======strtoMAc======f4:0f:24:10:88:01\n=======number=======1\n"
            "=======tViewName=======IGD.LD1.WLAN1.AD1\n");
  EXPECT_THAT(trace("pm_wlan_del_ad"), ElementsAre("pm_wlan_del_ad(IGD.LD1.WLAN1.AD1) = 0"));
  EXPECT_FALSE(store().has<platform::AssociatedDeviceView>(kTabletPath));
  EXPECT_FALSE(tablet().online);
  EXPECT_THAT(gateway::blockList().stations, ElementsAre(tablet().mac));

  const gateway::Json saved = gateway().save();
  gateway().load(saved);
  EXPECT_TRUE(gateway::blockList().holds(tablet().mac));
  EXPECT_EQ(pm_ubus_roaming_sta_disconnect(kTablet), -1) << "it is gone";
  EXPECT_THAT(counted(), ElementsAre(2, 2, 4));
}

TEST_F(RoamingStations, AssociationWithoutANameIsDisconnectedByItsInstance) {
  association(kTabletPath).setText(platform::AssociatedDeviceView::name, "");
  fail("pm_wlan_get_ad", "", -77);
  EXPECT_THAT(printedBy([] { EXPECT_EQ(pm_ubus_roaming_sta_disconnect(kTablet), -1); }),
              ::testing::EndsWith("=======tViewName=======IGD.LD1.WLAN1.AD1\n"));
  EXPECT_THAT(trace("pm_wlan_get_ad"), ElementsAre(::testing::HasSubstr("(IGD.LD1.WLAN1.AD1)")));
}

TEST_F(RoamingStations, DisconnectNeedsExactlyOneMatch) {
  store()
      .create<platform::AssociatedDeviceView>("IGD.LD1.WLAN5.AD99")
      .setMac(platform::AssociatedDeviceView::mac, tablet().mac);
  const std::string printed =
      printedBy([] { EXPECT_EQ(pm_ubus_roaming_sta_disconnect(kTablet), -1); });
  EXPECT_THAT(printed, ::testing::EndsWith("Database don't have this mac or more the one!\n"));
  EXPECT_THAT(counted(), ElementsAre(2, 2, 4)) << "nor is it counted";
  fail({.call = "vcorDbQryView", .match = "WLAN_AD", .times = 1, .count = 0});
  EXPECT_EQ(pm_ubus_roaming_sta_disconnect(kTablet), -1);
  EXPECT_THAT(gateway::blockList().stations, IsEmpty());
}

TEST_F(RoamingStations, DisconnectAnswersWhatFails) {
  sweepFaults([] { return pm_ubus_roaming_sta_disconnect(kTablet); },
              [this](const gateway::testing::SweepRun &run) {
                // The fourth reads the name, which the query has found already; the sixth blocks.
                const bool removed = run.once && (run.failed == 4 || run.failed == 6);
                EXPECT_EQ(run.status, removed ? 0 : -1) << run.failed;
                EXPECT_EQ(store().has<platform::AssociatedDeviceView>(kTabletPath), !removed);
              });
  const std::string asked = "=======strtoMAc======f4:0f:24:10:88:01\n";
  const std::string found = asked + "=======number=======1\n";
  const std::string named = found + "=======tViewName=======IGD.LD1.WLAN1.AD1\n";
  const struct {
    const char *call;
    int32_t status;
    std::string printed;
  } failures[] = {{"vcorDbQryView", -77, asked},
                  {"pm_wlan_list_ad", -77, found + "pm_wlan_list_ad fail=-77\n"},
                  {"vcorDbGetView", 0, named},
                  {"pm_wlan_get_ad", -1, named},
                  {"pm_wlan_del_ad", -77, named},
                  {"pm_wlan_add_blklist", 0, named}};
  for (const auto &failure : failures) {
    SCOPED_TRACE(failure.call);
    restart();
    fail(failure.call, "", -77);
    int32_t status = 1;
    EXPECT_EQ(printedBy([&] { status = pm_ubus_roaming_sta_disconnect(kTablet); }),
              failure.printed);
    EXPECT_EQ(status, failure.status);
    const bool logged = failure.printed == asked;
    EXPECT_EQ(logs().size(), logged ? 2u : 1u);
    if (logged) {
      EXPECT_THAT(logs(),
                  HasLogLine({0, "pm_ubus_roaming_sta_disconnect", "DBVIEW_WLAN_AD", 1566}));
    }
  }
}

TEST_F(RoamingStations, SignalComesFromTheHostTableAndTheRadio) {
  const struct {
    const char *ssid;
    const char *radio;
    const char *value;
    std::string type;
  } cases[] = {{"IGD.LD1.WLAN4", "2.4G", "38", "0"}, {"IGD.LD1.WLAN5", "5G", "12", "1"}};
  for (const auto &expected : cases) {
    association(kTabletPath).setText(platform::AssociatedDeviceView::ssidInstance, expected.ssid);
    StaRssiRecord record = asking("f4:0f:24:10:88:01");
    memset(record.reserved, 0x5a, sizeof record.reserved);
    EXPECT_EQ(printedBy([&] { EXPECT_EQ(pm_ubus_roaming_starssi_get(&record), 0); }),
              "=======strtoMAc======f4:0f:24:10:88:01\nradioType:" + expected.type + "\n");
    EXPECT_STREQ(record.radio, expected.radio);
    EXPECT_STREQ(record.rssi, "-58");
    EXPECT_STREQ(record.radioValue, expected.value);
    EXPECT_THAT(record.reserved, Each(0x5a));
  }
}

TEST_F(RoamingStations, SignalFailsSilentlyForAStationThatIsNotThere) {
  StaRssiRecord record = asking("00:11:32:aa:06:08");
  EXPECT_EQ(pm_ubus_roaming_starssi_get(&record), -1) << "on the wire";
  EXPECT_THAT(logs(), ::testing::SizeIs(1));
  sweepFaults(
      [&] {
        record = asking(kTablet);
        return pm_ubus_roaming_starssi_get(&record);
      },
      [&](const gateway::testing::SweepRun &run) {
        EXPECT_EQ(run.status, -1);
        EXPECT_STREQ(record.radio, "");
      });
  fail("ctSgw_ssend_to_proxy", "WLANRADIOINFO", -77);
  EXPECT_EQ(pm_ubus_roaming_starssi_get(&record), -1);
  EXPECT_THAT(logs(),
              HasLogLine({4, "pm_ubus_roaming_starssi_get",
                          "ctSgw_ssend_to_proxy CTSGW_EVENT_GET_WLANRADIOINFO error!\n", -77}));
}

TEST_F(RoamingStations, SignalIgnoresWhatTheReplyCallsItsStatus) {
  const struct {
    std::vector<uint8_t> payload;
    const char *value;
  } replies[] = {{{}, "0"}, {{7, 1}, "263"}, {{7, 1, 0, 0}, "263"}, {{7, 0, 0, 0, 9}, "7"}};
  for (const auto &reply : replies) {
    fail({.call = "ctSgw_ssend_to_proxy",
          .match = "WLANRADIOINFO",
          .times = 1,
          .replyStatus = -5,
          .replyPayload = reply.payload});
    StaRssiRecord record = asking(kTablet);
    EXPECT_EQ(pm_ubus_roaming_starssi_get(&record), 0);
    EXPECT_STREQ(record.radioValue, reply.value);
  }
}

TEST_F(RoamingStations, SignalTakesAPositiveResultAndATornReplyForSuccess) {
  const boundary::Fault faults[] = {
      {.call = "ctSgw_ssend_to_proxy", .match = "WLANRADIOINFO", .times = 1, .answer = 7},
      {.call = "ctSgw_ssend_to_proxy",
       .match = "WLANRADIOINFO",
       .times = 1,
       .replyStatus = 0,
       .replyPayload = {9, 9, 9, 9},
       .replyLength = uint16_t{3}}};
  for (const boundary::Fault &fault : faults) {
    fail(fault);
    StaRssiRecord record = asking(kTablet);
    EXPECT_EQ(pm_ubus_roaming_starssi_get(&record), 0);
    EXPECT_STREQ(record.rssi, "-58");
    EXPECT_STREQ(record.radioValue, "0");
  }
}

TEST_F(RoamingStations, HostTableIsReadAsFarAsItGoes) {
  const struct {
    int32_t count;
    int32_t status;
  } cases[] = {{0, -1}, {1, 0}, {128, 0}, {129, 0}, {INT32_MAX, 0}, {-1, -1}};
  for (const auto &reported : cases) {
    fail({.call = "ctSgw_wlanGetHostInfo", .match = "", .times = 1, .count = reported.count});
    StaRssiRecord record = asking(kTablet);
    EXPECT_EQ(pm_ubus_roaming_starssi_get(&record), reported.status) << reported.count;
    fail({.call = "ctSgw_wlanGetHostInfo", .match = "", .times = 1, .count = reported.count});
    record = asking("02:00:00:00:00:99");
    EXPECT_EQ(pm_ubus_roaming_starssi_get(&record), -1) << "is in no entry";
  }
}

TEST_F(RoamingStations, TextsThatAreNoMacAskNothing) {
  for (const char *text : {"", "f40f2410880", "f40f2410880g", "f4:0f:24:10:88", "f40f241088011"}) {
    forgetCalls();
    StaRssiRecord record = asking(text);
    EXPECT_EQ(pm_ubus_roaming_starssi_get(&record), -1) << text;
    EXPECT_EQ(pm_ubus_roaming_sta_disconnect(text), -1) << text;
    for (const std::string &call : trace()) EXPECT_THAT(call, ::testing::StartsWith("StrToMAC"));
  }
  EXPECT_THAT(logs(), HasLogLine({4, "pm_ubus_roaming_starssi_get", "Invalid MACAddress\n"}));
  EXPECT_THAT(logs(), HasLogLine({4, "pm_ubus_roaming_sta_disconnect", "Invalid MACAddress\n"}));
}

TEST_F(RoamingStations, CountsAttachedDevicesByMedium) {
  EXPECT_THAT(counted(), ElementsAre(2, 3, 4));
  EXPECT_THAT(logs(), HasLog(5, "Adev num is 1!\n"));
  EXPECT_THAT(logs(), HasLog(5, "Adev num is 9!\n"));

  const uint32_t neither = 2;
  store().row<WlanConfigRecord>("IGD.LD1.WLAN5").setWord(WlanConfigRecord::band, neither);
  EXPECT_THAT(counted(), ElementsAre(2, 3, 0));
  gateway::Station &onTheWire = gateway::stations().all[7];
  onTheWire.linkFlag = 1;
  EXPECT_THAT(counted(), ElementsAre(1, 3, 0)) << "filtered out";
  onTheWire.accessType = 0;
  onTheWire.interfaceName = "ppp0";
  EXPECT_THAT(counted(), ElementsAre(1, 3, 0)) << "neither eth nor wlan";
}

TEST_F(RoamingStations, DevicesThatCannotBePlacedAreNotCounted) {
  fail({.call = "ctSgw_ssend_to_proxy", .match = "Adev8", .replyStatus = -5, .replyLength = 700});
  fail("ctSgw_ssend_to_proxy", "Adev9", -77);
  fail("pm_wlan_get_config", "WLAN1", -77, 1, 1);
  fail("vcorDbQryView", "DBVIEW_WLAN_AD", -77, 7, 1);
  const std::string printed = printedBy([] { EXPECT_THAT(counted(), ElementsAre(0, 2, 3)); });
  EXPECT_EQ(printed, "pm_wlan_get_config fail=-77\n");
  EXPECT_THAT(logs(), HasLogLine({0, "pm_ubus_sta_num_get", "DBVIEW_WLAN_AD", 1566}));
  EXPECT_THAT(logs(),
              HasLogLine({4, "pm_ubus_sta_num_get",
                          "ctSgw_ssend_to_proxy CTSGW_EVENT_QUERY_ADEV_PARAM error!\n", -77}));
  sweepFaults([] {
    StaNumRecord record = {};
    return pm_ubus_sta_num_get(&record);
  });
}

TEST_F(RoamingStations, AssociationsThatAreNotFoundOrReadAreNotCounted) {
  fail({.call = "vcorDbQryView", .match = "WLAN_AD", .times = 1, .count = 0});
  fail({.call = "vcorDbGetView", .match = "WLAN1.AD2", .answer = -77, .workDone = true});
  EXPECT_EQ(printedBy([] { EXPECT_THAT(counted(), ElementsAre(2, 1, 4)); }), "");
  EXPECT_THAT(trace("pm_wlan_get_config"), ::testing::SizeIs(5));
}

TEST_F(RoamingStations, SsidIsAskedForByAPathThatEnds) {
  const platform::Field field = platform::AssociatedDeviceView::ssidInstance;
  memset(association(kTabletPath).data() + field.offset, 's', field.width);
  const std::string asked = "pm_wlan_get_config(" + std::string(31, 's') + ")";
  printedBy([] {
    EXPECT_THAT(counted(), ElementsAre(2, 2, 4));
    StaConfigResult result = {};
    EXPECT_NE(ubus_get_sta_config(0, &result), 0);
  });
  EXPECT_THAT(trace("pm_wlan_get_config"),
              ::testing::Contains(::testing::HasSubstr(asked)).Times(2));
}

TEST_F(RoamingStations, WholeDeviceCountsWhateverTheReplyCallsItsStatus) {
  DeviceRecord device = {};
  gateway::fieldsOf<DeviceRecord>(&device).setText(DeviceRecord::interfaceName, "eth7");
  const auto *bytes = device.bytes;
  // One byte less is a torn record.
  for (const uint32_t size : {device.kSize - 1, device.kSize}) {
    fail({.call = "ctSgw_ssend_to_proxy",
          .match = "Adev1",
          .times = 1,
          .replyStatus = -5,
          .replyPayload = {bytes, bytes + size}});
    EXPECT_THAT(counted(), ElementsAre(size == device.kSize ? 3 : 2, 2, 4));
  }
}

TEST_F(RoamingStations, ListIsCountedAsFarAsItGoes) {
  for (const int32_t reported : {-1, 0, 129, INT32_MAX}) {
    forgetCalls();
    fail({.call = "plib_adev_list_view", .match = "", .times = 1, .count = reported});
    const std::vector<int32_t> all = {2, 3, 4};
    EXPECT_EQ(counted(), reported > 0 ? all : std::vector<int32_t>(3)) << reported;
    EXPECT_EQ(trace("ctSgw_ssend_to_proxy").size(), reported > 0 ? 128u : 0u);
  }
}

TEST_F(RoamingStations, AFailedListLeavesTheRecord) {
  fail("plib_adev_list_view", "", -77);
  EXPECT_THAT(counted(-1), ElementsAre(-7, -7, -7));
  EXPECT_THAT(logs(),
              HasLogLine({4, "pm_ubus_sta_num_get", "plib_adev_list_view inquiry fail\n", -77}));
}

}  // namespace
