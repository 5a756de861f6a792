#include "pmapi/wifiinfo.h"

#include <algorithm>
#include <cstring>

#include "platform/wlan.hpp"
#include "tests/objects/wlan_object_test.hpp"

using namespace platform;

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

using PmUbusGetWifiInfo = WlanObjectTest;
using WifiInfoGetters = WlanObjectTest;
using UbusGetConfigPwd = WlanObjectTest;

using TextGetter = int32_t (*)(int32_t, char *);
using NumberGetter = int32_t (*)(int32_t, uint32_t *);

struct NamedTextGetter {
  const char *name;
  TextGetter get;
  const char *call = "pm_wlan_get_config";
};
constexpr NamedTextGetter kTextGetters[] = {
    {"ubus_get_radios_transmitPower", ubus_get_radios_transmitPower, "pm_wlan_get_txpower"},
    {"ubus_get_radios_ssidStandard", ubus_get_radios_ssidStandard},
    {"ubus_get_radios_noiseLevel", ubus_get_radios_noiseLevel, "pm_wlan_get_config_driver"},
    {"ubus_get_radios_Channel", ubus_get_radios_Channel},
    {"ubus_get_config_Radio", ubus_get_config_Radio},
    {"ubus_get_config_Ssid", ubus_get_config_Ssid},
    {"ubus_get_config_SecurityMode", ubus_get_config_SecurityMode},
    {"ubus_get_config_Pwd", ubus_get_config_Pwd},
};

struct NamedNumberGetter {
  const char *name;
  NumberGetter get;
  bool passesStatusOn = false;
  const char *call = "pm_wlan_get_config";
};
constexpr NamedNumberGetter kNumberGetters[] = {
    {"ubus_get_radios_Enable", ubus_get_radios_Enable},
    {"ubus_get_radios_SSIDEnable", ubus_get_radios_SSIDEnable},
    {"ubus_get_radios_interferencePercent", ubus_get_radios_interferencePercent, false,
     "pm_wlan_get_config_driver"},
    {"ubus_get_config_MaxAssociateNum", ubus_get_config_MaxAssociateNum},
    {"ubus_get_config_SsidAdvertisementEnable", ubus_get_config_SsidAdvertisementEnable},
    {"ubus_get_info_bandwidth", ubus_get_info_bandwidth, true},
    {"ubus_get_info_encrypt", ubus_get_info_encrypt, true},
};

/// What a getter writes into its 32 bytes: no terminator, and nothing behind the text.
std::string read(TextGetter get, int32_t index, int32_t expectedStatus = 0) {
  std::string text(32, '#');
  EXPECT_EQ(get(index, text.data()), expectedStatus);
  const size_t length = std::min(text.find('#'), text.size());
  EXPECT_EQ(text.substr(length), std::string(text.size() - length, '#'));
  return text.substr(0, length);
}

uint32_t read(NumberGetter get, int32_t index, int32_t expectedStatus = 0, uint32_t preset = 77) {
  uint32_t number = preset;
  EXPECT_EQ(get(index, &number), expectedStatus);
  return number;
}

TEST_F(PmUbusGetWifiInfo, FillsTheRecordOfAnSsid) {
  WifiInfoRecord info = {};
  info.interferencePercent = 9;
  EXPECT_EQ(pm_ubus_get_wifi_info(4, &info), 0u);
  EXPECT_STREQ(info.radio, "5G");
  EXPECT_EQ(info.enable, 1);
  EXPECT_STREQ(info.transmitPower, "80");
  EXPECT_STREQ(info.standard, "802.11ax");
  EXPECT_STREQ(info.noiseLevel, "-97");
  EXPECT_EQ(info.interferencePercent, 0);
  EXPECT_STREQ(info.channel, "36");
  EXPECT_EQ(info.index, 5);
  EXPECT_STREQ(info.ssid, "Kestrel-Home");
  EXPECT_STREQ(info.securityMode, "MIXED-WPAPSK2");
  EXPECT_STREQ(info.pwd, "orchard bicycle lantern");
  EXPECT_EQ(info.maxAssociateNum, 32);
  EXPECT_EQ(info.ssidAdvertisementEnabled, 1);
  EXPECT_EQ(info.ssidEnable, 1);
  EXPECT_EQ(info.bandwidth, 2);
  EXPECT_EQ(info.encrypt, 3);
  EXPECT_THAT(logs(), HasLogLine({5, "pm_ubus_get_wifi_info", "now in pm_ubus_get_wifi_info\n"}));
}

TEST_F(PmUbusGetWifiInfo, LeavesFieldsOfAnUnknownSsidEmptyAndSucceeds) {
  WifiInfoRecord info = {};
  EXPECT_EQ(pm_ubus_get_wifi_info(9, &info), 0u);
  const WifiInfoRecord empty = {};
  EXPECT_EQ(memcmp(&info, &empty, sizeof info), 0) << "index 9 is SSID 10, whose last digit is 0";
}

TEST_F(PmUbusGetWifiInfo, CutsAPassphraseTo31Characters) {
  store()
      .row<WlanPskRecord>("IGD.LD1.WLAN1.PSK1")
      .setText(WlanPskRecord::passphrase, std::string(64, 'k'));
  WifiInfoRecord info = {};
  EXPECT_EQ(pm_ubus_get_wifi_info(0, &info), 0u);
  EXPECT_EQ(std::string(info.pwd), std::string(31, 'k'));
}

TEST_F(PmUbusGetWifiInfo, SucceedsWhateverFails) {
  sweepFaults(
      [] {
        WifiInfoRecord info = {};
        return static_cast<int32_t>(pm_ubus_get_wifi_info(4, &info));
      },
      [](const gateway::testing::SweepRun &run) { EXPECT_EQ(run.status, 0); });
  EXPECT_EQ(pm_ubus_get_wifi_info(0, nullptr), 0xffffffffu);
  EXPECT_THAT(logs(), HasLog(4, "pm_ubus_get_wifi_info para is null"));
}

gateway::testing::LogExpectation failureLine(const char *getter, int32_t status) {
  const std::string text =
      "[" + std::string(getter) + "] dbgetview fail(" + std::to_string(status) + ")\r\n";
  return {4, getter, text, status};
}

// Nothing changed, or so the platform says of a read: that is a failure like any other.
constexpr int32_t kFailedReads[] = {-77, gateway::kNothingChanged};

TEST_F(WifiInfoGetters, NameTheFailedReadAndWriteNothing) {
  for (const auto &[name, get, call] : kTextGetters) {
    restart();
    EXPECT_EQ(get(0, nullptr), -1);
    EXPECT_THAT(trace(), IsEmpty());
    for (const int32_t status : kFailedReads) {
      fail(call, "", status, 1, 1);
      EXPECT_EQ(read(get, 0, -1), "") << name;
      EXPECT_THAT(logs(), HasLogLine(failureLine(name, status)));
    }
  }
  for (const auto &[name, get, passesStatusOn, call] : kNumberGetters) {
    restart();
    EXPECT_EQ(get(0, nullptr), -1);
    EXPECT_THAT(trace(), IsEmpty());
    for (const int32_t status : kFailedReads) {
      fail(call, "", status, 1, 1);
      EXPECT_EQ(read(get, 0, passesStatusOn ? status : -1), 77u) << name;
      EXPECT_THAT(logs(), HasLogLine(failureLine(name, status)));
    }
  }
}

TEST_F(WifiInfoGetters, StayInsideTheirTextsWhateverThePlatformHolds) {
  memset(ssid(1).data() + WlanConfigRecord::ssid.offset, 'x', WlanConfigRecord::ssid.width);
  EXPECT_EQ(read(ubus_get_config_Ssid, 0), std::string(31, 'x'));
  const gateway::Row power = store().row<WlanTxPowerRecord>("IGD.TxPower1");
  memset(power.data() + WlanTxPowerRecord::txPower.offset, '9', WlanTxPowerRecord::txPower.width);
  EXPECT_EQ(read(ubus_get_radios_transmitPower, 0), std::string(11, '9'));
  const gateway::Row psk = store().row<WlanPskRecord>("IGD.LD1.WLAN1.PSK1");
  memset(psk.data() + WlanPskRecord::passphrase.offset, 'k', WlanPskRecord::passphrase.width);
  EXPECT_EQ(read(ubus_get_config_Pwd, 0), std::string(31, 'k'));
  const gateway::Row wep = store().row<WlanWepRecord>("IGD.LD1.WLAN3.WEP2");
  memset(wep.data() + WlanWepRecord::key.offset, 'w', WlanWepRecord::key.width);
  EXPECT_EQ(read(ubus_get_config_Pwd, 2), std::string(31, 'w'));
}

TEST_F(WifiInfoGetters, ReadPowerOfTheFirstSsidOfARadioOnly) {
  EXPECT_EQ(read(ubus_get_radios_transmitPower, 0), "100");
  EXPECT_EQ(read(ubus_get_radios_transmitPower, 4), "80");
  forgetCalls();
  EXPECT_EQ(read(ubus_get_radios_transmitPower, 1), "");
  EXPECT_THAT(trace(), IsEmpty());
}

TEST_F(WifiInfoGetters, KeepTheGapsOfTheStandards) {
  const char *const texts[] = {
      "", "802.11a",     "802.11b", "802.11bg", "802.11n", "802.11g",  "802.11gn", "802.11bgn",
      "", "802.11bgnax", "",        "",         "",        "802.11ac", "802.11ax", ""};
  for (uint32_t code = 0; code < std::size(texts); ++code) {
    ssid(1).setWord(WlanConfigRecord::standardCode, code);
    EXPECT_EQ(read(ubus_get_radios_ssidStandard, 0), texts[code]) << code;
  }
}

TEST_F(WifiInfoGetters, NameSecurityModesAndDoNotTellWepKeyLengthsApart) {
  const char *const texts[] = {
      "None", "WEP-64", "WPA-Personal", "WPA2-Personal",  "", "", "MIXED-WPAPSK2", "",
      "",     "",       "WPA3-SAE",     "MIXED-WPA2WPA3", ""};
  ssid(1).setWord(WlanConfigRecord::wepKeyLength, 2);
  for (uint32_t code = 0; code < std::size(texts); ++code) {
    ssid(1).setWord(WlanConfigRecord::securityMode, code);
    EXPECT_EQ(read(ubus_get_config_SecurityMode, 0), texts[code]) << code;
  }
}

TEST_F(WifiInfoGetters, MapBandsWidthsAndFlags) {
  const char *const bands[] = {"2.4G", "5G", ""};
  for (uint32_t band = 0; band < std::size(bands); ++band) {
    ssid(1).setWord(WlanConfigRecord::band, band);
    EXPECT_EQ(read(ubus_get_config_Radio, 0), bands[band]);
  }
  const uint32_t widths[] = {1, 2, 0, 3};
  for (uint32_t code = 0; code < std::size(widths); ++code) {
    ssid(1).setWord(WlanConfigRecord::bandwidthCode, code);
    EXPECT_EQ(read(ubus_get_info_bandwidth, 0), widths[code]);
  }
  ssid(1).setWord(WlanConfigRecord::radioEnable, 2);
  EXPECT_EQ(read(ubus_get_radios_Enable, 0), 0u) << "only 1 is on";
  EXPECT_EQ(read(ubus_get_radios_interferencePercent, 0), 31u);
}

TEST_F(WifiInfoGetters, TakeTheCipherOfTheMode) {
  struct Case {
    uint32_t mode, wpa, wpa2, encrypt;
  };
  constexpr uint32_t kUntouched = 77;
  for (const Case &given :
       {Case{0, 1, 1, 0}, Case{1, 1, 1, 0}, Case{2, 0, 1, 2}, Case{3, 0, 1, 1}, Case{3, 1, 2, 3},
        Case{6, 2, 1, 3}, Case{10, 1, 2, 1}, Case{99, 0, 1, 2}, Case{3, 1, 3, kUntouched}}) {
    ssid(1).setWord(WlanConfigRecord::securityMode, given.mode);
    ssid(1).setWord(WlanConfigRecord::wpaEncryption, given.wpa);
    ssid(1).setWord(WlanConfigRecord::wpa2Encryption, given.wpa2);
    EXPECT_EQ(read(ubus_get_info_encrypt, 0), given.encrypt) << given.mode << " " << given.wpa;
  }
}

TEST_F(WifiInfoGetters, TakeTheLastDigitOfTheSsidNumberForTheIndex) {
  for (const auto &[index, digit] :
       {std::pair{0, 1u}, {8, 9u}, {9, 0u}, {10, 1u}, {-1, 0u}, {2147483647, 8u}}) {
    EXPECT_EQ(read(ubus_get_config_Index, index), digit) << index;
  }
  EXPECT_EQ(ubus_get_config_Index(0, nullptr), -1);
  EXPECT_THAT(trace(), IsEmpty());
}

TEST_F(UbusGetConfigPwd, ReadsTheKeyThatTheModeUses) {
  EXPECT_EQ(read(ubus_get_config_Pwd, 2), "meter-2-key13");
  EXPECT_THAT(trace("pm_wlan_get_wep"), ElementsAre("pm_wlan_get_wep(IGD.LD1.WLAN3.WEP2) = 0"));
  EXPECT_EQ(read(ubus_get_config_Pwd, 0), "orchard bicycle lantern");
  EXPECT_EQ(read(ubus_get_config_Pwd, 5), "") << "WPA3";
  ssid(1).setWord(WlanConfigRecord::securityMode, 0);
  EXPECT_EQ(read(ubus_get_config_Pwd, 0), "orchard bicycle lantern") << "an open network";
}

TEST_F(UbusGetConfigPwd, AcceptsUnchangedAndGivesFailuresCodesOfTheirOwn) {
  fail("pm_wlan_get_wep", "", gateway::kNothingChanged, 1, 1);
  EXPECT_EQ(read(ubus_get_config_Pwd, 2), "");
  fail("pm_wlan_get_wep", "", -77);
  read(ubus_get_config_Pwd, 2, 1001);
  EXPECT_THAT(logs(), HasLogLine({4, "ubus_get_config_Pwd",
                                  "pm_wlan_get_wep=IGD.LD1.WLAN3.WEP2 fail=-77\n", -77}));
  const gateway::Row far = store().create<WlanConfigRecord>("IGD.LD1.WLAN1000000000");
  far.setWord(WlanConfigRecord::securityMode, 1);
  far.setWord(WlanConfigRecord::wepKeyIndex, 0x80000000);
  read(ubus_get_config_Pwd, 999999999, 1001);
  EXPECT_THAT(logs(), HasLog(4, "pm_wlan_get_wep=IGD.LD1.WLAN1000000000.WEP-214 fail=-77\n"))
      << "30 characters of the key's name";

  fail("pm_wlan_get_psk", "", gateway::kNothingChanged, 1, 1);
  EXPECT_EQ(read(ubus_get_config_Pwd, 0), "");
  fail("pm_wlan_get_psk", "", -78);
  read(ubus_get_config_Pwd, 0, 1003);
  EXPECT_THAT(logs(), HasLogLine({4, "ubus_get_config_Pwd",
                                  "pm_wlan_set_psk=IGD.LD1.WLAN1.PSK1 fail=-78\n", -78}));
}

}  // namespace
