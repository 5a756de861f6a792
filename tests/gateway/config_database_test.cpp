#include "platform/config_database.h"

#include <cstring>

#include "boundary/status.hpp"
#include "gateway/habits.hpp"
#include "platform/device.hpp"
#include "platform/wan.hpp"
#include "tests/support/gateway_test.hpp"

using namespace platform;

namespace gateway {
namespace {

using ::testing::ElementsAre;

template <class View>
struct Buffer {
  alignas(8) View view = {};

  Buffer() {
    const uint32_t header[2] = {View::kSize, PLATFORM_BLOCK_MARKER};
    std::memcpy(&view, header, sizeof header);
  }
  Row row() { return fieldsOf<View>(&view); }
};

class ConfigDatabaseTest : public GatewayTest {
 protected:
  Buffer<GatewayIdentityView> identity;
};

TEST_F(ConfigDatabaseTest, GetCopiesTheRecordAndKeepsTheHeader) {
  store().create<GatewayIdentityView>("IGD").setText(GatewayIdentityView::cmei, "123");
  EXPECT_EQ(vcorDbGetView(DBVIEW_GATEWAY_IDENTITY, "IGD", &identity.view), kOk);
  EXPECT_EQ(identity.row().text(GatewayIdentityView::cmei), "123");
  const uint32_t header[2] = {872, PLATFORM_BLOCK_MARKER};
  EXPECT_EQ(std::memcmp(&identity.view, header, sizeof header), 0);
  EXPECT_THAT(trace(), ElementsAre("vcorDbGetView(DBVIEW_GATEWAY_IDENTITY IGD) = 0"));
}

TEST_F(ConfigDatabaseTest, UnknownInstanceIsAStatusOnly) {
  EXPECT_EQ(vcorDbGetView(DBVIEW_GATEWAY_IDENTITY, "IGD.X", &identity.view), kUnknownInstance);
}

TEST_F(ConfigDatabaseTest, BrokenRequestsAreComplainedOf) {
  const std::string longest(PLATFORM_INSTANCE_SIZE, 'x');
  EXPECT_EQ(vcorDbGetView(DBVIEW_GATEWAY_IDENTITY, longest.c_str(), &identity.view),
            kUnknownInstance);

  expectComplaint("vcorDbGetView(view 99 IGD): no such view");
  EXPECT_EQ(vcorDbGetView(99, "IGD", &identity.view), kUnknownView);
  expectComplaint("longer than 32 characters");
  EXPECT_EQ(vcorDbGetView(DBVIEW_GATEWAY_IDENTITY, (longest + "x").c_str(), &identity.view),
            kPathTooLong);
  expectComplaint("the header says 872 bytes, the view has 264");
  EXPECT_EQ(vcorDbGetView(DBVIEW_EASYMESH, "IGD", &identity.view), kBadHeader);
  expectComplaint("no view");
  EXPECT_EQ(vcorDbSetView(DBVIEW_GATEWAY_IDENTITY, "IGD", nullptr), kNullArgument);
  expectComplaint("was not cleared");
  identity.row().setText(GatewayIdentityView::cmei, "left over");
  EXPECT_EQ(vcorDbGetView(DBVIEW_GATEWAY_IDENTITY, "IGD", &identity.view), kBadRequest);
  expectComplaint("the header has no marker");
  std::memset(identity.view.bytes + 4, 0, 4);
  EXPECT_EQ(vcorDbSetView(DBVIEW_GATEWAY_IDENTITY, "IGD", &identity.view), kBadHeader);
}

TEST_F(ConfigDatabaseTest, ListCountsMoreInstancesThanItWrites) {
  for (const char *path : {"IGD.WD1.A", "IGD.WD1.B", "IGD.WD1.C"}) {
    store().create<WanConnectionView>(path);
  }
  char paths[3][PLATFORM_INSTANCE_SIZE] = {"", "", "untouched"};
  InstanceList list = {PLATFORM_BLOCK_MARKER, 2, 0, paths};
  EXPECT_EQ(vcorDbLstView(DBVIEW_WAN_CONN_DEV, "IGD", &list, 2), kOk);
  EXPECT_EQ(list.dwCount, 3u);
  EXPECT_THAT(paths, ElementsAre(::testing::StrEq("IGD.WD1.A"), ::testing::StrEq("IGD.WD1.B"),
                                 ::testing::StrEq("untouched")));

  expectComplaint("two capacities, 2 and 32");
  EXPECT_EQ(vcorDbLstView(DBVIEW_WAN_CONN_DEV, "IGD", &list, 32), kBadRequest);
  expectComplaint("the list has no marker");
  list.marker = 0;
  EXPECT_EQ(vcorDbLstView(DBVIEW_WAN_CONN_DEV, "IGD", &list, 2), kBadHeader);
}

TEST_F(ConfigDatabaseTest, AddedInstancesCanBeDeletedOnce) {
  char identity32[PLATFORM_INSTANCE_SIZE];
  EXPECT_EQ(vcorDbAddView(DBVIEW_TIME_POLICY, "IGD", identity32), kOk);
  EXPECT_STREQ(identity32, "IGD.TimePolicy1");
  EXPECT_EQ(vcorDbDelView(DBVIEW_TIME_POLICY, identity32), kOk);
  EXPECT_EQ(vcorDbDelView(DBVIEW_TIME_POLICY, identity32), kUnknownInstance);
}

TEST_F(ConfigDatabaseTest, PlatformThatCopiesWholePathsSeesWhatLiesBehindTheirEnd) {
  const Habit copiesWholePaths(&Habits::copiesWholePaths);
  store().create<GatewayIdentityView>("IGD");
  char path[PLATFORM_INSTANCE_SIZE] = "IGD";
  EXPECT_EQ(vcorDbGetView(DBVIEW_GATEWAY_IDENTITY, path, &identity.view), kOk);
  path[PLATFORM_INSTANCE_SIZE - 1] = 'x';
  expectComplaint("does not lie in 32 zeroed bytes");
  EXPECT_EQ(vcorDbSetView(DBVIEW_GATEWAY_IDENTITY, path, &identity.view), kBadRequest);
}

}  // namespace
}  // namespace gateway
