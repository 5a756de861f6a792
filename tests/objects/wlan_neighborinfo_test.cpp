#include "pmapi/wlan_neighborinfo.h"

#include <cstring>
#include <memory>

#include "gateway/scans.hpp"
#include "tests/objects/wlan_object_test.hpp"

namespace {

using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class PmUbusWlanNeighborinfoGet : public WlanObjectTest {
 protected:
  PmUbusWlanNeighborinfoGet() { std::memset(record.get(), 0, sizeof *record); }

  int32_t get2G() { return static_cast<int32_t>(pm_ubus_wlan_neighborinfo_get_2g(record.get())); }
  int32_t get5G() { return static_cast<int32_t>(pm_ubus_wlan_neighborinfo_get_5g(record.get())); }

  static gateway::Air &air(uint32_t radio) { return gateway::scans().radios[radio]; }

  /// Exactly a record on the heap, so that a byte too many is noticed.
  std::unique_ptr<NeighborInfoRecord> record = std::make_unique<NeighborInfoRecord>();
};

TEST_F(PmUbusWlanNeighborinfoGet, ScansWaitsListsAndCopies) {
  EXPECT_EQ(get2G(), 0);
  std::vector<std::string> calls = trace();
  ASSERT_GE(calls.size(), 3u);
  calls.resize(3);
  EXPECT_THAT(calls, ElementsAre("pm_wlan_set_scan_ap(IGD.LD1.WLANBase1) = 0", "sleep(5)",
                                 "pm_wlan_list_ap(IGD.LD1.WLAN1) = 0"));
  EXPECT_EQ(gateway().clock().slept(), 5);
  EXPECT_THAT(logs(), HasLog(8, "Enter pm_ubus_wlan_neighbourinfo_get_2g\n"));
  EXPECT_EQ(record->neighborNum24G, 3);
  const NeighborApEntry &cafe = record->entries[0];
  EXPECT_STREQ(cafe.radio, "2.4G");
  EXPECT_STREQ(cafe.ssid, "Heron-Cafe");
  EXPECT_STREQ(cafe.bssid, "00:16:3e:61:0a:01");
  EXPECT_STREQ(cafe.apValueText, "1");
  EXPECT_EQ(cafe.apValue52, -71);
  EXPECT_EQ(cafe.apValue100, 3);
  EXPECT_EQ(cafe.apValue104, 1);
  EXPECT_EQ(cafe.reserved, 0);
  EXPECT_STREQ(record->entries[2].ssid, "");
}

TEST_F(PmUbusWlanNeighborinfoGet, WaitsOutItsTimeWhenASignalEndsTheSleep) {
  gateway().clock().interruptAfter(2);
  EXPECT_EQ(get5G(), 0);
  EXPECT_THAT(trace("sleep"), ElementsAre("sleep(5)", "sleep(3)"));
  EXPECT_EQ(gateway().clock().slept(), 5);
}

TEST_F(PmUbusWlanNeighborinfoGet, The5GScanOverwritesTheFirstEntriesAndKeepsTheOtherCount) {
  EXPECT_EQ(get2G(), 0);
  EXPECT_EQ(get5G(), 0);
  EXPECT_THAT(logs(), HasLog(8, "Enter pm_ubus_ortand_neighbourinfo_get_5g\n"));
  EXPECT_EQ(record->neighborNum24G, 3);
  EXPECT_EQ(record->neighborNum5G, 2);
  EXPECT_STREQ(record->entries[1].radio, "5G");
  EXPECT_STREQ(record->entries[1].ssid, "a-name-of-all-thirty-two-letter") << "31 characters";
  EXPECT_STREQ(record->entries[2].radio, "2.4G") << "surplus of the scan before";
}

TEST_F(PmUbusWlanNeighborinfoGet, AnEmptyScanWritesTheCountAlone) {
  air(0).accessPoints.clear();
  record->neighborNum24G = 9;
  record->entries[0].apValue52 = 77;
  EXPECT_EQ(get2G(), 0);
  EXPECT_EQ(record->neighborNum24G, 0);
  EXPECT_EQ(record->entries[0].apValue52, 77);
}

TEST_F(PmUbusWlanNeighborinfoGet, CountsOutsideTheListAreBounded) {
  loadExample("apartment_block.json");
  for (const auto &[reported, counted] : {std::pair{256, 256}, {257, 256}, {INT32_MAX, 256}}) {
    air(0).reportedCount = reported;
    EXPECT_EQ(get2G(), 0);
    EXPECT_EQ(record->neighborNum24G, counted) << reported;
    EXPECT_STREQ(record->entries[255].ssid, "Juniper-Roof");
  }
  for (const int32_t reported : {-1, INT32_MIN}) {
    air(0).reportedCount = reported;
    EXPECT_EQ(get2G(), 0);
    EXPECT_EQ(record->neighborNum24G, 0) << reported;
  }
}

TEST_F(PmUbusWlanNeighborinfoGet, NullIsRefusedBeforeTheScan) {
  EXPECT_EQ(pm_ubus_wlan_neighborinfo_get_2g(nullptr), 0xfffffff6u);
  EXPECT_EQ(pm_ubus_wlan_neighborinfo_get_5g(nullptr), 0xfffffff6u);
  for (const char *handler :
       {"pm_ubus_wlan_neighborinfo_get_2g", "pm_ubus_wlan_neighborinfo_get_5g"}) {
    EXPECT_THAT(logs(), HasLogLine({4, handler, "buff is NULL\n"}));
  }
  EXPECT_THAT(trace(), IsEmpty());
}

TEST_F(PmUbusWlanNeighborinfoGet, FailuresAreLoggedAndLeaveTheRecord) {
  fail("pm_wlan_set_scan_ap", "WLANBase2", -77);
  EXPECT_EQ(get5G(), -77);
  EXPECT_THAT(logs(), HasLogLine({4, "pm_ubus_wlan_neighborinfo_get_5g",
                                  "pm_wlan_set_scan_ap fail=-77\n", -77}));
  EXPECT_EQ(gateway().clock().slept(), 0);
  beforeEachRun([this] { std::memset(record.get(), 0, sizeof *record); });
  sweepFaults([this] { return get2G(); },
              [this](const gateway::testing::SweepRun &run) {
                // A BSSID that cannot be printed stays empty.
                if (run.failed > 2) {
                  EXPECT_EQ(run.status, 0);
                  EXPECT_EQ(record->neighborNum24G, 3);
                  EXPECT_STREQ(record->entries[run.failed - 3].bssid, "");
                  return;
                }
                EXPECT_EQ(run.status, -1);
                const auto *bytes = reinterpret_cast<const char *>(record.get());
                EXPECT_THAT(std::vector<char>(bytes, bytes + sizeof *record), Each('\0'));
                const char *line =
                    run.failed == 1 ? "pm_wlan_set_scan_ap fail=-1\n" : "pm_wlan_list_ap fail=-1\n";
                EXPECT_THAT(logs(), HasLogLine({4, "pm_ubus_wlan_neighborinfo_get_2g", line, -1}));
              });
}

}  // namespace
