// The WAN connections, the Wi-Fi card count and the version as the platform gives them.
#include <cstring>

#include "boundary/status.hpp"
#include "gateway/wan.hpp"
#include "platform/attached_devices.hpp"
#include "platform/device.h"
#include "platform/device.hpp"
#include "platform/firewall.hpp"
#include "platform/limits.hpp"
#include "platform/ports.hpp"
#include "platform/proxy.h"
#include "platform/sampling.hpp"
#include "platform/timers.hpp"
#include "platform/traffic_rules.hpp"
#include "platform/wan.hpp"
#include "platform/wlan.hpp"
#include "tests/support/gateway_test.hpp"

using namespace platform;

namespace gateway {
namespace {

using ::testing::ElementsAre;
using ::testing::StrEq;

class UplinkTest : public GatewayTest {
 protected:
  UplinkTest() { loadExample("home_router.json"); }

  int32_t list(const char *parent, uint32_t deviceType) {
    connections = {PLATFORM_BLOCK_MARKER, 3, 0, paths, work1.data(), work2.data(), work3.data()};
    return pm_e8_wanc_list_all_wanc_by_wand(parent, deviceType, &connections);
  }

  char paths[3][PLATFORM_INSTANCE_SIZE] = {};
  std::vector<uint8_t> work1 = std::vector<uint8_t>(WAN_CONNECTION_WORK_AREA_1_SIZE);
  std::vector<uint8_t> work2 = std::vector<uint8_t>(WAN_CONNECTION_WORK_AREA_2_SIZE);
  std::vector<uint8_t> work3 = std::vector<uint8_t>(WAN_CONNECTION_WORK_AREA_3_SIZE);
  WanConnectionList connections = {};
};

TEST_F(UplinkTest, ConnectionsOfTheDeviceTypeAreListedInOrder) {
  WanDeviceTypeRecord type = {};
  EXPECT_EQ(pm_e8_wanc_get_current_wandtype(&type), kOk);
  wan().connections[1].deviceType = 9;
  EXPECT_EQ(
      list("IGD", fieldsOf<WanDeviceTypeRecord>(&type).word(WanDeviceTypeRecord::wanDeviceType)),
      kOk);
  EXPECT_EQ(connections.dwCount, 2u);
  EXPECT_THAT(paths,
              ElementsAre(StrEq("IGD.WD1.WCD2.WCIP1"), StrEq("IGD.WD1.WCD1.WCPPP1"), StrEq("")));
  EXPECT_EQ(list("IGD", 9), kOk);
  EXPECT_EQ(connections.dwCount, 1u);
}

TEST_F(UplinkTest, RouteOfAConnectionIsItsRecord) {
  RouteInfoRecord record = {};
  EXPECT_EQ(plib_ifs_get_routeif_info("IGD.WD1.WCD1.WCPPP1", &record), kOk);
  const Row route = fieldsOf<RouteInfoRecord>(&record);
  EXPECT_EQ(route.word(RouteInfoRecord::addressMode), 3u);
  EXPECT_EQ(route.word(RouteInfoRecord::ipv4Address), 0xcb00712du);
  EXPECT_EQ(plib_ifs_get_routeif_info("IGD.WD1.WCD9", &record), kUnknownInstance);
}

TEST_F(UplinkTest, ModeIsSwitchedWithTheBlockThatHoldsTheOldOne) {
  UpModeBlock block = {};
  UpModeInfo old = {};
  EXPECT_EQ(pm_upmode_info_get(&old), kOk);
  const UpModeInfo wlan = {UP_MODE_WLAN, old.port};
  expectComplaint("the block does not begin with the mode that stands");
  EXPECT_EQ(pm_upmode_info_set(&old, &wlan, &block), kBadRequest);
  std::memcpy(&block, &old, sizeof old);
  EXPECT_EQ(pm_upmode_info_set(&old, &wlan, &block), kOk);
  EXPECT_EQ(wan().uplink.mode, uint32_t{UP_MODE_WLAN});
}

TEST_F(UplinkTest, CardCountIsAnsweredForTheRadioBase) {
  CardCountRequest request = {};
  fieldsOf<CardCountRequest>(&request).setText(CardCountRequest::instance, "IGD.LD1.WLANBase1");
  uint32_t count = 0;
  uint16_t length = sizeof count;
  const auto ask = [&](uint32_t message) {
    return pm_send_msg_2mm(MANAGER_MODULE_WLAN, MANAGER_MESSAGE_CLASS, message, &request,
                           sizeof request, 0, &count, &length);
  };
  EXPECT_EQ(ask(WLAN_MGR_GET_CARD_MAX), kOk);
  EXPECT_EQ(count, 2u);
  EXPECT_EQ(length, 4);
  expectComplaint("pm_send_msg_2mm(wlan_mgr 0x1 IGD.LD1.WLANBase1): this message is not there yet");
  EXPECT_EQ(ask(1), kNotThereYet);
  expectComplaint("a reply of 4 bytes does not fit 2");
  length = 2;
  EXPECT_EQ(ask(WLAN_MGR_GET_CARD_MAX), kReplyTooLong);

  int32_t code = -1;
  EXPECT_EQ(pm_get_version_config_type_int(&code), kOk);
  EXPECT_EQ(code, 2);
}

}  // namespace
}  // namespace gateway
