#include "gateway/mesh.hpp"

#include <cstring>

#include "platform/multiap.h"
#include "platform/wlan.hpp"
#include "tests/support/gateway_test.hpp"

using namespace platform;

namespace gateway {
namespace {

using ::testing::ElementsAre;

class MeshTest : public GatewayTest {
 protected:
  MeshTest() { loadProfile(R"({"mesh": {"topology": {"topology information": []}}})"); }

  int32_t ask(int32_t room) {
    std::memset(buffer, '#', sizeof buffer);
    length = room;
    void *handle = mapd_interface_ctrl_open("/tmp/mapd_ctrl");
    const int32_t status = mapd_interface_get_topology(handle, buffer, &length, "/tmp/dump.txt");
    mapd_interface_ctrl_close(handle);
    return status;
  }

  char buffer[64];
  int32_t length = 0;
};

TEST_F(MeshTest, TopologyIsDumpedIntoTheBufferAndTheFile) {
  expectNoLeaks();
  EXPECT_EQ(ask(64), MAPD_OK);
  EXPECT_STREQ(buffer, R"({"topology information":[]})");
  EXPECT_EQ(length, 27);
  EXPECT_EQ(files().read("/tmp/dump.txt"), buffer);
  EXPECT_THAT(trace(), ElementsAre("mapd_interface_ctrl_open(/tmp/mapd_ctrl) = ok",
                                   "mapd_interface_get_topology(/tmp/dump.txt) = 0",
                                   "mapd_interface_ctrl_close()"));
}

TEST_F(MeshTest, DumpThatFillsTheBufferIsCutAndNotTerminated) {
  EXPECT_EQ(ask(10), MAPD_OK);
  EXPECT_EQ(std::string(buffer, 12), "{\"topology##");
  EXPECT_EQ(length, 10);
}

TEST_F(MeshTest, DaemonCanBeDownFailOrTimeOut) {
  mesh().state = MapdState::kDown;
  EXPECT_EQ(mapd_interface_ctrl_open("/tmp/mapd_ctrl"), nullptr);
  mesh().state = MapdState::kFailing;
  EXPECT_EQ(ask(64), MAPD_COMMAND_FAILED);
  mesh().state = MapdState::kTimingOut;
  EXPECT_EQ(ask(64), MAPD_TIME_OUT);
  mesh().state = MapdState::kUp;
  fail("mapd_interface_get_topology", "", MAPD_TIME_OUT);
  EXPECT_EQ(ask(64), MAPD_TIME_OUT);
  EXPECT_EQ(buffer[0], '#');
  EXPECT_EQ(mapd_interface_ctrl_open("/tmp/other"), nullptr);
  expectComplaint("no handle");
  mapd_interface_ctrl_close(nullptr);
}

TEST_F(MeshTest, SettingsGoThroughToTheView) {
  loadProfile(R"({"views": {"DBVIEW_EASYMESH": {"IGD": {"meshRole": 1, "roamingEnable": 1}}}})");
  WlanEasyMeshRecord record = {};
  const uint16_t marked = 1;
  std::memcpy(record.bytes + WlanEasyMeshRecord::meshRole.offset - platform::kMarkDistance, &marked,
              sizeof marked);
  fieldsOf<WlanEasyMeshRecord>(&record).setWord(WlanEasyMeshRecord::meshRole, 2);
  EXPECT_EQ(pm_wlan_set_easymesh(&record), 0);
  const Row view = store().row<EasyMeshView>("IGD");
  EXPECT_EQ(view.word(EasyMeshView::meshRole), 2u);
  EXPECT_EQ(view.word(EasyMeshView::roamingEnable), 1u);
}

}  // namespace
}  // namespace gateway
