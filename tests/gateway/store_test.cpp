#include "gateway/store.hpp"

#include <cstring>

#include "boundary/status.hpp"
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
using ::testing::IsEmpty;

/// A record as the library fills it: values with their marks.
template <class Record>
struct Request {
  Record record = {};
  Row row = fieldsOf<Record>(&record);

  Row mark(const platform::Field &field, uint16_t mark) {
    std::memcpy(row.data() + field.offset - platform::kMarkDistance, &mark, sizeof mark);
    return row;
  }
  void invalidate(const platform::Field &field) {
    std::memset(row.data() + field.offset - platform::kValidityDistance, 0xff, 4);
  }
};

class StoreTest : public GatewayTest {
 protected:
  template <class Record>
  int32_t set(const std::string &path, const Request<Record> &request,
              Unchanged unchanged = Unchanged::kAccepted) {
    return store().set(layoutOf<Record>(), path, &request.record, unchanged);
  }
};

TEST_F(StoreTest, SetAppliesOnlyTheMarkedFields) {
  store().create<GatewayIdentityView>("IGD").setText(GatewayIdentityView::cmei, "old");
  Request<GatewayIdentityView> request;
  request.mark(GatewayIdentityView::captureEth, 1).setText(GatewayIdentityView::captureEth, "eth4");
  request.row.setText(GatewayIdentityView::cmei, "new");

  EXPECT_EQ(set("IGD", request), kOk);
  const Row row = store().row<GatewayIdentityView>("IGD");
  EXPECT_EQ(row.text(GatewayIdentityView::captureEth), "eth4");
  EXPECT_EQ(row.text(GatewayIdentityView::cmei), "old");
  EXPECT_EQ(row.mark(GatewayIdentityView::captureEth), 0);
}

TEST_F(StoreTest, SetRefusesTheWholeRecordForOneInvalidText) {
  store().create<TimePolicyView>("IGD.TimePolicy1");
  Request<TimePolicyView> request;
  request.mark(TimePolicyView::startTime, 1).setWord(TimePolicyView::startTime, 60);
  request.mark(TimePolicyView::week, 1);
  request.invalidate(TimePolicyView::week);

  EXPECT_EQ(set("IGD.TimePolicy1", request), kInvalidField);
  EXPECT_EQ(store().row<TimePolicyView>("IGD.TimePolicy1").word(TimePolicyView::startTime), 0u);
}

TEST_F(StoreTest, SetReportsThatNothingChangedToThoseWhoAsk) {
  store().create<LogConfigRecord>("IGD").setWord(LogConfigRecord::logEnable, 7);
  Request<LogConfigRecord> request;
  request.mark(LogConfigRecord::logEnable, 1).setWord(LogConfigRecord::logEnable, 7);

  EXPECT_EQ(set("IGD", request, Unchanged::kReported), kNothingChanged);
  EXPECT_EQ(set("IGD", request), kOk);
  request.row.setWord(LogConfigRecord::logEnable, 8);
  EXPECT_EQ(set("IGD", request, Unchanged::kReported), kOk);
}

TEST_F(StoreTest, UnknownInstancesAreNeitherReadNorWritten) {
  Request<GatewayIdentityView> request;
  EXPECT_EQ(set("IGD", request), kUnknownInstance);
  EXPECT_EQ(store().get(layoutOf<GatewayIdentityView>(), "IGD", &request.record), kUnknownInstance);
  EXPECT_EQ(store().remove(layoutOf<GatewayIdentityView>(), "IGD"), kUnknownInstance);
  EXPECT_THROW(store().row<GatewayIdentityView>("IGD"), std::out_of_range);
}

TEST_F(StoreTest, QueryMatchesEveryMarkedFieldOfAnyKind) {
  for (const char *path : {"IGD.WD1.WCD1.WCPPP1", "IGD.WD1.WCD2.WCIP1", "IGD.WD1.WCD3.WCIP1"}) {
    const Row row = store().create<WanConnectionView>(path);
    row.setText(WanConnectionView::serviceList, "INTERNET");
    row.setMac(WanConnectionView::mac, {2, 0, 0, 0, 0, static_cast<uint8_t>(path[11])});
  }
  store()
      .row<WanConnectionView>("IGD.WD1.WCD2.WCIP1")
      .setText(WanConnectionView::serviceList, "TR069");

  Request<WanConnectionView> key;
  key.mark(WanConnectionView::serviceList, 2).setText(WanConnectionView::serviceList, "INTERNET");
  std::vector<std::string> found;
  EXPECT_EQ(store().query(layoutOf<WanConnectionView>(), &key.record, &found), kOk);
  EXPECT_THAT(found, ElementsAre("IGD.WD1.WCD1.WCPPP1", "IGD.WD1.WCD3.WCIP1"));

  found.clear();
  key.mark(WanConnectionView::mac, 2).setMac(WanConnectionView::mac, {2, 0, 0, 0, 0, '3'});
  EXPECT_EQ(store().query(layoutOf<WanConnectionView>(), &key.record, &found), kOk);
  EXPECT_THAT(found, ElementsAre("IGD.WD1.WCD3.WCIP1"));
}

TEST_F(StoreTest, QueryRefusesAnInvalidOrMissingKey) {
  Request<WanConnectionView> key;
  std::vector<std::string> found;
  EXPECT_EQ(store().query(layoutOf<WanConnectionView>(), &key.record, &found), kInvalidField);
  key.mark(WanConnectionView::serviceList, 2);
  key.invalidate(WanConnectionView::serviceList);
  EXPECT_EQ(store().query(layoutOf<WanConnectionView>(), &key.record, &found), kInvalidField);
  EXPECT_THAT(found, IsEmpty());
}

TEST_F(StoreTest, AddNumbersInstancesAndStopsAtTheLimit) {
  const Layout &layout = layoutOf<TimePolicyView>();
  store().create(layout, "IGD.TimePolicy7");
  store().limit(layout, 2);
  std::string path;
  EXPECT_EQ(store().add(layout, "IGD", &path), kOk);
  EXPECT_EQ(path, "IGD.TimePolicy8");
  EXPECT_EQ(store().row(layout, path).text(TimePolicyView::name), path);
  EXPECT_EQ(store().add(layout, "IGD", &path), kTableFull);
  EXPECT_EQ(store().remove(layout, "IGD.TimePolicy7"), kOk);
  EXPECT_EQ(store().add(layout, "IGD", &path), kOk);
  EXPECT_THAT(store().list(layout, "IGD"), ElementsAre("IGD.TimePolicy8", "IGD.TimePolicy9"));
  EXPECT_THAT(store().list(layout, "IGD.LD1"), IsEmpty());
}

TEST_F(StoreTest, EveryLayoutIsListedOnceByNameAndNumber) {
  for (const Layout &layout : allLayouts()) {
    EXPECT_EQ(layoutByName(layout.name), &layout) << layout.name;
    EXPECT_EQ(viewById(layout.id), layout.isView() ? &layout : nullptr) << layout.name;
  }
  EXPECT_EQ(viewById(99), nullptr);
  EXPECT_EQ(viewName(99), "view 99");
}

}  // namespace
}  // namespace gateway
