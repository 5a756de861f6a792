#include "pmapi/meshtopology.h"

#include <cjson/cJSON.h>

#include <cctype>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <nlohmann/json.hpp>

#include "gateway/mesh.hpp"
#include "tests/support/gateway_test.hpp"

namespace {

using gateway::Json;
using gateway::mesh;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

using Pointer = Json::json_pointer;

constexpr size_t kDumpSize = 8192;

/// cJSON's blocks that nobody gave back, and the one that it will not get.
struct {
  int32_t live = 0;
  int32_t given = 0;
  int32_t refused = 0; /**< counts from 1; 0: none */
} cjsonBlocks;

void *giveBlock(size_t size) {
  if (++cjsonBlocks.given == cjsonBlocks.refused) return nullptr;
  ++cjsonBlocks.live;
  return std::malloc(size);
}

void takeBlock(void *block) {
  if (block != nullptr) --cjsonBlocks.live;
  std::free(block);
}

class MeshTopologyTest : public GatewayTest {
 protected:
  MeshTopologyTest() : record_(std::make_unique<MeshTopologyRecord>()) {
    expectNoLeaks();
    cjsonBlocks = {};
    cJSON_Hooks counting = {giveBlock, takeBlock};
    cJSON_InitHooks(&counting);
  }

  ~MeshTopologyTest() override { cJSON_InitHooks(nullptr); }

  void TearDown() override {
    EXPECT_EQ(cjsonBlocks.live, 0) << "parts of a parsed tree were not given back";
    GatewayTest::TearDown();
  }

  MeshDeviceSlot &slot(size_t i) { return record_->devices[i]; }

  int32_t walk(const std::string &dump) {
    *record_ = {};
    forgetCalls();
    return pm_get_dumpbuf_info(dump.c_str(), nullptr, record_.get());
  }
  int32_t walk(const Json &dump) { return walk(dump.dump()); }

  int32_t fetch(const std::string &dump) {
    mesh().state = gateway::MapdState::kUp;
    mesh().topology = dump;
    *record_ = {};
    forgetCalls();
    return pm_ubus_get_meshtopology(record_.get());
  }

  /// The walk's lines of this level, each checked to bear its tag, its entry's name and no code.
  std::vector<std::string> walkLines(int32_t level) {
    std::vector<std::string> lines;
    for (const gateway::LogLine &line : logs()) {
      if (line.function != "pm_get_dumpbuf_info" || line.level != level) continue;
      EXPECT_EQ(line.tag, "object_nexumd_meshtopology_pmapi.c");
      EXPECT_EQ(line.code, 0);
      lines.push_back(line.text);
    }
    return lines;
  }

  std::unique_ptr<MeshTopologyRecord> record_;
};

using PmGetDumpbufInfo = MeshTopologyTest;
using PmUbusGetMeshtopology = MeshTopologyTest;

Json stations(size_t count) {
  Json list = Json::array();
  for (size_t i = 0; i < count; ++i) {
    list.push_back({{"STA MAC address", "c0:ff:ee:00:00:" + std::to_string(10 + i)}});
  }
  return list;
}

Json bss(const std::string &ssid, size_t stationCount) {
  return {{"BSSID", "a0:00:00:00:00:01"},
          {"SSID", ssid},
          {"Pass-phrase", ssid + " secret"},
          {"Security", "WPA2PSK"},
          {"connected sta info", stations(stationCount)}};
}

Json radio(const std::vector<Json> &bssList) {
  return {{"BSSINFO", bssList}};
}

Json device(const std::string &alMac, const std::vector<Json> &radios) {
  return {{"AL MAC", alMac},
          {"Device role", "Agent"},
          {"Radio Info", radios},
          {"BH Info", Json::array()},
          {"Other Clients Info", Json::array()}};
}

Json topology(const std::vector<Json> &devices) {
  return {{"topology information", devices}};
}

/// One of everything.
Json smallest() {
  Json dump = topology({device("02:00:00:00:00:01", {radio({bss("Home", 1)})})});
  Json &only = dump["topology information"][0];
  only["BH Info"].push_back(
      {{"Backhaul Medium Type", "wifi"}, {"neighbor almac addr", "02:00:00:00:00:09"}});
  only["Other Clients Info"].push_back({{"Client Address", "00:11:22:33:44:55"}});
  return dump;
}

// As the daemon writes it: members that nobody reads, indented.
constexpr char kHomeDump[] = R"({
  "topology information": [{
    "AL MAC": "02:10:18:01:02:03",
    "Distance from controller": 0,
    "Device role": "Controller",
    "Radio Info": [{
      "channel": 6,
      "BSSINFO": [{
        "BSSID": "02:10:18:01:02:04",
        "SSID": "Family Home Network 2.4G",
        "Security": "WPA2PSK",
        "Pass-phrase": "correct horse battery staple, 40 letters",
        "connected sta info": [
          {"STA MAC address": "c0:ff:ee:00:00:01", "medium": "2.4G"},
          {"STA MAC address": "c0:ff:ee:00:00:02", "medium": "2.4G"}]
      }, {
        "BSSID": "02:10:18:01:02:05", "SSID": "Guests", "connected sta info": []
      }]
    }, {
      "channel": 44,
      "BSSINFO": [{
        "BSSID": "02:10:18:01:02:06",
        "SSID": "Home 5G",
        "connected sta info": [{"STA MAC address": "c0:ff:ee:00:00:03"}]
      }]
    }],
    "BH Info": [],
    "Other Clients Info": [{"Client Address": "00:11:22:33:44:55"},
                           {"Client Address": "00:11:22:33:44:66"}]
  }, {
    "AL MAC": "02:10:18:0a:0b:0c",
    "Device role": "Agent",
    "Radio Info": [{"BSSINFO": [{
        "BSSID": "02:10:18:0a:0b:0d", "SSID": "Extender",
        "connected sta info": [{"STA MAC address": "c0:ff:ee:00:00:04"}]}]}],
    "BH Info": [{"neighbor almac addr": "02:10:18:01:02:03", "Backhaul Medium Type": "Wi-Fi 5G"}],
    "Other Clients Info": []
  }]
})";

TEST_F(PmUbusGetMeshtopology, FillsASlotPerDevice) {
  ASSERT_EQ(fetch(kHomeDump), 0);

  EXPECT_EQ(slot(0).deviceNum, 2u);
  EXPECT_STREQ(slot(0).meshRole, "Controller");
  EXPECT_STREQ(slot(0).alMac, "02:10:18:01:02:03");
  EXPECT_EQ(slot(0).bhNum, 0u);
  ASSERT_EQ(slot(0).radioA.bssNum, 2u);
  EXPECT_STREQ(slot(0).radioA.bss[0].bssid, "02:10:18:01:02:04");
  EXPECT_STREQ(slot(0).radioA.bss[0].ssid, "Family Home Netwo");
  ASSERT_EQ(slot(0).radioA.bss[0].staNum, 2u);
  EXPECT_STREQ(slot(0).radioA.bss[0].staMac[1], "c0:ff:ee:00:00:02");
  EXPECT_STREQ(slot(0).radioA.bss[1].ssid, "Guests");
  EXPECT_EQ(slot(0).radioA.bss[1].staNum, 0u);
  ASSERT_EQ(slot(0).radioB.bssNum, 1u);
  EXPECT_STREQ(slot(0).radioB.bss[0].ssid, "Home 5G");
  EXPECT_STREQ(slot(0).radioB.bss[0].staMac[0], "c0:ff:ee:00:00:03");
  EXPECT_EQ(slot(0).otherClientNum, 2u);
  EXPECT_STREQ(slot(0).otherClientMac[1], "00:11:22:33:44:66");
  EXPECT_EQ(slot(0).staTotal, 5u);

  EXPECT_EQ(slot(1).deviceNum, 2u);
  EXPECT_STREQ(slot(1).meshRole, "Agent");
  ASSERT_EQ(slot(1).bhNum, 1u);
  EXPECT_STREQ(slot(1).bhInfo[0].bhType, "Wi-Fi 5G");
  EXPECT_STREQ(slot(1).bhInfo[0].neighborAlMac, "02:10:18:01:02:03");
  EXPECT_STREQ(slot(1).bhInfo[0].ssid, "Family Home Network 2.4G");
  EXPECT_STREQ(slot(1).bhInfo[0].passPhrase, "correct horse battery staple, 4");
  EXPECT_STREQ(slot(1).bhInfo[0].security, "WPA2PSK");
  EXPECT_EQ(slot(1).radioB.bssNum, 0u);
  EXPECT_EQ(slot(1).staTotal, 1u);
  EXPECT_EQ(slot(2).deviceNum, 0u);

  EXPECT_THAT(trace(), ElementsAre("mapd_interface_ctrl_open(/tmp/mapd_ctrl) = ok",
                                   "mapd_interface_get_topology(/tmp/dump.txt) = 0",
                                   ::testing::StartsWith("mapd_interface_ctrl_close()")));
  EXPECT_THAT(logs(),
              HasLogLine({5, "pm_ubus_get_meshtopology", "now in pm_ubus_get_meshtopology\n"}));
  EXPECT_THAT(logs(), HasLogLine({4, "pm_ubus_get_meshtopology",
                                  "buf: " + std::string(kHomeDump) +
                                      " --------------------------------\r\n"}));
  EXPECT_THAT(walkLines(4), IsEmpty());
  EXPECT_THAT(
      walkLines(5),
      ElementsAre("now in pm_get_dumpbuf_info\n", "topoinfo_array_size = 2 !\n",
                  "\n*****radio_array_size=2!!*****\n", "\n*****radio_array_size=1!!*****\n"));
}

TEST_F(PmUbusGetMeshtopology, CountsAsManyBssPerDeviceAsTheFirstOneHas) {
  const Json first =
      device("02:00:00:00:00:01", {radio({bss("a", 1)}), radio({bss("b", 2), bss("c", 0)})});
  Json second = device("02:00:00:00:00:02",
                       {radio({bss("c", 4), bss("d", 8)}), radio({bss("e", 3), bss("f", 5)})});
  second["Other Clients Info"].push_back({{"Client Address", "00:11:22:33:44:55"}});
  ASSERT_EQ(fetch(topology({first, second}).dump()), 0);
  EXPECT_EQ(slot(0).staTotal, 3u);
  EXPECT_EQ(slot(1).staTotal, 4u + 3 + 5 + 1);

  ASSERT_EQ(fetch(topology({first, nullptr}).dump()), 0);
  EXPECT_EQ(slot(1).deviceNum, 2u);
  EXPECT_EQ(slot(1).staTotal, 0u);
}

TEST_F(PmUbusGetMeshtopology, CutsADumpThatFillsItsBufferAtTheLastByte) {
  const std::string dump = smallest().dump();
  const auto padded = [&](size_t size) {
    return dump.substr(0, dump.size() - 1) + std::string(size - dump.size(), ' ') + "}";
  };
  EXPECT_EQ(fetch(padded(kDumpSize - 1)), 0);
  EXPECT_STREQ(slot(0).alMac, "02:00:00:00:00:01");

  for (const std::string &full : {padded(kDumpSize), padded(kDumpSize + 100)}) {
    EXPECT_EQ(fetch(full), -1);
    EXPECT_THAT(logs(), HasLog(4, "buf: " + full.substr(0, kDumpSize - 1) +
                                      " --------------------------------\r\n"));
    EXPECT_THAT(logs(), HasLogLine({4, "pm_ubus_get_meshtopology",
                                    "pm_get_dumpbuf_info failed!! iRet:-1\n", -1}));
    EXPECT_EQ(slot(0).deviceNum, 0u);
  }
}

TEST_F(PmUbusGetMeshtopology, AnswersWithTheFetchsResultAndLeavesTheRecord) {
  const struct {
    gateway::MapdState state;
    int32_t status;
    const char *printed;
  } cases[] = {
      {gateway::MapdState::kDown, -1, "open /tmp/mapd_ctrl fail!\n"},
      {gateway::MapdState::kFailing, -1, "Command Failed\n"},
      {gateway::MapdState::kTimingOut, -2, "Command Time Out\n"},
      {gateway::MapdState::kUp, 7, ""},
  };
  for (const auto &c : cases) {
    SCOPED_TRACE(c.printed);
    forgetCalls();
    if (c.status == 7) fail("mapd_interface_get_topology", "", c.status);
    mesh().state = c.state;
    const std::string printed =
        printedBy([&] { EXPECT_EQ(pm_ubus_get_meshtopology(record_.get()), c.status); });
    EXPECT_EQ(printed, c.printed);
    EXPECT_THAT(logs(), HasLogLine({4, "pm_ubus_get_meshtopology",
                                    "buf:  --------------------------------\r\n"}));
    EXPECT_THAT(logs(),
                HasLogLine({4, "pm_ubus_get_meshtopology",
                            "MeshGetTopology failed!!! iRet:" + std::to_string(c.status) + "\n",
                            c.status}));
    EXPECT_EQ(slot(0).deviceNum, 0u);
  }
}

TEST_F(PmUbusGetMeshtopology, SurvivesEveryFailingCall) {
  beforeEachRun([&] {
    mesh().state = gateway::MapdState::kUp;
    mesh().topology = smallest().dump();
    *record_ = {};
  });
  const uint32_t calls = sweepFaults([&] { return pm_ubus_get_meshtopology(record_.get()); },
                                     [&](const auto &run) {
                                       EXPECT_EQ(run.status, -1);
                                       EXPECT_EQ(slot(0).deviceNum, 0u);
                                     });
  EXPECT_EQ(calls, 2u);
}

TEST_F(PmUbusGetMeshtopology, RefusesANullRecord) {
  EXPECT_EQ(pm_ubus_get_meshtopology(nullptr), -1);
  EXPECT_EQ(pm_get_dumpbuf_info("{}", nullptr, nullptr), -1);
  EXPECT_THAT(trace(), IsEmpty());
  EXPECT_THAT(logs(), HasLog(4, "pm_ubus_get_meshtopology para is null"));
  EXPECT_THAT(logs(), HasLog(4, "pm_get_dumpbuf_info para is null"));
}

TEST_F(PmUbusGetMeshtopology, KeepsWithinARecordThatWasNotZeroed) {
  mesh().state = gateway::MapdState::kUp;
  mesh().topology = R"({"topology information": []})";
  std::memset(record_.get(), 0xff, sizeof *record_);
  EXPECT_EQ(pm_ubus_get_meshtopology(record_.get()), 0);
}

TEST_F(PmGetDumpbufInfo, LeavesTheRecordWhenThereIsNoDevice) {
  for (const char *dump : {R"({"topology information": []})", R"({"topology information": null})",
                           R"({"topology information": "none"})"}) {
    std::memset(record_.get(), 0xa5, sizeof *record_);
    EXPECT_EQ(pm_get_dumpbuf_info(dump, nullptr, record_.get()), 0) << dump;
    const std::vector<uint8_t> untouched(sizeof *record_, 0xa5);
    EXPECT_EQ(std::memcmp(record_.get(), untouched.data(), untouched.size()), 0) << dump;
  }
  EXPECT_THAT(walkLines(5), ::testing::Contains("topoinfo_array_size = 0 !\n").Times(3));
}

TEST_F(PmGetDumpbufInfo, RefusesATornDump) {
  const std::string dump = smallest().dump();
  for (size_t length = 0; length < dump.size(); ++length) {
    ASSERT_EQ(walk(dump.substr(0, length)), -1) << length;
    ASSERT_THAT(walkLines(4), ElementsAre("TopologyInformation is NULL !\n"));
  }
  for (const char *other : {"[]", "7", "\"topology information\"", "{\"topology\":[]}"}) {
    EXPECT_EQ(walk(std::string(other)), -1) << other;
  }
  EXPECT_EQ(pm_get_dumpbuf_info(nullptr, nullptr, record_.get()), -1);
}

/// What the walk says of a member that is missing, or of another type than a text's.
struct MemberCase {
  const char *place;
  int32_t status;
  const char *line;
};

constexpr char kDevice[] = "/topology information/0";

constexpr MemberCase kTexts[] = {
    {"/AL MAC", -1, "meshAlmac parse failed!!\n"},
    {"/Device role", -1, "meshRole parse failed!!\n"},
    {"/Radio Info/0/BSSINFO/0/BSSID", -1, "bssid parse failed!!\n"},
    {"/Radio Info/0/BSSINFO/0/SSID", -1, "ssid parse failed!!\n"},
    {"/Radio Info/0/BSSINFO/0/connected sta info/0/STA MAC address", 0,
     "macAddress parse failed!!\n"},
    {"/BH Info/0/Backhaul Medium Type", 0, "bhType parse failed!!\n"},
    {"/BH Info/0/neighbor almac addr", 0, "bhalmac parse failed!!\n"},
    {"/Other Clients Info/0/Client Address", 0, "clients_macAddrss Parse failed!!"},
};

constexpr MemberCase kLists[] = {
    {"/Radio Info/0/BSSINFO", -1, "bssinfo parse failed!!\n"},
    {"/Radio Info", 0, "radio parse failed!!\n"},
    {"/Radio Info/0/BSSINFO/0/connected sta info", 0, "staDevices parse failed!!\n"},
    {"/BH Info", 0, "BH Info parse failed!!\n"},
    {"/Other Clients Info", 0, "BH Info parse failed!!\n"},
};

Json without(const std::string &place) {
  Json dump = smallest();
  const Pointer pointer(kDevice + place);
  dump.at(pointer.parent_pointer()).erase(pointer.back());
  return dump;
}

Json with(const std::string &place, const Json &value) {
  Json dump = smallest();
  dump.at(Pointer(kDevice + place)) = value;
  return dump;
}

TEST_F(PmGetDumpbufInfo, LogsAMissingMemberAndGoesOnWhereItCan) {
  std::vector<MemberCase> all(std::begin(kTexts), std::end(kTexts));
  all.insert(all.end(), std::begin(kLists), std::end(kLists));
  for (const MemberCase &c : all) {
    SCOPED_TRACE(c.place);
    EXPECT_EQ(walk(without(c.place)), c.status);
    EXPECT_THAT(walkLines(4), ElementsAre(c.line));
    EXPECT_EQ(slot(0).deviceNum, 1u);
    // What comes last shows whether the walk went on.
    const bool reachesClients = c.status == 0 && c.place != kLists[4].place;
    EXPECT_EQ(slot(0).otherClientNum, reachesClients ? 1u : 0u);
  }
}

TEST_F(PmGetDumpbufInfo, TakesAMemberThatIsNoTextForMissing) {
  for (const MemberCase &c : kTexts) {
    for (const Json &other :
         {Json(7), Json(nullptr), Json(true), Json::array({"text"}), Json{{"AL MAC", "text"}}}) {
      SCOPED_TRACE(c.place + (" = " + other.dump()));
      EXPECT_EQ(walk(with(c.place, other)), c.status);
      EXPECT_THAT(walkLines(4), ElementsAre(c.line));
    }
  }
}

TEST_F(PmGetDumpbufInfo, FindsNothingInAListThatIsNone) {
  for (const MemberCase &c : kLists) {
    for (const Json &other : {Json(7), Json(nullptr), Json("text"), Json::object()}) {
      SCOPED_TRACE(c.place + (" = " + other.dump()));
      EXPECT_EQ(walk(with(c.place, other)), 0);
      EXPECT_THAT(walkLines(4), IsEmpty());
    }
  }
}

TEST_F(PmGetDumpbufInfo, TakesAnElementThatIsNoObjectForAnEmptyOne) {
  const struct {
    const char *place;
    int32_t status;
    std::vector<std::string> lines;
  } cases[] = {
      {"", -1, {"meshAlmac parse failed!!\n"}},
      {"/Radio Info/0", -1, {"bssinfo parse failed!!\n"}},
      {"/Radio Info/0/BSSINFO/0", -1, {"bssid parse failed!!\n"}},
      {"/Radio Info/0/BSSINFO/0/connected sta info/0", 0, {"macAddress parse failed!!\n"}},
      {"/BH Info/0", 0, {"bhType parse failed!!\n", "bhalmac parse failed!!\n"}},
      {"/Other Clients Info/0", 0, {"clients_macAddrss Parse failed!!"}},
  };
  for (const auto &c : cases) {
    for (const Json &other : {Json(7), Json("text"), Json::array({1, "AL MAC"})}) {
      SCOPED_TRACE(c.place + (" = " + other.dump()));
      EXPECT_EQ(walk(with(c.place, other)), c.status);
      EXPECT_EQ(walkLines(4), c.lines);
    }
  }
}

TEST_F(PmGetDumpbufInfo, NullElementsAndEntriesWithoutTextKeepTheirPosition) {
  Json dump = smallest();
  const std::string radios = std::string(kDevice) + "/Radio Info";
  const Json client = dump.at(Pointer(std::string(kDevice) + "/Other Clients Info/0"));
  const auto putNullBefore = [&](const std::string &place) {
    Json &list = dump.at(Pointer(place));
    list.insert(list.begin(), nullptr);
  };
  putNullBefore(radios + "/0/BSSINFO/0/connected sta info");
  putNullBefore(radios + "/0/BSSINFO");
  putNullBefore(radios);
  putNullBefore(std::string(kDevice) + "/Other Clients Info");
  putNullBefore("/topology information");

  ASSERT_EQ(walk(dump), 0);
  EXPECT_EQ(slot(0).deviceNum, 2u);
  EXPECT_STREQ(slot(0).alMac, "");
  const MeshDeviceSlot &second = slot(1);
  EXPECT_EQ(second.radioA.bssNum, 0u);
  ASSERT_EQ(second.radioB.bssNum, 2u);
  EXPECT_STREQ(second.radioB.bss[0].bssid, "");
  const MeshBssEntry &entry = second.radioB.bss[1];
  EXPECT_STREQ(entry.ssid, "Home");
  EXPECT_EQ(entry.staNum, 2u);
  EXPECT_STREQ(entry.staMac[0], "");
  EXPECT_STREQ(entry.staMac[1], "c0:ff:ee:00:00:10");
  EXPECT_EQ(second.otherClientNum, 2u);
  EXPECT_STREQ(second.otherClientMac[1], "00:11:22:33:44:55");
  // The mesh's very first BSS is not there to name the network.
  EXPECT_STREQ(second.bhInfo[0].ssid, "");
  EXPECT_THAT(walkLines(4),
              ElementsAre("macAddress parse failed!!\n", "clients_macAddrss Parse failed!!"));
}

TEST_F(PmGetDumpbufInfo, BackhaulEntriesLackWhatTheFirstBssLacks) {
  Json dump = without("/Radio Info/0/BSSINFO/0/Pass-phrase");
  dump.at(Pointer(std::string(kDevice) + "/Radio Info/0/BSSINFO/0/Security")) = 4;
  ASSERT_EQ(walk(dump), 0);
  EXPECT_STREQ(slot(0).bhInfo[0].ssid, "Home");
  EXPECT_STREQ(slot(0).bhInfo[0].passPhrase, "");
  EXPECT_STREQ(slot(0).bhInfo[0].security, "");

  // A link that lacks one of its own texts keeps the other, and the network's.
  ASSERT_EQ(walk(without("/BH Info/0/Backhaul Medium Type")), 0);
  EXPECT_STREQ(slot(0).bhInfo[0].bhType, "");
  EXPECT_STREQ(slot(0).bhInfo[0].neighborAlMac, "02:00:00:00:00:09");
  EXPECT_STREQ(slot(0).bhInfo[0].passPhrase, "Home secret");
}

TEST_F(PmGetDumpbufInfo, TakesTheFirstMemberOfANameInAnyCase) {
  const auto oneDevice = [](const std::string &members) {
    return R"({"TOPOLOGY information": [{)" + members + R"(, "DEVICE ROLE": "Agent"}]})";
  };
  ASSERT_EQ(walk(oneDevice(R"("al mac": "first", "AL MAC": "second")")), 0);
  EXPECT_STREQ(slot(0).alMac, "first");
  ASSERT_EQ(walk(oneDevice(R"("": 1, "AL": 2, "AL MAC ": 3, "aL mAC": "fourth")")), 0);
  EXPECT_STREQ(slot(0).alMac, "fourth");
  EXPECT_STREQ(slot(0).meshRole, "Agent");
  EXPECT_EQ(walk(oneDevice(R"("Al Mac": 1, "AL MAC": "second")")), -1);
}

/// The same with the case of all names turned, each behind two others, one of which begins like it.
Json disguised(const Json &value) {
  if (!value.is_structured()) return value;
  Json other = value.is_array() ? Json::array() : Json::object();
  for (const auto &[name, member] : value.items()) {
    if (value.is_array()) {
      other.push_back(disguised(member));
      continue;
    }
    std::string turned = name;
    for (char &letter : turned) {
      letter =
          static_cast<char>(std::islower(letter) ? std::toupper(letter) : std::tolower(letter));
    }
    other[""] = 7;
    other[turned.substr(0, 1)] = "no member";
    other[turned] = disguised(member);
  }
  return other;
}

TEST_F(PmGetDumpbufInfo, FindsEveryMemberInAnyCaseAmongOthers) {
  ASSERT_EQ(walk(smallest()), 0);
  const auto plain = std::make_unique<MeshTopologyRecord>(*record_);
  ASSERT_EQ(walk(disguised(smallest())), 0);
  EXPECT_EQ(std::memcmp(record_.get(), plain.get(), sizeof *plain), 0);
}

TEST_F(PmGetDumpbufInfo, CutsTextsAtTheirWidth) {
  const std::string text(300, 'x');
  Json dump = smallest();
  for (const MemberCase &c : kTexts) dump.at(Pointer(kDevice + std::string(c.place))) = text;
  ASSERT_EQ(walk(dump), 0);
  const MeshBssEntry &entry = slot(0).radioA.bss[0];
  EXPECT_EQ(slot(0).meshRole, text.substr(0, 10));
  EXPECT_EQ(slot(0).alMac, text.substr(0, 31));
  EXPECT_EQ(entry.bssid, text.substr(0, 17));
  EXPECT_EQ(entry.ssid, text.substr(0, 17));
  EXPECT_EQ(entry.staMac[0], text.substr(0, 17));
  EXPECT_EQ(slot(0).bhInfo[0].bhType, text.substr(0, 31));
  EXPECT_EQ(slot(0).bhInfo[0].neighborAlMac, text.substr(0, 31));
  EXPECT_EQ(slot(0).bhInfo[0].ssid, text.substr(0, 31));
  EXPECT_EQ(slot(0).otherClientMac[0], text.substr(0, 17));
}

TEST_F(PmGetDumpbufInfo, ClampsEveryCountToItsArray) {
  constexpr size_t kTooMany = 40;
  Json crowded =
      device("02:00:00:00:00:01", {radio(std::vector<Json>(kTooMany, bss("Home", kTooMany))),
                                   radio(std::vector<Json>(kTooMany, bss("Five", 1)))});
  const Json link = {{"Backhaul Medium Type", "wifi"}, {"neighbor almac addr", "next"}};
  crowded["BH Info"] = std::vector<Json>(kTooMany, link);
  crowded["Other Clients Info"] = std::vector<Json>(kTooMany, Json{{"Client Address", "other"}});
  std::vector<Json> devices(kTooMany, device("02:00:00:00:00:02", {}));
  devices[31] = crowded;
  devices[32] = nullptr;
  // Nothing beyond the arrays is read, so what it lacks does not matter.
  devices[33] = Json::object();

  ASSERT_EQ(walk(topology(devices)), 0);
  EXPECT_THAT(walkLines(5), ::testing::Contains("topoinfo_array_size = 40 !\n"));
  EXPECT_THAT(walkLines(4), IsEmpty());
  const MeshDeviceSlot &last = slot(31);
  EXPECT_EQ(slot(0).deviceNum, 32u);
  EXPECT_EQ(last.deviceNum, 32u);
  EXPECT_STREQ(last.alMac, "02:00:00:00:00:01");
  EXPECT_EQ(last.bhNum, 32u);
  EXPECT_STREQ(last.bhInfo[31].neighborAlMac, "next");
  EXPECT_EQ(last.radioA.bssNum, 32u);
  EXPECT_STREQ(last.radioA.bss[31].ssid, "Home");
  EXPECT_EQ(last.radioA.bss[31].staNum, 32u);
  EXPECT_STREQ(last.radioA.bss[31].staMac[31], "c0:ff:ee:00:00:41");
  EXPECT_EQ(last.radioB.bssNum, 32u);
  EXPECT_STREQ(last.radioB.bss[31].ssid, "Five");
  EXPECT_EQ(last.otherClientNum, 32u);
  EXPECT_STREQ(last.otherClientMac[31], "other");
  EXPECT_EQ(last.staTotal, 0u);
}

TEST_F(PmGetDumpbufInfo, EveryRadioAfterTheSecondTakesItsPlace) {
  ASSERT_EQ(walk(topology({device("02:00:00:00:00:01",
                                  {radio({bss("a", 0)}), radio({bss("b", 2), bss("c", 1)}),
                                   radio({bss("third", 1)})})})),
            0);
  EXPECT_STREQ(slot(0).radioA.bss[0].ssid, "a");
  EXPECT_EQ(slot(0).radioB.bssNum, 1u);
  EXPECT_STREQ(slot(0).radioB.bss[0].ssid, "third");
  EXPECT_EQ(slot(0).radioB.bss[0].staNum, 1u);
  EXPECT_STREQ(slot(0).radioB.bss[1].ssid, "c") << "only what the third radio has is overwritten";
}

TEST_F(PmGetDumpbufInfo, KeepsWhatPrecedesAFailure) {
  Json broken = device("02:00:00:00:00:02", {radio({bss("kept", 0), Json::object()})});
  ASSERT_EQ(walk(topology({device("02:00:00:00:00:01", {}), broken, Json::object()})), -1);
  EXPECT_STREQ(slot(0).alMac, "02:00:00:00:00:01");
  EXPECT_STREQ(slot(1).radioA.bss[0].ssid, "kept");
  EXPECT_EQ(slot(1).radioA.bssNum, 2u);
  EXPECT_EQ(slot(2).deviceNum, 0u);
}

TEST_F(PmGetDumpbufInfo, GivesBackATreeThatCjsonCouldNotFinish) {
  const std::string dump = smallest().dump();
  ASSERT_EQ(walk(dump), 0);
  const int32_t blocks = cjsonBlocks.given;
  ASSERT_GT(blocks, 0);
  for (int32_t refused = 1; refused <= blocks; ++refused) {
    cjsonBlocks = {.refused = refused};
    ASSERT_EQ(walk(dump), -1) << refused;
    ASSERT_EQ(cjsonBlocks.live, 0) << refused;
  }
}

}  // namespace
