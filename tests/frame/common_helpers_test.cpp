#include "pmapi/helpers.h"

#include <cstring>
#include <string>

#include "platform/attached_devices.hpp"
#include "platform/wlan.hpp"
#include "tests/support/gateway_test.hpp"

using namespace platform;

namespace gateway {
namespace {

constexpr uint8_t kMac[6] = {0x00, 0x1a, 0x2b, 0x3c, 0x4d, 0x5e};

TEST(MacTexts, AreWrittenOnlyWhenTheirTerminatorFits) {
  const struct {
    int32_t (*print)(const uint8_t *, char *, uint32_t);
    uint32_t needed;
    const char *text;
  } cases[] = {{MACToStr2, 18, "00:1a:2b:3c:4d:5e"},
               {MacToStr, 13, "001A2B3C4D5E"},
               {MacToString, 13, "001a2b3c4d5e"}};
  for (const auto &one : cases) {
    char text[24] = "untouched";
    EXPECT_EQ(one.print(kMac, text, one.needed - 1), 0);
    EXPECT_STREQ(text, "untouched");
    EXPECT_EQ(one.print(nullptr, text, sizeof text), 0);
    EXPECT_EQ(one.print(kMac, nullptr, sizeof text), 0);
    EXPECT_EQ(one.print(kMac, text, one.needed), 1);
    EXPECT_STREQ(text, one.text);
  }
}

TEST(HexCharToVal, KnowsBothCasesAndNothingBeside) {
  const std::string digits = "0123456789abcdefABCDEF";
  for (int character = 0; character < 256; ++character) {
    const auto digit = static_cast<char>(character);
    const size_t place = character == 0 ? std::string::npos : digits.find(digit);
    const uint32_t value = place == std::string::npos ? UINT32_MAX
                           : place > 15               ? static_cast<uint32_t>(place) - 6
                                                      : static_cast<uint32_t>(place);
    EXPECT_EQ(HexCharToVal(digit), value) << character;
  }
}

TEST(TextHelpers, ConvertInPlace) {
  int32_t number = 7;
  EXPECT_EQ(StrToInt("1234.500", &number), 1);
  EXPECT_EQ(number, 1234);
  EXPECT_EQ(StrToInt("none", &number), 1);
  EXPECT_EQ(number, 0);

  char text[] = "aa:bB:c\xe4:";
  EXPECT_EQ(ToUpperCase(text), 9);
  EXPECT_STREQ(text, "AA:BB:C\xe4:");
  del_char(text, ':');
  EXPECT_STREQ(text, "AABBC\xe4");
}

TEST(IsJsonObjOrArray, MatchesSubstringsWithTheirCase) {
  EXPECT_EQ(IsJsonObjOrArray("xif6_ap_config_2"), 1);
  EXPECT_EQ(IsJsonObjOrArray("IF5_ap_config"), 1);
  EXPECT_EQ(IsJsonObjOrArray("IF5_token"), 0);
  EXPECT_EQ(IsJsonObjOrArray("if5_ap_config"), 0);
}

class CommonHelpersTest : public GatewayTest {};

TEST_F(CommonHelpersTest, FileSizeSeeksToTheEnd) {
  expectNoLeaks();
  loadProfile(R"({"files": {"/userconfig/a": ["12345"], "/userconfig/empty": []}})");
  EXPECT_EQ(file_size("/userconfig/a"), 6);
  EXPECT_EQ(file_size("/userconfig/empty"), 0);
  EXPECT_EQ(file_size("/userconfig/none"), -1);
}

TEST_F(CommonHelpersTest, UpTimeIsTheSystems) {
  loadProfile(R"({"clock": {"uptime": 86400}})");
  EXPECT_EQ(GetUpTime(), 86400);
}

TEST_F(CommonHelpersTest, AssociationIsReadIntoAClearedView) {
  loadProfile(R"({"views": {"DBVIEW_WLAN_AD": {"IGD.LD1.WLAN1.AD1": {"rssi": -48}}}})");
  alignas(8) AssociatedDeviceView view;
  std::memset(&view, 0x5a, sizeof view);
  EXPECT_EQ(wlan_get_ad_db_q("IGD.LD1.WLAN1.AD1", &view), 0);
  EXPECT_EQ(fieldsOf<AssociatedDeviceView>(&view).word(AssociatedDeviceView::rssi), -48u);
  EXPECT_EQ(view.bytes[600], 0);
  EXPECT_NE(wlan_get_ad_db_q("IGD.LD1.WLAN1.AD2", &view), 0);
}

TEST_F(CommonHelpersTest, AssociationWithoutABufferIsThePlatformsToRefuse) {
  expectComplaint("no view");
  alignas(8) AssociatedDeviceView view;
  std::memset(&view, 0x5a, sizeof view);
  EXPECT_NE(wlan_get_ad("IGD.LD1.WLAN1.AD1", &view), 0);
  EXPECT_EQ(view.bytes[0], 0x5a);
}

TEST_F(CommonHelpersTest, AssociationsAreAskedForByThirtyOneCharacters) {
  const std::string path(31, 'p');
  store().create<AssociatedDeviceView>(path);
  alignas(8) AssociatedDeviceView view;
  EXPECT_EQ(wlan_get_ad_db_q((path + "more").c_str(), &view), 0);
  expectComplaint("(DBVIEW_WLAN_AD " + path + "): no view");
  EXPECT_NE(wlan_get_ad((path + "more").c_str(), &view), 0);
}

TEST_F(CommonHelpersTest, DeviceFilterDropsOnlyUnlinkedDevicesOfKnownMedia) {
  const struct {
    uint32_t accessType;
    const char *name;
    uint32_t linkFlag;
    uint32_t linkState;
    int32_t counts;
  } cases[] = {{1, "eth0", 1, 5, 0},          {1, "br-wlan1", 1, 5, 0},
               {2, "eth0", 1, 5, 1},          {1, "usb0", 1, 5, 1},
               {1, "eth0", 0, 5, 1},          {1, "eth0", 1, 0, 1},
               {1, "eth0", 1, UINT32_MAX, 1}, {1, "0123456789abceth", 1, 5, 0}};
  for (const auto &one : cases) {
    alignas(8) DeviceRecord record = {};
    const Row row = fieldsOf<DeviceRecord>(&record);
    row.setWord(DeviceRecord::accessType, one.accessType);
    row.setWord(DeviceRecord::linkFlag, one.linkFlag);
    row.setWord(DeviceRecord::linkState, one.linkState);
    std::memcpy(record.bytes + DeviceRecord::interfaceName.offset, one.name, std::strlen(one.name));
    EXPECT_EQ(check_dev_valid(&record), one.counts) << one.name;
    EXPECT_EQ(net_json_check_dev_valid(&record), one.counts) << one.name;
  }
}

}  // namespace
}  // namespace gateway
