#include "gateway/scans.hpp"

#include <cstring>
#include <memory>
#include <nlohmann/json.hpp>

#include "boundary/status.hpp"
#include "platform/wlan.h"
#include "platform/wlan.hpp"
#include "tests/support/gateway_test.hpp"

using namespace platform;

namespace gateway {
namespace {

class ScansTest : public GatewayTest {
 protected:
  ScansTest() { loadExample("dual_band.json"); }

  static void mark(uint8_t *record, const platform::Field &field) {
    const uint16_t written = 1;
    std::memcpy(record + field.offset - platform::kMarkDistance, &written, sizeof written);
  }

  static int32_t scan(const char *instance, uint32_t setting1 = UINT32_MAX) {
    WlanScanRequest request = {};
    fieldsOf<WlanScanRequest>(&request).setWord(WlanScanRequest::setting1, setting1);
    mark(request.bytes, WlanScanRequest::setting1);
    mark(request.bytes, WlanScanRequest::setting2);
    return pm_wlan_set_scan_ap(instance, &request);
  }

  int32_t list(const char *instance, uint32_t selector = UINT32_MAX) {
    std::memset(heard_.get(), 0, sizeof *heard_);
    Row row = fieldsOf<WlanApList>(heard_.get());
    row.setWord(WlanApList::selector, selector);
    const int32_t status = pm_wlan_list_ap(instance, heard_.get());
    count = row.word(WlanApList::count);
    return status;
  }

  uint32_t count = 0;

 private:
  std::unique_ptr<WlanApList> heard_ = std::make_unique<WlanApList>();
};

TEST_F(ScansTest, TheListIsWhatTheLastFinishedScanHeard) {
  EXPECT_EQ(list("IGD.LD1.WLAN5"), kBadRequest);
  EXPECT_EQ(scan("IGD.LD1.WLANBase2"), kOk);
  EXPECT_EQ(list("IGD.LD1.WLAN5"), kBadRequest);
  EXPECT_THAT(gateway().takeComplaints(),
              ::testing::ElementsAre(::testing::HasSubstr("no scan was asked for"),
                                     ::testing::HasSubstr("the scan is still running")));
  gateway().clock().advance(Scans::kDuration);
  scans().radios[1].accessPoints.clear();
  EXPECT_EQ(list("IGD.LD1.WLAN6"), kOk) << "another SSID of the radio";
  EXPECT_EQ(count, 2u) << "who came and went since then does not show";

  const Json saved = gateway().save();
  gateway().load(saved);
  EXPECT_EQ(list("IGD.LD1.WLAN5"), kOk);
  EXPECT_EQ(count, 2u);
  EXPECT_EQ(scan("IGD.LD1.WLANBase2"), kOk);
  gateway().clock().advance(Scans::kDuration);
  EXPECT_EQ(list("IGD.LD1.WLAN5"), kOk);
  EXPECT_EQ(count, 0u);
}

TEST_F(ScansTest, WhatIsNoWholeScanOrNoClearedListIsRefused) {
  expectComplaint("this is not the request for a whole scan");
  expectComplaint("the list was not cleared");
  EXPECT_EQ(scan("IGD.LD1.WLANBase3"), kUnknownInstance);
  EXPECT_EQ(scan("IGD.LD1.WLANBase1", 3), kInvalidField);
  EXPECT_EQ(scan("IGD.LD1.WLANBase1"), kOk);
  EXPECT_EQ(list("IGD.LD1.WLAN9"), kUnknownInstance);
  EXPECT_EQ(list("IGD.LD1.WLAN1", 0), kBadRequest);
}

TEST_F(ScansTest, ProfilesThatNoScanCouldHearAreRefused) {
  for (const char *profile :
       {R"({"scans": {"6G": {}}})", R"({"scans": {"5G": {"accessPoints": [{"ssid": "x"}]}}})",
        R"({"scans": {"5G": {"accessPoints": [
             {"ssid": "a-name-of-all-thirty-three-letters", "bssid": "001122334455"}]}}})",
        R"({"scans": {"5G": {"accessPoints": [{"bssid": "001122334455", "rssi": -200}]}}})",
        R"({"blockList": {"stations": ["00:11"]}})"}) {
    EXPECT_THROW(gateway().load(Json::parse(profile)), InputError) << profile;
  }
}

}  // namespace
}  // namespace gateway
