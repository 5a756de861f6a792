// What acts on a whole radio: settings, switch, WPS.
#include <cstring>
#include <memory>

#include "platform/wlan.hpp"
#include "pmapi/set_radio.h"
#include "pmapi/wifi_switch.h"
#include "pmapi/wifi_wps.h"
#include "tests/objects/wlan_object_test.hpp"

using namespace platform;

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

using PmUbusRadioSet = WlanObjectTest;
using PmUbusWifiSwitchSet = WlanObjectTest;
using PmUbusWifiWpsSet = WlanObjectTest;

RadioRecord settings(const char *radio, const char *power, const char *channel = "11",
                     int32_t bandwidth = 0) {
  RadioRecord record = {};
  strncpy(record.radio, radio, sizeof record.radio - 1);
  strncpy(record.transmitPower, power, sizeof record.transmitPower - 1);
  strncpy(record.channel, channel, sizeof record.channel - 1);
  record.bandwidth = bandwidth;
  return record;
}

int32_t set(const RadioRecord &record) {
  return static_cast<int32_t>(pm_ubus_radio_set(&record));
}

/// Without a zero anywhere, and exactly of its size, so that a byte read too many is noticed.
template <class Record>
std::unique_ptr<Record> filledRecord() {
  auto record = std::make_unique<Record>();
  memset(record.get(), 'x', sizeof *record);
  return record;
}

TEST_F(PmUbusRadioSet, WritesPowerThenChannelAndWidthOfTheRadio) {
  ssid(5).setWord(WlanConfigRecord::channelMode, 1);
  ssid(5).setWord(WlanConfigRecord::band, 9);
  const gateway::Row power = store().row<WlanTxPowerRecord>("IGD.TxPower2");
  power.setWord(WlanTxPowerRecord::band, 9);
  EXPECT_EQ(set(settings("5G", "60", "149", 0)), 0);
  EXPECT_THAT(trace(),
              ElementsAre("pm_wlan_get_card_max() = 0", "pm_wlan_set_txpower(IGD.TxPower2) = 0",
                          "pm_wlan_set_config(IGD.LD1.WLAN5) = 0"));
  EXPECT_EQ(setting(5, WlanConfigRecord::band), 1u);
  EXPECT_EQ(power.text(WlanTxPowerRecord::txPower), "60");
  EXPECT_EQ(power.word(WlanTxPowerRecord::band), 1u);
  EXPECT_EQ(setting(5, WlanConfigRecord::txPowerLevel), 3u);
  EXPECT_EQ(setting(5, WlanConfigRecord::channel), 149u);
  EXPECT_EQ(setting(5, WlanConfigRecord::channelMode), 0u);
  EXPECT_EQ(setting(5, WlanConfigRecord::bandwidthCode), 2u);
  std::string lines;
  for (const gateway::LogLine &line : logs()) {
    EXPECT_EQ(line.level, 5);
    lines += line.text;
  }
  EXPECT_EQ(lines,
            "now in pm_ubus_radio_set\nradio->radio:5G\nradio->transmitPower:60\n"
            "radio->channel:149\nradio->bandwidth:0\n"
            "net_json_parse_data transmitpower = 3 \r\n"
            "before pm_wlan_get_card_max----------------------------------"
            "after pm_wlan_get_card_max----------------------------------"
            "enter 5G-------------------------------------");
  EXPECT_EQ(set(settings("2.4G", "60")), 0);
  EXPECT_THAT(logs(), HasLog(5, "enter 2.4G-----------------------------------"));
}

TEST_F(PmUbusRadioSet, MapsPowerToLevelsAndWidthsToCodes) {
  for (const auto &[power, level] : {std::pair{"99", 1u},
                                     {"100", 1u},
                                     {"81", 1u},
                                     {"80", 2u},
                                     {"61", 2u},
                                     {"41", 3u},
                                     {"40", 4u},
                                     {"21", 4u},
                                     {"20", 5u},
                                     {"1", 5u}}) {
    EXPECT_EQ(set(settings("2.4G", power)), 0);
    EXPECT_EQ(setting(1, WlanConfigRecord::txPowerLevel), level) << power;
  }
  for (const auto &[width, code] :
       {std::pair{1, 0u}, {2, 1u}, {0, 2u}, {3, 3u}, {-1, UINT32_MAX}}) {
    restart();
    EXPECT_EQ(set(settings("", "50", "auto", width)), 0);
    EXPECT_EQ(setting(1, WlanConfigRecord::bandwidthCode), code);
    EXPECT_EQ(setting(1, WlanConfigRecord::channel), 0u) << "no number";
  }
}

TEST_F(PmUbusRadioSet, RefusesAPowerOutside1To100BeforeAskingThePlatform) {
  for (const auto &[power, number] : {std::pair{"0", "0"},
                                      {"101", "101"},
                                      {"-5", "-5"},
                                      {"full", "0"},
                                      {"", "0"},
                                      {"123456789", "123456789"},
                                      {"99999999999", "2147483647"},
                                      {"-99999999999", "-2147483648"}}) {
    EXPECT_EQ(set(settings("2.4G", power)), -1);
    EXPECT_THAT(logs(), HasLog(4, " tmp error tmp = " + std::string(number) + " \r\n"));
  }
  EXPECT_THAT(trace(), IsEmpty());
}

TEST_F(PmUbusRadioSet, TextsRunOnIntoTheNextFieldButNotOutOfTheRequest) {
  RadioRecord record = settings("2.4G", "60", "50");
  record.radio[4] = 'H';
  EXPECT_EQ(set(record), -1);
  EXPECT_THAT(logs(), HasLog(4, "radio->radio error 2.4GH60 \r\n"));
  record.radio[4] = '\0';
  memset(record.transmitPower, '0', sizeof record.transmitPower);
  EXPECT_EQ(set(record), gateway::kInvalidField) << "a power of 50, in 34 digits";

  const auto filled = filledRecord<RadioRecord>();
  EXPECT_EQ(set(*filled), -1);
  EXPECT_THAT(logs(), HasLog(5, "radio->radio:" + std::string(sizeof *filled, 'x') + "\n"));
}

TEST_F(PmUbusRadioSet, SendsAPowerTextOf9CharactersAsAnInvalidField) {
  EXPECT_EQ(set(settings("2.4G", "000000050")), gateway::kInvalidField);
  EXPECT_EQ(set(settings("2.4G", "00000050")), 0);
}

TEST_F(PmUbusRadioSet, WritesNothingWithoutA5GRadio) {
  store().row<WlanCardRecord>("IGD.LD1.WLANBase1").setWord(WlanCardRecord::cardCount, 1);
  EXPECT_EQ(set(settings("5G", "60")), -7);
  EXPECT_THAT(logs(),
              HasLogLine({4, "pm_ubus_radio_set", "error:there is no 5G info, iRet = -7\n", -7}));
  EXPECT_THAT(trace("pm_wlan_set_txpower"), IsEmpty());
  EXPECT_THAT(trace("pm_wlan_set_config"), IsEmpty());
  EXPECT_EQ(set(settings("2.4G", "60")), 0);
  fail("pm_wlan_get_card_max");
  EXPECT_EQ(set(settings("5G", "60")), 0) << "an unknown number of cards";
}

TEST_F(PmUbusRadioSet, NullIsRefusedBeforeAskingThePlatform) {
  EXPECT_EQ(pm_ubus_radio_set(nullptr), 0xfffffeffu);
  EXPECT_THAT(logs(), HasLogLine({4, "pm_ubus_radio_set", "pm_ubus_radio_set para is null"}));
  EXPECT_THAT(trace(), IsEmpty());
}

TEST_F(PmUbusRadioSet, UnknownRadioIsRefusedAfterTheCardWasRead) {
  EXPECT_EQ(set(settings("6G", "60")), -1);
  EXPECT_THAT(logs(), HasLogLine({4, "pm_ubus_radio_set", "radio->radio error 6G \r\n"}));
  EXPECT_EQ(trace().size(), 1u);
}

TEST_F(PmUbusRadioSet, UnchangedCountsForTheConfigurationButNotForThePower) {
  EXPECT_EQ(set(settings("2.4G", "60")), 0);
  EXPECT_EQ(set(settings("2.4G", "60", "3")), gateway::kNothingChanged);
  EXPECT_THAT(logs(),
              HasLogLine({4, "pm_ubus_radio_set", "call pm_wlan_set_txpower faild,iRet=-9\n", -9}));
  EXPECT_EQ(setting(1, WlanConfigRecord::channel), 11u);
  EXPECT_EQ(set(settings("2.4G", "59")), 0);
  fail("pm_wlan_set_config", "", -77);
  EXPECT_EQ(set(settings("2.4G", "58")), -77);
  EXPECT_THAT(logs(), HasLogLine({4, "pm_ubus_radio_set", "pm_wlan_set_config error=-77\n", -77}));
}

TEST_F(PmUbusRadioSet, ReportsEachFailureButThatOfTheCard) {
  sweepFaults([] { return set(settings("5G", "60")); },
              [](const gateway::testing::SweepRun &run) {
                const bool onlyTheCard = run.failed == 1 && run.once;
                EXPECT_EQ(run.status, onlyTheCard ? 0 : -1);
              });
}

TEST_F(PmUbusWifiSwitchSet, SwitchesEverySsidOfTheRadio) {
  ssid(5).setWord(WlanConfigRecord::band, 9);
  const WifiSwitchRecord off = {"5", 0};
  EXPECT_EQ(pm_ubus_wifi_switch_set(&off), 0u);
  EXPECT_EQ(pm_ubus_wifi_switch_set(&off), 0u) << "nothing changed";
  EXPECT_EQ(setting(5, WlanConfigRecord::band), 1u);
  EXPECT_EQ(setting(5, WlanConfigRecord::radioEnable), 0u);
  EXPECT_EQ(setting(8, WlanConfigRecord::radioEnable), 0u);
  EXPECT_EQ(setting(1, WlanConfigRecord::radioEnable), 1u);
  EXPECT_EQ(setting(5, WlanConfigRecord::ssidEnable), 1u);
  const WifiSwitchRecord odd = {"2.4G", -7};
  EXPECT_EQ(pm_ubus_wifi_switch_set(&odd), 0u);
  EXPECT_EQ(setting(4, WlanConfigRecord::radioEnable), static_cast<uint32_t>(-7));
  EXPECT_EQ(setting(5, WlanConfigRecord::radioEnable), 0u);
  EXPECT_THAT(logs(),
              HasLogLine({5, "pm_ubus_wifi_switch_set", "now in pm_ubus_wifi_switch_set\n"}));
}

TEST_F(PmUbusWifiSwitchSet, RefusesNullUnknownRadiosAndWhatThePlatformRefuses) {
  EXPECT_EQ(pm_ubus_wifi_switch_set(nullptr), 0xfffffeffu);
  EXPECT_THAT(logs(), HasLog(4, "pm_ubus_wifi_switch_set para is null"));
  const WifiSwitchRecord unknown = {"all", 1};
  EXPECT_EQ(pm_ubus_wifi_switch_set(&unknown), 0xfffffeffu);
  EXPECT_THAT(logs(), HasLog(4, "ubuswifiparameter->radio error all \r\n"));
  EXPECT_EQ(pm_ubus_wifi_switch_set(filledRecord<WifiSwitchRecord>().get()), 0xfffffeffu);
  const std::string filled(sizeof(WifiSwitchRecord), 'x');
  EXPECT_THAT(logs(), HasLog(4, "ubuswifiparameter->radio error " + filled + " \r\n"));
  EXPECT_THAT(trace(), IsEmpty());

  fail("pm_wlan_set_config", "", -77);
  const WifiSwitchRecord off = {"2.4G", 0};
  EXPECT_EQ(static_cast<int32_t>(pm_ubus_wifi_switch_set(&off)), -77);
  EXPECT_THAT(logs(), HasLogLine({4, "pm_ubus_wifi_switch_set",
                                  "pm_wlan_get_config=IGD.LD1.WLAN1 fail=-77\n", -77}));
}

TEST_F(PmUbusWifiWpsSet, StartsWpsOnOneRadioOrOnBothInOrder) {
  EXPECT_EQ(pm_ubus_wifi_wps_set("5G"), 0u);
  EXPECT_EQ(pm_ubus_wifi_wps_set("all"), 0u);
  EXPECT_EQ(pm_ubus_wifi_wps_set("all"), 0u) << "started already, the first as well";
  EXPECT_EQ(pm_ubus_wifi_wps_set(""), 0u);
  EXPECT_THAT(trace(), ElementsAre("pm_wlan_set_wps(IGD.LD1.WLAN5.WPS) = 0",
                                   "pm_wlan_set_wps(IGD.LD1.WLAN1.WPS) = 0",
                                   "pm_wlan_set_wps(IGD.LD1.WLAN5.WPS) = -9",
                                   "pm_wlan_set_wps(IGD.LD1.WLAN1.WPS) = -9",
                                   "pm_wlan_set_wps(IGD.LD1.WLAN5.WPS) = -9",
                                   "pm_wlan_set_wps(IGD.LD1.WLAN1.WPS) = -9"));
  EXPECT_THAT(logs(), HasLogLine({5, "pm_ubus_wifi_wps_set", "now in pm_ubus_wifi_wps_set\n"}));
  EXPECT_THAT(logs(), HasLog(5, "szInstIdentity IGD.LD1.WLAN1.WPS \r\n"));
  EXPECT_THAT(logs(), HasLog(5, "szTmpIdentity IGD.LD1.WLAN5.WPS \r\n"));
}

TEST_F(PmUbusWifiWpsSet, KeepsTheFirstRadioStartedWhenTheSecondFails) {
  fail("pm_wlan_set_wps", "WLAN5", -77);
  EXPECT_EQ(static_cast<int32_t>(pm_ubus_wifi_wps_set("a")), -77);
  EXPECT_EQ(store().row<WlanWpsRecord>("IGD.LD1.WLAN1.WPS").word(WlanWpsRecord::start), 1u);
  EXPECT_THAT(logs(), HasLogLine({4, "pm_ubus_wifi_wps_set", "pm_wlan_set_wps error=-77\n", -77}));
}

TEST_F(PmUbusWifiWpsSet, LeavesAnUnknownRadioToThePlatform) {
  EXPECT_EQ(static_cast<int32_t>(pm_ubus_wifi_wps_set("6G")), boundary::kUnknownInstance);
  EXPECT_THAT(logs(), HasLog(4, "ubus_wifi_wps_set->radio error 6G \r\n"));
  EXPECT_THAT(logs(), HasLogLine({4, "pm_ubus_wifi_wps_set", "t_wlan_wps= fail=-2002\n", -2002}));
  EXPECT_EQ(pm_ubus_wifi_wps_set(nullptr), 0xfffffeffu);
  EXPECT_THAT(logs(), HasLog(4, "pm_ubus_wifiParameter_set para is null"));
}

}  // namespace
