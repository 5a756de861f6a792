#include "gateway/profile.hpp"

#include <fstream>
#include <nlohmann/json.hpp>

#include "platform/attached_devices.hpp"
#include "platform/device.hpp"
#include "platform/firewall.hpp"
#include "platform/limits.hpp"
#include "platform/ports.hpp"
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

class ProfileTest : public GatewayTest {
 protected:
  std::string refusal(const std::string &profile) {
    try {
      gateway().load(Json::parse(profile));
    } catch (const InputError &error) {
      return error.what();
    }
    return "accepted";
  }
};

TEST_F(ProfileTest, EveryKindOfFieldIsRead) {
  loadProfile(R"({
    "clock": {"uptime": 12, "time": 34},
    "views": {"DBVIEW_GATEWAY_IDENTITY": {"IGD": {"captureEth": "eth4"}},
              "DBVIEW_LAN_DEVICE": {"IGD.LD1": {"mac": "00:1a:2b:3c:4d:5e"}}},
    "records": {"RouteInfoRecord": {"IGD.A": {"ipv4Address": "10.0.0.2", "flags": true,
                                              "ipv6Address": "2001:db8::1", "wanType": -2}}},
    "files": {"/userconfig/a": "text", "/proc/net/arp": ["one", "two"]}
  })");
  EXPECT_EQ(gateway().clock().uptime(), 12);
  EXPECT_EQ(gateway().clock().time(), 34);
  EXPECT_EQ(store().row<GatewayIdentityView>("IGD").text(GatewayIdentityView::captureEth), "eth4");
  EXPECT_THAT(store().row<LanDeviceView>("IGD.LD1").mac(LanDeviceView::mac),
              ElementsAre(0, 0x1a, 0x2b, 0x3c, 0x4d, 0x5e));
  const Row route = store().row<RouteInfoRecord>("IGD.A");
  EXPECT_EQ(route.word(RouteInfoRecord::ipv4Address), 0x0a000002u);
  EXPECT_EQ(route.word(RouteInfoRecord::flags), 1u);
  EXPECT_EQ(route.word(RouteInfoRecord::wanType), 0xfffffffeu);
  EXPECT_EQ(route.bytes(RouteInfoRecord::ipv6Address)[15], 1);
  EXPECT_EQ(files().read("/userconfig/a"), "text");
  EXPECT_EQ(files().read("/proc/net/arp"), "one\ntwo\n");
}

TEST_F(ProfileTest, WrongProfileIsRefusedWithPlaceAndReason) {
  const std::string identity = R"({"views": {"DBVIEW_GATEWAY_IDENTITY": {"IGD": )";
  const struct {
    std::string profile;
    const char *refusal;
  } cases[] = {
      {"[]", "expected an object, got an array"},
      {R"({"vues": {}})", "vues: no such member"},
      {R"({"views": {"DBVIEW_X": {}}})", "views.DBVIEW_X: no such view"},
      {R"({"views": {"RouteInfoRecord": {}}})", "views.RouteInfoRecord: no such view"},
      {R"({"records": {"DBVIEW_LANINFO": {}}})", "records.DBVIEW_LANINFO: no such record"},
      {identity + R"({"captureEth": ")" + std::string(40, 'x') + R"("}}}})",
       "views.DBVIEW_GATEWAY_IDENTITY.IGD.captureEth: a text of 40 bytes does not fit 32"},
      {identity + R"({"captureEth": 4}}}})",
       "views.DBVIEW_GATEWAY_IDENTITY.IGD.captureEth: expected a text, got a number"},
      {identity + R"({"captureEht": "e"}}}})",
       "views.DBVIEW_GATEWAY_IDENTITY.IGD.captureEht: no such member in DBVIEW_GATEWAY_IDENTITY"},
      {identity + "4}}}", "views.DBVIEW_GATEWAY_IDENTITY.IGD: expected an object, got a number"},
      {R"({"views": {"DBVIEW_LAN_DEVICE": {"IGD.LD1": {"mac": "00:1a"}}}})",
       "views.DBVIEW_LAN_DEVICE.IGD.LD1.mac: \"00:1a\" is not a MAC address"},
      {R"({"records": {"RouteInfoRecord": {"IGD": {"flags": 4294967296}}}})",
       "records.RouteInfoRecord.IGD.flags: 4294967296 is outside -2147483648 to 4294967295"},
      {R"({"records": {"RouteInfoRecord": {"IGD": {"flags": 1.5}}}})",
       "records.RouteInfoRecord.IGD.flags: expected a whole number, got a fraction"},
      {R"({"records": {"RouteInfoRecord": {"IGD": {"ipv6Address": "1.2"}}}})",
       "records.RouteInfoRecord.IGD.ipv6Address: \"1.2\" is not an IPv6 address"},
      {R"({"files": {"/etc/passwd": ""}})", "files./etc/passwd: not a path of the gateway"},
      {R"({"files": {"/tmp/a": [1]}})", "files./tmp/a: a line must be a text"},
      {R"({"clock": {"uptime": "1"}})", "clock.uptime: expected a whole number, got a text"},
      {R"({"clock": {"uptime": 9223372036854775807}})",
       "clock.uptime: 9223372036854775807 is outside 0 to 9007199254740992"},
      {R"({"clock": {"time": -1}})", "clock.time: -1 is outside 0 to 9007199254740992"},
      {identity + R"({"captureEth": "eth4\u0000x"}}}})",
       "views.DBVIEW_GATEWAY_IDENTITY.IGD.captureEth: the text holds a zero"},
      {R"({"mesh": {"topology": "{}\u0000x"}})", "mesh.topology: the text holds a zero"},
      {R"({"host": {"memory": {"totl": 1}}})", "host.memory.totl: no such member in MemInfo"},
      {R"({"host": {"cpuType": -1}})", "host.cpuType: -1 is outside 0 to 4294967295"},
      {R"({"wan": {"connections": [{}]}})", "wan.connections[0].instance: is missing"},
      {R"({"mesh": {"state": "asleep"}})",
       R"(mesh.state: "asleep" is none of "up", "down", "failing", "timing out")"},
  };
  for (const auto &[profile, expected] : cases) EXPECT_EQ(refusal(profile), expected) << profile;
}

/// Places in a schema whose members nobody described.
void collectUndescribed(const Json &schema, const std::string &place,
                        std::vector<std::string> &out) {
  if (schema.is_object() && schema.contains("properties")) {
    for (const auto &[name, member] : schema["properties"].items()) {
      const std::string description = member["description"];
      if (description == "nothing more is known of it") out.push_back(place + "." + name);
    }
  }
  for (const auto &[name, part] : schema.items()) {
    if (part.is_structured()) collectUndescribed(part, place + "." + name, out);
  }
}

TEST_F(ProfileTest, EveryMemberOfASectionIsDescribed) {
  std::vector<std::string> undescribed;
  const Json whole = profileSchema();
  for (const auto &[name, schema] : whole["properties"].items()) {
    EXPECT_NE(schema["description"], "") << name;
    // What is known of the platform's fields is all that anybody knows.
    if (name != "views" && name != "records") collectUndescribed(schema, name, undescribed);
  }
  EXPECT_THAT(undescribed, ::testing::IsEmpty());
}

TEST_F(ProfileTest, FileThatIsNoProfileIsNamed) {
  EXPECT_THROW(gateway().loadFile("/nowhere.json"), InputError);
  const std::string name = (files().root() / "broken.json").string();
  std::ofstream(name) << "{\"views\": ";
  try {
    readProfile(name);
    FAIL() << "accepted";
  } catch (const InputError &error) {
    EXPECT_EQ(error.what(), name + ": not JSON at byte 11");
  }
}

TEST_F(ProfileTest, TextThatIsNoProfileIsRefusedWithItsReason) {
  const std::string deep(500000, '[');
  const struct {
    std::string text;
    const char *refusal;
  } cases[] = {
      {deep, "p: nested deeper than 100 levels"},
      {R"({"mesh":{"topology":)" + deep, "p: nested deeper than 100 levels"},
      {R"({"files":{}, "files":{}})", "p: the member \"files\" stands twice"},
      {R"({"files":{"/tmp/a\u0000b":""}})", "p: a member's name holds a zero"},
      {std::string("{}\0{", 4), "p: not JSON at byte 3, a zero"},
      {R"({"clock":{"uptime":1e999}})", "p: a number is too large"},
  };
  for (const auto &[text, expected] : cases) {
    try {
      parseProfile(text, "p");
      ADD_FAILURE() << "accepted: " << expected;
    } catch (const InputError &error) {
      EXPECT_STREQ(error.what(), expected);
    }
  }
}

TEST_F(ProfileTest, BytesOfAnyKindComeBackFromTheSavedText) {
  // Half a character, a byte of none, and the code point that stands for a byte.
  const std::string bytes = "caf\xc3 \xff \xef\x9f\xbf \xe4\xb8\xad";
  files().write("/userconfig/item", bytes);
  files().write("/userconfig/" + bytes, "x");
  store().create<GatewayIdentityView>("IGD").setText(GatewayIdentityView::captureEth, bytes);
  const Json saved = gateway().save();
  gateway().load(parseProfile(profileText(gateway()), ""));
  EXPECT_EQ(gateway().save(), saved);
  EXPECT_EQ(files().read("/userconfig/item"), bytes);
  EXPECT_EQ(store().row<GatewayIdentityView>("IGD").text(GatewayIdentityView::captureEth), bytes);
}

TEST_F(ProfileTest, TopologyThatIsNestedTooDeepIsKeptAsText) {
  for (const size_t depth : {98u, 99u, 40000u}) {
    const std::string topology = std::string(depth, '[') + std::string(depth, ']');
    gateway().load({{"mesh", {{"state", "up"}, {"topology", topology}}}});
    gateway().load(parseProfile(profileText(gateway()), ""));
    EXPECT_TRUE(gateway().save()["mesh"]["topology"].is_string() == (depth > 98)) << depth;
  }
}

TEST_F(ProfileTest, SavedGatewayLoadsToTheSameState) {
  loadExample("home_router.json");
  gateway().clock().sleep(5);
  files().write("/userconfig/new", "made by the library\n");
  store()
      .row<RouteInfoRecord>("IGD.WD1.WCD1.WCPPP1")
      .setWord(RouteInfoRecord::wanType, static_cast<uint32_t>(-70));
  store()
      .create<PortStatisticsRecord>("IGD.LD1.ETH1")
      .setCounter(PortStatisticsRecord::counter28, 0xffffffffffffffffu);
  store().create<DeviceRecord>("IGD.LD1.Hosts.Adev10");
  store().create<DeviceRecord>("IGD.LD1.Hosts.Adev2");

  const Json saved = gateway().save();
  gateway().load(saved);
  EXPECT_EQ(gateway().save(), saved);
  EXPECT_EQ(files().read("/userconfig/new"), "made by the library\n");
  EXPECT_EQ(saved["records"]["RouteInfoRecord"]["IGD.WD1.WCD1.WCPPP1"]["wanType"], -70);
  EXPECT_THAT(store().paths(layoutOf<DeviceRecord>()),
              ElementsAre("IGD.LD1.Hosts.Adev10", "IGD.LD1.Hosts.Adev2"));
}

TEST_F(ProfileTest, ResetLeavesNothing) {
  loadExample("home_router.json");
  gateway().reset();
  const Json empty = gateway().save();
  EXPECT_TRUE(empty["views"].empty() && empty["records"].empty() && empty["files"].empty());
  EXPECT_FALSE(empty.contains("wan") || empty.contains("mesh"));
}

}  // namespace
}  // namespace gateway
