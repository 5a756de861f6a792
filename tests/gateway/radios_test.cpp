#include "gateway/radios.hpp"

#include <cstring>
#include <nlohmann/json.hpp>

#include "boundary/status.hpp"
#include "platform/config_database.h"
#include "platform/wlan.h"
#include "platform/wlan.hpp"
#include "tests/support/gateway_test.hpp"

using namespace platform;

namespace gateway {
namespace {

/// A record with one marked word.
template <class Record>
Record asking(const platform::Field &field, uint32_t value) {
  Record record = {};
  const uint16_t mark = 1;
  std::memcpy(record.bytes + field.offset - platform::kMarkDistance, &mark, sizeof mark);
  fieldsOf<Record>(&record).setWord(field, value);
  return record;
}

class WlanTest : public GatewayTest {
 protected:
  WlanTest() { loadExample("dual_band.json"); }

  uint32_t setting(const char *ssid, const platform::Field &field) {
    WlanConfigRecord record = {};
    EXPECT_EQ(pm_wlan_get_config(ssid, &record), kOk);
    return fieldsOf<WlanConfigRecord>(&record).word(field);
  }

  uint32_t pmf(const char *ssid) {
    alignas(4)
        uint32_t view[WlanConfigView::kSize / 4] = {WlanConfigView::kSize, PLATFORM_BLOCK_MARKER};
    EXPECT_EQ(vcorDbGetView(DBVIEW_WLAN_CONF, ssid, view), kOk);
    return fieldsOf<WlanConfigView>(view).word(WlanConfigView::pmf);
  }
};

TEST_F(WlanTest, SettingsOfARadioShowInAllItsSsidsAndOthersDoNot) {
  WlanConfigRecord channel = asking<WlanConfigRecord>(WlanConfigRecord::channel, 149);
  EXPECT_EQ(pm_wlan_set_config("IGD.LD1.WLAN5", &channel), kOk);
  EXPECT_EQ(pm_wlan_set_config("IGD.LD1.WLAN8", &channel), kNothingChanged);
  EXPECT_EQ(setting("IGD.LD1.WLAN8", WlanConfigRecord::channel), 149u);
  EXPECT_EQ(setting("IGD.LD1.WLAN4", WlanConfigRecord::channel), 6u);

  WlanConfigRecord limit = asking<WlanConfigRecord>(WlanConfigRecord::maxAssociateNum, 3);
  EXPECT_EQ(pm_wlan_set_config("IGD.LD1.WLAN5", &limit), kOk);
  EXPECT_EQ(setting("IGD.LD1.WLAN8", WlanConfigRecord::maxAssociateNum), 32u);
}

TEST_F(WlanTest, RestartsAreCountedPerRadioAndLeaveNoSetting) {
  WlanConfigRecord restart = asking<WlanConfigRecord>(WlanConfigRecord::restart, 1);
  EXPECT_EQ(pm_wlan_set_config("IGD.LD1.WLAN5", &restart), kOk);
  EXPECT_EQ(pm_wlan_set_config("IGD.LD1.WLAN5", &restart), kOk);
  EXPECT_EQ(pm_wlan_set_config("IGD.LD1.WLAN1", &restart), kOk);
  EXPECT_EQ(setting("IGD.LD1.WLAN5", WlanConfigRecord::restart), 0u);
  EXPECT_THAT(radios().restarts.of, ::testing::ElementsAre(1, 2));

  const Json saved = gateway().save();
  gateway().load(saved);
  EXPECT_THAT(radios().restarts.of, ::testing::ElementsAre(1, 2));
}

TEST_F(WlanTest, ProtectedManagementFramesReadBackThroughTheView) {
  EXPECT_EQ(pm_wlan_set_pmf("IGD.LD1.WLAN5", 2), kOk);
  EXPECT_EQ(pmf("IGD.LD1.WLAN5"), 2u);
  EXPECT_EQ(pmf("IGD.LD1.WLAN7"), 2u);
  EXPECT_EQ(pmf("IGD.LD1.WLAN1"), 0u);
  EXPECT_EQ(pm_wlan_set_pmf("IGD.LD1.WLAN9", 2), kUnknownInstance);
}

TEST_F(WlanTest, WhatThePlatformDoesNotKnowIsRefused) {
  WlanWepRecord key = {};
  EXPECT_EQ(pm_wlan_get_wep("IGD.LD1.WLAN1.WEP0", &key), kUnknownInstance);
  WlanWpsRecord start = asking<WlanWpsRecord>(WlanWpsRecord::start, 1);
  EXPECT_EQ(pm_wlan_set_wps("", &start), kUnknownInstance);
  WlanConfigRecord used = asking<WlanConfigRecord>(WlanConfigRecord::channel, 1);
  EXPECT_EQ(pm_wlan_get_config("IGD.LD1.WLAN1", &used), kBadRequest);
  EXPECT_EQ(pm_wlan_get_config("IGD.LD1.WLAN1", nullptr), kNullArgument);
  expectComplaint("the record was not cleared");
  expectComplaint("no record");
}

}  // namespace
}  // namespace gateway
