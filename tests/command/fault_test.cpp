#include "tools/session/fault.hpp"

#include <gtest/gtest.h>

#include "records/json.hpp"

namespace command {
namespace {

TEST(ParseFault, ReadsEveryPart) {
  const boundary::Fault whole = parseFault("vcorDbGetView/DBVIEW_EASYMESH IGD@2x1=-5");
  EXPECT_EQ(whole.call, "vcorDbGetView");
  EXPECT_EQ(whole.match, "DBVIEW_EASYMESH IGD");
  EXPECT_EQ(whole.from, 2u);
  EXPECT_EQ(whole.times, 1u);
  EXPECT_EQ(whole.answer, -5);

  const boundary::Fault least = parseFault("fopen//userconfig/nexumd_cfgfile");
  EXPECT_EQ(least.call, "fopen");
  EXPECT_EQ(least.match, "/userconfig/nexumd_cfgfile");
  EXPECT_EQ(least.from, 1u);
  EXPECT_EQ(least.times, boundary::Fault::kUnlimited);
  EXPECT_FALSE(least.answer.has_value());

  EXPECT_EQ(parseFault("ctSgw_ssend_to_proxy=reply:3").replyStatus, 3);
  EXPECT_EQ(parseFault("ctSgw_ssend_to_proxy=length:2").replyLength, 2);
  EXPECT_EQ(parseFault("vcorDbQryView=count:-1").count, -1);
}

TEST(ParseFault, RefusesWhatIsNoRule) {
  for (const char *rule :
       {"", "=1", "fopen=", "fopen=x", "fopen=1.5", "fopen=2147483648", "fopen@=1", "fopen@1x=1",
        "fopen@0x=1", "fopen=length:65536", "fopen=reply:", "fopen@0", "fopen@1x0",
        "pm_wlan_set_esaymesh", "printf", "fopen=count:1", "*=count:1"}) {
    EXPECT_THROW(parseFault(rule), InputError) << rule;
  }
}

}  // namespace
}  // namespace command
