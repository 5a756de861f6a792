#include "pmapi/macfilter.h"

#include <cstring>

#include "platform/firewall.hpp"
#include "tests/support/gateway_test.hpp"

using namespace platform;

namespace {

using ::testing::AllOf;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;

using boundary::Fault;
using gateway::printMac;
using gateway::Row;

constexpr char kGetTag[] = "object_nexumd_getmacfilter_pmapi.c";
constexpr char kSetTag[] = "object_nexumd_setmacfilter_pmapi.c";
constexpr uint32_t kUnreadable = UINT32_MAX;

constexpr char kProfile[] = R"({
  "records": {"FirewallBaseRecord": {"IGD": {"macFilterEnable": 0, "macFilterPolicy": 1}}},
  "views": {"DBVIEW_MAC_FILTER": {
    "IGD.MacFilter1": {"type": 2, "protocol": 4, "sourceMac": "001122334455", "deviceName": "old"}
  }},
  "files": {"/userconfig/nexumd_cfgfile": [
    "MacFilter_WhiteList=A1B2C3D4E5F6/phone,A1B2C3D4E5F7/tablet",
    "MacFilter_BlackList=B1"
  ]}
})";

/// A request with room for the largest list, and a mark behind it.
struct Request {
  Request() : bytes(sizeof(UbusMacFilter) + 4096, '\0') {}
  Request(uint32_t enable, uint32_t policy, const std::string &entries) : Request() {
    record()->macFilterEnable = enable;
    record()->macFilterPolicy = policy;
    std::strcpy(record()->entries, entries.c_str());
  }
  UbusMacFilter *record() { return reinterpret_cast<UbusMacFilter *>(bytes.data()); }

  std::string bytes;
};

std::string device(uint32_t number) {
  char entry[32];
  std::snprintf(entry, sizeof entry, "A0B0C0%06X/pc%u,", number, number);
  return entry;
}

std::string devices(uint32_t count) {
  std::string entries;
  for (uint32_t i = 0; i < count; ++i) entries += device(i);
  return entries;
}

class MacFilterTest : public GatewayTest {
 protected:
  MacFilterTest() {
    loadProfile(kProfile);
    expectNoLeaks();
  }

  static int32_t set(uint32_t enable, uint32_t policy, const std::string &entries) {
    Request request(enable, policy, entries);
    return pm_ubus_macfilter_set(request.record());
  }

  /// "MAC name" of each entry in the platform's table.
  std::vector<std::string> table() {
    std::vector<std::string> lines;
    for (const std::string &path : store().paths(gateway::layoutOf<MacFilterView>())) {
      const Row row = store().row<MacFilterView>(path);
      EXPECT_EQ(row.word(MacFilterView::type), 2u);
      EXPECT_EQ(row.word(MacFilterView::protocol), 4u);
      lines.push_back(printMac(row.mac(MacFilterView::sourceMac)) + " " +
                      row.text(MacFilterView::deviceName));
    }
    return lines;
  }

  /// Enable and policy of the firewall.
  std::pair<uint32_t, uint32_t> switches() {
    const Row base = store().row<FirewallBaseRecord>("IGD");
    return {base.byte(FirewallBaseRecord::macFilterEnable),
            base.word(FirewallBaseRecord::macFilterPolicy)};
  }

  void fillTable(uint32_t entries) {
    for (uint32_t i = 2; i <= entries; ++i) {
      const Row row = store().create<MacFilterView>("IGD.MacFilter" + std::to_string(i));
      row.setWord(MacFilterView::type, 2);
      row.setWord(MacFilterView::protocol, 4);
    }
  }
};

using PmUbusGetMacFilter = MacFilterTest;
using PmUbusMacfilterSet = MacFilterTest;

TEST_F(PmUbusGetMacFilter, ShowsTheListOfThePolicyAsFarAsTheItemsNameIsLong) {
  Request white;
  EXPECT_EQ(pm_ubus_get_mac_filter(white.record()), 0);
  EXPECT_EQ(white.record()->macFilterEnable, 0u);
  EXPECT_EQ(white.record()->macFilterPolicy, 1u);
  EXPECT_STREQ(white.record()->entries, "A1B2C3D4E5F6/phone,");
  EXPECT_EQ(logs()[0].tag, kGetTag);
  EXPECT_THAT(logs(), HasLogLine({5, "pm_ubus_get_mac_filter", "now in pm_ubus_get_mac_filter\n"}));

  store().row<FirewallBaseRecord>("IGD").setWord(FirewallBaseRecord::macFilterPolicy, 0);
  store().row<FirewallBaseRecord>("IGD").setByte(FirewallBaseRecord::macFilterEnable, 1);
  Request black;
  EXPECT_EQ(pm_ubus_get_mac_filter(black.record()), 0);
  EXPECT_EQ(black.record()->macFilterEnable, 1u);
  EXPECT_STREQ(black.record()->entries, "B1");
}

TEST_F(PmUbusGetMacFilter, UnreadableFirewallShowsInTheNumbersAndSelectsTheBlackList) {
  fail("pm_fw_get_base", "IGD", -77);
  Request request;
  EXPECT_EQ(pm_ubus_get_mac_filter(request.record()), 0);
  EXPECT_EQ(request.record()->macFilterEnable, kUnreadable);
  EXPECT_EQ(request.record()->macFilterPolicy, kUnreadable);
  EXPECT_STREQ(request.record()->entries, "B1");
  for (const char *getter : {"ubus_getmacFilterEnable", "ubus_getmacFilterPolicy"}) {
    EXPECT_THAT(logs(), HasLogLine({4, getter, "[pm_fw_get_base] failed, retcode = -77\n", -77}));
  }
}

TEST_F(PmUbusGetMacFilter, MissingListLeavesTheEntriesUntouched) {
  files().write("/userconfig/nexumd_cfgfile", "unrelated=1\n");
  Request request;
  std::strcpy(request.record()->entries, "before");
  EXPECT_EQ(pm_ubus_get_mac_filter(request.record()), -1);
  EXPECT_EQ(request.record()->macFilterPolicy, 1u);
  EXPECT_STREQ(request.record()->entries, "before");
  EXPECT_THAT(logs(), HasLogLine({4, "pm_ubus_get_mac_filter",
                                  "pm_ubus_config_getitem failed, iRet=-1\n", -1}));
}

TEST_F(MacFilterTest, NullRecordsAreRefused) {
  EXPECT_EQ(pm_ubus_get_mac_filter(nullptr), -1);
  EXPECT_EQ(pm_ubus_macfilter_set(nullptr), -1);
  EXPECT_THAT(logs(), HasLog(4, "pm_ubus_get_mac_filter para is null"));
  EXPECT_THAT(logs(), HasLog(4, "pm_ubus_macfilter_set para is null"));
  EXPECT_THAT(trace(), IsEmpty());
}

TEST_F(PmUbusMacfilterSet, ReplacesTheTableAndWritesTheSwitchesOnce) {
  EXPECT_EQ(set(1, 0, "A1B2C3D4E5F6/phone,,a1b2c3d4e5f7/a/b,A1B2C3D4E5F8/1234567890123456"), 0);
  EXPECT_THAT(table(), ElementsAre("a1:b2:c3:d4:e5:f6 phone", "a1:b2:c3:d4:e5:f7 a/b",
                                   "a1:b2:c3:d4:e5:f8 123456789012345"));
  EXPECT_EQ(switches(), std::pair(1u, 0u));
  EXPECT_THAT(trace("pm_fw_set_base"), ElementsAre("pm_fw_set_base(IGD) = 0"));
  EXPECT_THAT(trace("pm_mac_filterdel"), ElementsAre("pm_mac_filterdel(IGD.MacFilter1) = 0"));
  EXPECT_EQ(trace().back(), "vcorDbSaveDbus() = 0");
  EXPECT_EQ(logs()[0].tag, kSetTag);
  EXPECT_EQ(logs()[0].text, "now in pm_ubus_macfilter_set\n");
  EXPECT_THAT(logs()[1].text, HasSubstr("1234567890123456"));
  EXPECT_THAT(logs(), HasLogLine({5, "net_parse_mac_filter_data",
                                  "enable = 1, blacklist = 0, type = 2, protocol = 4\r\n"}));
  EXPECT_THAT(logs(),
              HasLogLine({5, "net_parse_mac_filter_data", "szInstIdentity = IGD.MacFilter3 \r\n"}));
  EXPECT_EQ(logs().back().text, "-----------after----------------------\r\n");
}

TEST_F(PmUbusMacfilterSet, MalformedListIsRefusedBeforeAnythingChanges) {
  const struct {
    const char *entries, *message;
  } cases[] = {
      {"A1B2C3D4E5F6/", "Dev Info do not have dev name\n"},
      {"A1B2C3D4E5F6", "Dev Info do not have dev name\n"},
      {"A1B2C3D4E5F6/phone,A1B2C3D4E5F7", "Dev Info do not have dev name\n"},
      {"/", "Dev Info do not have dev name\n"},
      {"A1B2C3D4E5/pc", "MAC len is not equal 12 !\n"},
      {"A1:B2:C3:D4:E5:F6/pc", "MAC len is not equal 12 !\n"},
      {"/A1B2C3D4E5F6/pc", "MAC len is not equal 12 !\n"},
      {"A1B2C3D4E5F6/phone,A1B2C3D4E5F77/pc", "MAC len is not equal 12 !\n"},
  };
  for (const auto &one : cases) {
    SCOPED_TRACE(one.entries);
    forgetCalls();
    EXPECT_EQ(set(1, 1, one.entries), 1001);
    EXPECT_THAT(logs(), HasLogLine({4, "pm_ubus_macfilter_set", one.message}));
    EXPECT_THAT(trace(), IsEmpty());
  }
}

TEST_F(PmUbusMacfilterSet, EntryThatIsNoMacIsLeftOut) {
  EXPECT_EQ(set(1, 1, "A1B2C3D4E5GZ/pc,-1B2C3D4E5F6/pc,A1B2C3D4E5F6/phone"), 0);
  EXPECT_THAT(table(), ElementsAre("a1:b2:c3:d4:e5:f6 phone"));
  EXPECT_THAT(logs(), HasLogLine({4, "pm_ubus_macfilter_set", "StrToMAC Error !\n"}));
}

TEST_F(PmUbusMacfilterSet, SwitchesDecideWhatBecomesOfTheTable) {
  const struct {
    const char *about;
    uint32_t enable, policy;
    const char *entries;
    std::pair<uint32_t, uint32_t> switches;
    std::vector<std::string> table;
  } cases[] = {
      {"off keeps the entries", 0, 1, "A1B2C3D4E5F6/pc", {0, 1}, {"00:11:22:33:44:55 old"}},
      {"off without a list", 0, 0, "", {0, 0}, {"00:11:22:33:44:55 old"}},
      {"on without a list", 1, 0, "", {1, 0}, {}},
      {"on with an empty list: no switch is touched", 1, 0, ",", {0, 1}, {}},
      {"no such policy", 1, 2, "A1B2C3D4E5F6/pc", {0, 1}, {}},
      {"no such state", 2, 1, "A1B2C3D4E5F6/pc", {0, 1}, {"00:11:22:33:44:55 old"}},
      {"the MAC of nobody", 1, 1, "000000000000/pc", {1, 1}, {}},
      {"on by its lowest byte only: the old entries stay",
       257,
       256,
       "A1B2C3D4E5F6/pc",
       {1, 0},
       {"00:11:22:33:44:55 old", "a1:b2:c3:d4:e5:f6 pc"}},
      {"off by its lowest byte", 256, 257, "A1B2C3D4E5F6/pc", {0, 1}, {"00:11:22:33:44:55 old"}},
  };
  for (const auto &one : cases) {
    SCOPED_TRACE(one.about);
    restart();
    EXPECT_EQ(set(one.enable, one.policy, one.entries), 0);
    EXPECT_EQ(switches(), one.switches);
    EXPECT_EQ(table(), one.table);
    EXPECT_EQ(trace().back(), "vcorDbSaveDbus() = 0");
  }
  EXPECT_EQ(set(1, 2, "A1B2C3D4E5F6/pc"), 0);
  EXPECT_THAT(logs(), HasLogLine({4, "net_parse_mac_filter_data", "MacFiltr Data is NULL !\n"}));
}

TEST_F(PmUbusMacfilterSet, OnlyTheFirst32EntriesAreDeleted) {
  for (const uint32_t before : {32u, 33u, 200u}) {
    restart();
    fillTable(before);
    EXPECT_EQ(set(1, 1, ""), 0);
    EXPECT_THAT(table(), SizeIs(before - 32));
  }
}

TEST_F(PmUbusMacfilterSet, EachOldEntryIsReadAndDeletedWhateverBecameOfTheOthers) {
  fillTable(3);
  fail("vcorDbGetView", "MacFilter1", -5);
  fail("pm_mac_filterdel", "MacFilter2", -6);
  EXPECT_EQ(set(1, 1, ","), 0);
  EXPECT_THAT(trace(), ElementsAre("pm_mac_filterlist(IGD) = 0",
                                   "vcorDbGetView(DBVIEW_MAC_FILTER IGD.MacFilter1) = -5 [fault]",
                                   "pm_mac_filterdel(IGD.MacFilter1) = 0",
                                   "vcorDbGetView(DBVIEW_MAC_FILTER IGD.MacFilter2) = 0",
                                   "pm_mac_filterdel(IGD.MacFilter2) = -6 [fault]",
                                   "vcorDbGetView(DBVIEW_MAC_FILTER IGD.MacFilter3) = 0",
                                   "pm_mac_filterdel(IGD.MacFilter3) = 0", "vcorDbSaveDbus() = 0"));
  fail(Fault{.call = "pm_mac_filterlist", .times = 1, .count = -1});
  EXPECT_EQ(set(1, 1, ","), 0);
  EXPECT_THAT(table(), SizeIs(1)) << "a count below zero is none";
}

TEST_F(PmUbusMacfilterSet, ListIsReadUpTo2047Characters) {
  std::string entries = devices(100);
  entries.resize(2046, ',');
  EXPECT_EQ(set(1, 1, entries + "A1B2C3D4E5F6/unread"), 1001) << "a MAC's first digit was kept";
  EXPECT_THAT(trace(), IsEmpty());

  entries += ',';
  EXPECT_EQ(set(1, 1, entries + "A1B2C3D4E5F6/unread"), 0);
  EXPECT_THAT(table(), AllOf(SizeIs(100), Not(Contains(EndsWith("unread")))));
}

TEST_F(PmUbusMacfilterSet, FailedCallIsLoggedAndTheRestGoesOn) {
  const struct {
    const char *call, *function, *message;
    std::vector<std::string> table;
  } cases[] = {
      {"pm_mac_filterlist",
       "net_del_mac_filter_data",
       "net_del_mac_filter_data pm_mac_filterlist:!RET_PM_OK FAILURE!",
       {"00:11:22:33:44:55 old", "a1:b2:c3:d4:e5:f6 pc"}},
      {"pm_fw_get_base",
       "net_parse_mac_filter_data",
       "[pm_fw_get_base] failed, retcode = -5\n",
       {}},
      {"pm_fw_set_base",
       "net_parse_mac_filter_data",
       "[pm_fw_set_base] failed, retcode = -5\n",
       {}},
      {"pm_mac_filterset", "net_parse_mac_filter_data", "pm_mac_filterset Error !\n", {}},
  };
  for (const auto &one : cases) {
    SCOPED_TRACE(one.call);
    restart();
    fail(one.call, "", -5);
    EXPECT_EQ(set(1, 1, "A1B2C3D4E5F6/pc"), 0);
    EXPECT_THAT(logs(), HasLogLine({4, one.function, one.message, -5}));
    EXPECT_EQ(table(), one.table);
    EXPECT_EQ(trace().back(), "vcorDbSaveDbus() = 0");
  }
}

TEST_F(MacFilterTest, SurvivesEveryFault) {
  sweepFaults([] { return set(1, 0, "A1B2C3D4E5F6/phone,A1B2C3D4E5F7/tablet"); },
              [](const gateway::testing::SweepRun &run) { EXPECT_EQ(run.status, 0); });
  sweepFaults(
      [] {
        Request request;
        const int32_t status = pm_ubus_get_mac_filter(request.record());
        EXPECT_EQ(std::strlen(request.record()->entries) == 0, status != 0);
        return status;
      },
      [](const gateway::testing::SweepRun &run) {
        EXPECT_THAT(run.status, ::testing::AnyOf(0, -1));
      });
}

}  // namespace
