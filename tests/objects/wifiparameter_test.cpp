#include "pmapi/wifiparameter.h"

#include <cstring>
#include <memory>

#include "tests/objects/wlan_object_test.hpp"

namespace {

using ::testing::AnyOf;
using ::testing::ElementsAre;
using ::testing::Eq;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

using PmUbusWifiParameterSet = WlanObjectTest;
using PmUbusWifiParameterSetMulti = WlanObjectTest;

constexpr char kFunction[] = "pm_ubus_wifiParameter_set";
constexpr char kBatch[] = "pm_ubus_wifiParameter_set_Multi";

WifiParameterRecord request(int32_t index, const char *securityMode, const char *pwd) {
  WifiParameterRecord record = {"2.4G", index, 1, "Garden", "", 1, "", 20, 1};
  strcpy(record.securityMode, securityMode);
  strcpy(record.pwd, pwd);
  return record;
}

int32_t set(const WifiParameterRecord &record) {
  return static_cast<int32_t>(pm_ubus_wifiParameter_set(&record));
}

TEST_F(PmUbusWifiParameterSet, WritesTheSettingsAndThenTheKey) {
  WifiParameterRecord record = request(6, "WPA2-Personal", "tulips in spring");
  strcpy(record.radio, "5G");
  record.ssidAdvertisementEnabled = 0;
  EXPECT_EQ(set(record), 0);
  EXPECT_EQ(ssid(6).text(WlanConfigRecord::ssid), "Garden");
  EXPECT_EQ(setting(6, WlanConfigRecord::band), 1u);
  EXPECT_EQ(setting(6, WlanConfigRecord::ssidEnable), 1u);
  EXPECT_EQ(setting(6, WlanConfigRecord::maxAssociateNum), 20u);
  EXPECT_EQ(setting(6, WlanConfigRecord::ssidAdvertisementEnabled), 0u);
  EXPECT_EQ(setting(6, WlanConfigRecord::securityMode), 3u);
  EXPECT_EQ(setting(6, WlanConfigRecord::wpa2Encryption), 1u);
  EXPECT_EQ(passphrase(6), "tulips in spring");
  EXPECT_THAT(trace(), ElementsAre("pm_wlan_get_config(IGD.LD1.WLAN6) = 0",
                                   "pm_wlan_set_config(IGD.LD1.WLAN6) = 0",
                                   "pm_wlan_get_psk(IGD.LD1.WLAN6.PSK1) = 0",
                                   "pm_wlan_set_psk(IGD.LD1.WLAN6.PSK1) = 0"));
  const gateway::testing::LogExpectation lines[] = {
      {5, kFunction, "now in function pm_ubus_wifiParameter_set\n"},
      {5, kFunction, "ubuswifiparameter->radio:5G, ubuswifiparameter->encrypt:1\n"},
      {5, kFunction, "ubuswifiparameter->index:6, ubuswifiparameter->enable:1\n"},
      {5, kFunction,
       "ubuswifiparameter->ssid:Garden, ubuswifiparameter->securityMode:WPA2-Personal, "
       "ubuswifiparameter->pwd:tulips in spring\n"},
      {5, kFunction,
       "ubuswifiparameter->maxAssociateNum:20, ubuswifiparameter->ssidAdvertisementEnabled:0\n"},
      {8, kFunction, "get szInstIdentity IGD.LD1.WLAN6 \r\n"},
      {8, kFunction, "tESSID:Garden,tKeyPassphrase:tulips in spring"}};
  for (const auto &line : lines) EXPECT_THAT(logs(), HasLogLine(line));
}

TEST_F(PmUbusWifiParameterSet, TakesTheFirstModeThatTheTextBegins) {
  struct Case {
    const char *text;
    uint32_t mode;
    const char *trace;
  };
  const Case cases[] = {
      {"None", 0, "ENTER securityMode  None\r\n"},
      {"", 0, "ENTER securityMode  None\r\n"},
      {"WEP", 1, "ENTER securityMode  WEP-64\r\n"},
      {"WEP-1", 1, "ENTER securityMode  WEP-128\r\n"},
      {"WPA", 2, "ENTER securityMode WPA-Personal \r\n"},
      {"WPA2-Personal", 3, "ENTER securityMode WPA2-Personal \r\n"},
      {"MIXED-WPA", 6, "ENTER securityMode  MIXED-WPAPSK2\r\n"},
      {"WPA3", 10, "ENTER securityMode  WPA3-SAE\r\n"},
      {"MIXED-WPA2WPA3", 11, "ENTER securityMode  MIXED-WPA2WPA3\r\n"},
      {"WPA2-Personal ", 7, ""},
  };
  for (const Case &given : cases) {
    restart();
    ssid(1).setWord(WlanConfigRecord::securityMode, 7);
    int32_t status = -1;
    EXPECT_EQ(printedBy([&] { status = set(request(1, given.text, "12345")); }), given.trace);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(setting(1, WlanConfigRecord::securityMode), given.mode) << given.text;
    EXPECT_EQ(wepKey(1, 1), given.mode == 1 ? "12345" : "") << given.text;
    const bool writesPassphrase = given.mode != 1 && given.mode != 7;
    EXPECT_EQ(passphrase(1), writesPassphrase ? "12345" : "orchard bicycle lantern") << given.text;
  }
}

TEST_F(PmUbusWifiParameterSet, StoresA128BitKeyWhereTheIndexPoints) {
  EXPECT_EQ(set(request(3, "WEP-128", "thirteenchars")), 0);
  EXPECT_EQ(setting(3, WlanConfigRecord::wepKeyLength), 2u);
  EXPECT_EQ(wepKey(3, 2), "thirteenchars");
  EXPECT_THAT(logs(), HasLogLine({8, kFunction, "tESSID:Garden,tKeyPassphrase:thirteenchars"}));

  const gateway::Row far = store().create<WlanConfigRecord>("IGD.LD1.WLAN1000000000");
  far.setWord(WlanConfigRecord::wepKeyIndex, 0x80000000);
  EXPECT_EQ(set(request(1000000000, "WEP-64", "12345")), boundary::kUnknownInstance);
  EXPECT_THAT(logs(), HasLog(4, "pm_wlan_get_wep=IGD.LD1.WLAN1000000000.WEP-2147 fail=-2002\n"))
      << "31 characters of the key's name";
}

TEST_F(PmUbusWifiParameterSet, MarksTheCipherOfTheModeOnly) {
  struct Case {
    const char *mode;
    int32_t encrypt;
    uint32_t wpa, wpa2, sae;
  };
  for (const Case &given : {Case{"WPA-Personal", 3, 2, 7, 0}, Case{"WPA2-Personal", 2, 7, 0, 0},
                            Case{"MIXED-WPAPSK2", 1, 1, 1, 0}, Case{"WPA3-SAE", 1, 7, 7, 1},
                            Case{"None", 1, 7, 7, 0}}) {
    restart();
    ssid(1).setWord(WlanConfigRecord::wpaEncryption, 7);
    ssid(1).setWord(WlanConfigRecord::wpa2Encryption, 7);
    WifiParameterRecord record = request(1, given.mode, "password");
    record.encrypt = given.encrypt;
    EXPECT_EQ(set(record), 0);
    EXPECT_EQ(setting(1, WlanConfigRecord::wpaEncryption), given.wpa) << given.mode;
    EXPECT_EQ(setting(1, WlanConfigRecord::wpa2Encryption), given.wpa2) << given.mode;
    EXPECT_EQ(setting(1, WlanConfigRecord::saeEnable), given.sae) << given.mode;
    EXPECT_EQ(setting(1, WlanConfigRecord::saeProtection), given.sae) << given.mode;
  }
}

TEST_F(PmUbusWifiParameterSet, UnknownRadioIsLoggedAndCountsAs24G) {
  for (const auto &[radio, band, logged] : {std::tuple{"6G", 0u, true},
                                            {"2.4GHz", 0u, true},
                                            {"", 0u, false},
                                            {"2", 0u, false},
                                            {"5", 1u, false}}) {
    restart();
    WifiParameterRecord record = request(5, "WPA2-Personal", "password");
    strcpy(record.radio, radio);
    EXPECT_EQ(set(record), 0);
    EXPECT_EQ(setting(5, WlanConfigRecord::band), band) << radio;
    const auto line = HasLog(4, "ubuswifiparameter->radio error " + std::string(radio) + " \r\n");
    if (logged) {
      EXPECT_THAT(logs(), line);
    } else {
      EXPECT_THAT(logs(), Not(line));
    }
  }
}

TEST_F(PmUbusWifiParameterSet, SendsOverlongTextsAsInvalidFields) {
  WifiParameterRecord record = request(1, "", "password");
  memset(record.ssid, 's', sizeof record.ssid);
  EXPECT_EQ(set(record), 0) << "32 characters fill the field";
  EXPECT_EQ(ssid(1).text(WlanConfigRecord::ssid), std::string(32, 's'));

  strcpy(record.securityMode, "x");
  EXPECT_EQ(set(record), gateway::kInvalidField) << "33 characters, the next field's included";
  EXPECT_THAT(logs(), HasLogLine({4, kFunction, "pm_wlan_set_config=IGD.LD1.WLAN1 fail=-2004\n",
                                  gateway::kInvalidField}));
}

TEST_F(PmUbusWifiParameterSet, RefusesAKeyOf65CharactersAfterTheConfiguration) {
  WifiParameterRecord record = request(1, "WPA2-Personal", "");
  memset(record.pwd, 'p', sizeof record.pwd);
  record.maxAssociateNum = 0;
  EXPECT_EQ(set(record), 0);
  EXPECT_EQ(passphrase(1), std::string(64, 'p'));

  record.maxAssociateNum = 'p';
  const std::string printed = printedBy([&] { EXPECT_EQ(set(record), -21); });
  EXPECT_THAT(printed, HasSubstr("pm_wlan_set_psk=IGD.LD1.WLAN1.PSK1 fail=-2004\n"));
  EXPECT_EQ(setting(1, WlanConfigRecord::maxAssociateNum), uint32_t{'p'});

  strcpy(record.securityMode, "WEP-64");
  EXPECT_THAT(printedBy([&] { EXPECT_EQ(set(record), -21); }),
              HasSubstr("pm_wlan_set_wep=IGD.LD1.WLAN1.WEP1 fail=-2004\n"));
}

TEST_F(PmUbusWifiParameterSet, ReadsNoTextPastTheEndOfTheRequest) {
  // Exactly a record on the heap, so that a byte too many is noticed.
  const auto record = std::make_unique<WifiParameterRecord>();
  memset(record.get(), 'x', sizeof *record);
  EXPECT_EQ(set(*record), boundary::kUnknownInstance);
  const std::string atTheEnd(sizeof *record - offsetof(WifiParameterRecord, pwd), 'x');
  EXPECT_THAT(logs(), HasLog(5, ::testing::EndsWith("->pwd:" + atTheEnd + "\n")));

  record->index = 1;
  strcpy(record->ssid, "Garden");
  strcpy(record->securityMode, "None");
  EXPECT_THAT(printedBy([&] { EXPECT_EQ(set(*record), -21); }),
              HasSubstr("pm_wlan_set_psk=IGD.LD1.WLAN1.PSK1 fail=-2004\n"));
}

TEST_F(PmUbusWifiParameterSet, SucceedsWhenNothingChanges) {
  EXPECT_EQ(set(request(1, "WPA2-Personal", "password")), 0);
  forgetCalls();
  EXPECT_EQ(set(request(1, "WPA2-Personal", "password")), 0);
  EXPECT_THAT(trace("pm_wlan_set_psk"), ElementsAre("pm_wlan_set_psk(IGD.LD1.WLAN1.PSK1) = -9"));
  EXPECT_EQ(set(request(3, "WEP-64", "12345")), 0);
  forgetCalls();
  EXPECT_EQ(set(request(3, "WEP-64", "12345")), 0);
  EXPECT_THAT(trace("pm_wlan_set_wep"), ElementsAre("pm_wlan_set_wep(IGD.LD1.WLAN3.WEP2) = -9"));
}

TEST_F(PmUbusWifiParameterSet, ReturnsTheCodeOfTheStepThatFails) {
  struct Case {
    const char *call, *mode, *line;
  };
  for (const Case &given :
       {Case{"pm_wlan_get_config", "None", "pm_wlan_get_config fail=-9\n"},
        Case{"pm_wlan_get_psk", "None", "pm_wlan_get_psk=IGD.LD1.WLAN1.PSK1 fail=-9\n"},
        Case{"pm_wlan_get_wep", "WEP", "pm_wlan_get_wep=IGD.LD1.WLAN1.WEP1 fail=-9\n"}}) {
    restart();
    fail(given.call, "", gateway::kNothingChanged);
    EXPECT_EQ(set(request(1, given.mode, "password")), gateway::kNothingChanged) << given.call;
    EXPECT_THAT(logs(), HasLogLine({4, kFunction, given.line, -9}));
  }
  EXPECT_EQ(set(request(9, "None", "")), boundary::kUnknownInstance);
  EXPECT_EQ(pm_ubus_wifiParameter_set(nullptr), 0xfffffeffu);
  EXPECT_THAT(logs(), HasLog(4, "pm_ubus_wifiParameter_set para is null"));
}

TEST_F(PmUbusWifiParameterSet, WritesNothingPastAFailure) {
  for (const char *mode : {"WPA2-Personal", "WEP-64"}) {
    sweepFaults([&] { return set(request(2, mode, "12345")); },
                [&](const gateway::testing::SweepRun &run) {
                  EXPECT_THAT(run.status, AnyOf(Eq(-1), Eq(-21)));
                  const bool configured = run.failed > 2;
                  EXPECT_EQ(ssid(2).text(WlanConfigRecord::ssid) == "Garden", configured);
                  EXPECT_EQ(passphrase(2), "");
                  EXPECT_EQ(wepKey(2, 1), "");
                });
  }
}

TEST_F(PmUbusWifiParameterSetMulti, GoesOnAfterAFailure) {
  const WifiParameterRecord records[] = {request(1, "None", "first"), request(9, "None", "second"),
                                         request(3, "None", "third")};
  EXPECT_EQ(pm_ubus_wifiParameter_set_Multi(records, 3), 0);
  EXPECT_EQ(passphrase(1), "first");
  EXPECT_EQ(passphrase(3), "third");
  EXPECT_THAT(logs(), HasLogLine({5, kBatch,
                                  "enter pm_ubus_wifiParameter_set_Multi function! "
                                  "wifi_i = 3\n "}));
  EXPECT_THAT(logs(), HasLogLine({5, kBatch, "i =2..\n "}));
  EXPECT_THAT(logs(),
              HasLogLine({4, kBatch, "[pm_ubus_wifiParameter_set_Multi] set wifi parameter error\n",
                          boundary::kUnknownInstance}));
}

TEST_F(PmUbusWifiParameterSetMulti, AppliesNothingWithoutRecords) {
  const WifiParameterRecord record = request(1, "None", "first");
  EXPECT_EQ(pm_ubus_wifiParameter_set_Multi(&record, 0), 0);
  EXPECT_EQ(pm_ubus_wifiParameter_set_Multi(&record, -1), 0);
  EXPECT_EQ(pm_ubus_wifiParameter_set_Multi(nullptr, 1), 0);
  EXPECT_THAT(trace(), IsEmpty());
}

}  // namespace
