#include "pmapi/meshinfo.h"

#include <cstring>

#include "gateway/mesh.hpp"
#include "platform/wlan.hpp"
#include "pmapi/mesh_role.h"
#include "pmapi/setmeshroam.h"
#include "tests/support/gateway_test.hpp"

using namespace platform;

namespace {

using gateway::mesh;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr char kTwoDevices[] = R"({"topology information": [
  {"AL MAC": "02:10:18:01:02:03", "Device role": "Controller",
   "Radio Info": [{"BSSINFO": [{
     "BSSID": "02:10:18:01:02:04", "SSID": "Home", "Pass-phrase": "secret", "Security": "WPA2PSK",
     "connected sta info": [{"STA MAC address": "c0:ff:ee:00:00:01"}]}]}],
   "BH Info": [{"Backhaul Medium Type": "eth", "neighbor almac addr": "02:10:18:0a:0b:0c"},
               {"Backhaul Medium Type": "wifi", "neighbor almac addr": "not reported"}],
   "Other Clients Info": [{"Client Address": "00:11:22:33:44:55"}]},
  {"AL MAC": "02:10:18:0a:0b:0c", "Device role": "Agent", "Radio Info": [], "BH Info": [],
   "Other Clients Info": []}]})";

class MeshInfoTest : public GatewayTest {
 protected:
  MeshInfoTest() {
    expectNoLeaks();
    setUpMesh();
    beforeEachRun([this] { setUpMesh(); });
  }

  void setUpMesh() {
    mesh().state = gateway::MapdState::kUp;
    mesh().topology = kTwoDevices;
    const gateway::Row settings = store().create<EasyMeshView>("IGD");
    settings.setWord(EasyMeshView::roamingEnable, 1);
    settings.setWord(EasyMeshView::meshRole, 3);
  }

  uint32_t setting(const platform::Field &field) {
    return store().row<EasyMeshView>("IGD").word(field);
  }

  std::vector<std::string> linesOf(const std::string &function) {
    std::vector<std::string> lines;
    for (const gateway::LogLine &line : logs()) {
      if (line.function == function) {
        lines.push_back(std::to_string(line.level) + " " + line.text);
        EXPECT_THAT(line.tag, ::testing::AnyOf("object_nexmud_meshinfo_pmapi.c",
                                               "object_nexumd_mesh_role_pmapi.c",
                                               "object_nexumd_setmeshroam_pmapi.c"));
      }
    }
    return lines;
  }

  /// What remains when there is no topology to report.
  static void expectNoMesh(const MeshInfoRecord &info) {
    EXPECT_STREQ(info.meshRole, "");
    EXPECT_STREQ(info.meshAlmac, "");
    EXPECT_EQ(info.meshStatus, 0);
    EXPECT_STREQ(info.bhType, "");
    EXPECT_STREQ(info.bhSecurity, "");
    EXPECT_EQ(info.staTotal, 0u);
  }
};

using PmUbusGetMeshinfo = MeshInfoTest;
using EasyMeshGetters = MeshInfoTest;
using EasyMeshSetters = MeshInfoTest;

TEST_F(PmUbusGetMeshinfo, ReportsTheFirstDeviceAndItsFirstBackhaulLink) {
  MeshInfoRecord info{};
  ASSERT_EQ(pm_ubus_get_meshinfo(&info), 0);
  EXPECT_STREQ(info.meshRole, "Controller");
  EXPECT_STREQ(info.meshAlmac, "02:10:18:01:02:03");
  EXPECT_EQ(info.roamingEnable, 1);
  EXPECT_EQ(info.meshStatus, 1);
  EXPECT_STREQ(info.bhType, "eth");
  EXPECT_STREQ(info.bhalmac, "02:10:18:0a:0b:0c");
  EXPECT_STREQ(info.bhSsid, "Home");
  EXPECT_STREQ(info.bhPassPhrase, "secret");
  EXPECT_STREQ(info.bhSecurity, "WPA2PSK");
  EXPECT_STREQ(info.reserved1, "");
  EXPECT_STREQ(info.reserved2, "");
  EXPECT_EQ(info.staTotal, 2u);
  EXPECT_THAT(
      linesOf("pm_ubus_get_meshinfo"),
      ElementsAre("5 enter pm_ubus_get_meshinfo\n ", "5 meshtopology[1].mode = Agent, len = 5\n",
                  "5 p_ubus_meshinfo->meshRole=Controller, "
                  "p_ubus_meshinfo->meshAlmac=02:10:18:01:02:03\n",
                  "5 p_ubus_meshinfo->roamingEnable=1, p_ubus_meshinfo->meshStatus=1, \n",
                  "7 p_ubus_meshinfo->bhType=eth, p_ubus_meshinfo->bhalmac=02:10:18:0a:0b:0c, \n",
                  "5 after pm_ubus_get_meshinfo\n "));
}

TEST_F(PmUbusGetMeshinfo, IsInNoMeshAloneOrBesideADeviceWithoutARole) {
  for (const char *second : {"", R"(, null)", R"(, {"AL MAC": "x", "Device role": ""})"}) {
    mesh().topology = R"({"topology information": [{"AL MAC": "0123456789012345678901234567890123",
                          "Device role": "Controller or so"})" +
                      std::string(second) + "]}";
    // The role's copy may reach into the AL MAC, which must come out whole in spite of it.
    MeshInfoRecord info;
    std::memset(&info, 0xff, sizeof info);
    ASSERT_EQ(pm_ubus_get_meshinfo(&info), 0) << second;
    EXPECT_EQ(info.meshStatus, 0) << second;
    EXPECT_STREQ(info.meshRole, "Controller");
    EXPECT_STREQ(info.meshAlmac, "0123456789012345678901234567890");
    EXPECT_STREQ(info.bhType, "");
    EXPECT_STREQ(info.reserved2, "");
    EXPECT_EQ(info.roamingEnable, 1);
  }
}

TEST_F(PmUbusGetMeshinfo, AnswersWithoutATopology) {
  const struct {
    gateway::MapdState state;
    const char *topology;
    int32_t status;
  } cases[] = {
      {gateway::MapdState::kDown, kTwoDevices, -1},
      {gateway::MapdState::kFailing, kTwoDevices, -1},
      {gateway::MapdState::kTimingOut, kTwoDevices, -2},
      {gateway::MapdState::kUp, "{\"topology information\": [{\"AL MAC\": ", -1},
  };
  for (const auto &c : cases) {
    SCOPED_TRACE(c.status);
    forgetCalls();
    mesh().state = c.state;
    mesh().topology = c.topology;
    MeshInfoRecord info{};
    EXPECT_EQ(pm_ubus_get_meshinfo(&info), 0);
    expectNoMesh(info);
    EXPECT_EQ(info.roamingEnable, 1);
    const std::string line =
        "pm_nexumi_map_get_mesh_topology_backhaulbss fail iRet =" + std::to_string(c.status) +
        "\n ";
    EXPECT_THAT(logs(), HasLogLine({4, "pm_ubus_get_meshinfo", line, c.status}));
  }
}

TEST_F(PmUbusGetMeshinfo, ReportsWhatATopologyHeldBeforeItBrokeOff) {
  mesh().topology = R"({"topology information": [
      {"AL MAC": "02:10:18:01:02:03", "Device role": "Controller"}, {"AL MAC": 7}]})";
  MeshInfoRecord info{};
  EXPECT_EQ(pm_ubus_get_meshinfo(&info), 0);
  EXPECT_STREQ(info.meshRole, "Controller");
  EXPECT_STREQ(info.meshAlmac, "02:10:18:01:02:03");
}

TEST_F(PmUbusGetMeshinfo, TakesAWantOfMemoryForAFailedTopology) {
  fail("calloc");
  MeshInfoRecord info{};
  EXPECT_EQ(pm_ubus_get_meshinfo(&info), 0);
  expectNoMesh(info);
  EXPECT_EQ(info.roamingEnable, 1);
  EXPECT_THAT(trace("mapd_interface_ctrl_open"), IsEmpty());
  EXPECT_THAT(logs(),
              HasLogLine({4, "pm_ubus_get_meshinfo",
                          "pm_nexumi_map_get_mesh_topology_backhaulbss fail iRet =-1\n ", -1}));
}

TEST_F(PmUbusGetMeshinfo, AnswersWhateverCallFails) {
  MeshInfoRecord info{};
  const uint32_t calls = sweepFaults(
      [&] {
        info = {};
        return pm_ubus_get_meshinfo(&info);
      },
      [&](const auto &run) {
        EXPECT_EQ(run.status, 0);
        const bool topologyFailed = run.failed <= 3;
        if (topologyFailed) expectNoMesh(info);
        EXPECT_STREQ(info.bhSsid, topologyFailed ? "" : "Home");
        EXPECT_EQ(info.roamingEnable, topologyFailed && run.once ? 1 : -1);
      });
  EXPECT_EQ(calls, 4u);
}

TEST_F(PmUbusGetMeshinfo, RefusesANullRecord) {
  EXPECT_EQ(pm_ubus_get_meshinfo(nullptr), -1);
  EXPECT_THAT(trace(), IsEmpty());
  EXPECT_THAT(logs(), HasLog(4, "pm_ubus_get_meshinfo para is null"));
}

TEST_F(EasyMeshGetters, LogEveryStepAndReturnTheStoredWord) {
  const struct {
    const char *name;
    int32_t (*getter)();
    const char *reader;
    const char *value;
  } cases[] = {{"ubus_getmeshRole", ubus_getmeshRole, "VCORGET_INT32", "3"},
               {"ubus_getroamingEnable", ubus_getroamingEnable, "VCORGET_BOOL", "1"}};
  for (const auto &c : cases) {
    const std::string name = c.name;
    forgetCalls();
    EXPECT_EQ(c.getter(), std::stoi(c.value)) << name;
    EXPECT_THAT(trace(), ElementsAre("vcorDbGetView(DBVIEW_EASYMESH IGD) = 0"));
    const std::vector<std::string> steps = {"5 now in " + name + "\n",
                                            "5 now in VIEW_INIT\n",
                                            "5 after VIEW_INIT\n",
                                            "5 now in vcorDbGetView\n",
                                            "5 after vcorDbGetView\n",
                                            "5 now in " + std::string(c.reader) + "\n",
                                            "5 after " + std::string(c.reader) + "\n",
                                            "5 sy:" + std::string(c.value) + "\n"};
    EXPECT_EQ(linesOf(name), steps);

    forgetCalls();
    fail("vcorDbGetView", "DBVIEW_EASYMESH", -7, 1, 1);
    EXPECT_EQ(c.getter(), -1) << name;
    EXPECT_THAT(logs(), HasLogLine({4, name, "[" + name + "] dbgetview fail(-7)\r\n", -7}));
    EXPECT_THAT(linesOf(name), ElementsAre(steps[0], steps[1], steps[2], steps[3], steps[4],
                                           "4 [" + name + "] dbgetview fail(-7)\r\n"));
  }
}

uint32_t setRole(const int32_t *role) {
  static_assert(sizeof(MeshRoleRecord) == sizeof *role);
  return pm_ubus_meshrole_set(reinterpret_cast<const MeshRoleRecord *>(role));
}

uint32_t setRoaming(const int32_t *enable) {
  static_assert(sizeof(MeshRoamRecord) == sizeof *enable);
  return pm_ubus_set_meshroam(reinterpret_cast<const MeshRoamRecord *>(enable));
}

const struct Setter {
  std::string name;
  uint32_t (*set)(const int32_t *);
  std::string logged;
  platform::Word field, other;
} kSetters[] = {
    {"pm_ubus_meshrole_set", setRole, "meshrole->meshRole:", EasyMeshView::meshRole,
     EasyMeshView::roamingEnable},
    {"pm_ubus_set_meshroam", setRoaming,
     "p_ubus_meshroam->meshRoamingEnable:", EasyMeshView::roamingEnable, EasyMeshView::meshRole},
};

TEST_F(EasyMeshSetters, ChangeTheirOwnFieldAlone) {
  for (const Setter &c : kSetters) {
    SCOPED_TRACE(c.name);
    setUpMesh();
    const uint32_t otherBefore = setting(c.other);
    for (const int32_t value : {0, 2, -5}) {
      forgetCalls();
      EXPECT_EQ(c.set(&value), 0u);
      EXPECT_EQ(setting(c.field), static_cast<uint32_t>(value));
      EXPECT_EQ(setting(c.other), otherBefore);
      EXPECT_THAT(linesOf(c.name), ElementsAre("5 now in " + c.name + "\n",
                                               "5 " + c.logged + std::to_string(value) + "\n"));
    }
  }
}

TEST_F(EasyMeshSetters, PassOnThePlatformsStatus) {
  const int32_t value = 1;
  for (const Setter &c : kSetters) {
    for (const int32_t status : {-9, 5}) {
      SCOPED_TRACE(c.name);
      forgetCalls();
      fail("pm_wlan_set_easymesh", "", status, 1, 1);
      EXPECT_EQ(c.set(&value), static_cast<uint32_t>(status));
      EXPECT_THAT(
          logs(),
          HasLogLine({4, c.name,
                      "call pm_wlan_set_easymesh faild,ret=" + std::to_string(status) + "\n",
                      status}));
    }
    EXPECT_EQ(sweepFaults([&] { return static_cast<int32_t>(c.set(&value)); },
                          [](const auto &run) { EXPECT_EQ(run.status, -1); }),
              1u);
  }
}

TEST_F(EasyMeshSetters, RefuseANullRecord) {
  for (const Setter &c : kSetters) {
    EXPECT_EQ(c.set(nullptr), 0xFFFFFEFFu) << c.name;
    EXPECT_THAT(logs(), HasLogLine({4, c.name, c.name + " para is null"}));
  }
  EXPECT_THAT(trace(), IsEmpty());
}

}  // namespace
