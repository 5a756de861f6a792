#include "gateway/ubusfilter.hpp"

#include <nlohmann/json.hpp>

#include "gateway/command_line.hpp"
#include "platform/host.h"
#include "tests/support/gateway_test.hpp"

namespace gateway {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Words = std::vector<std::string>;

constexpr char kMac[] = "A1:B2:C3:D4:E5:F6";

std::string rule(const std::string &operation, const std::string &rest) {
  return "iptables " + operation + " ubusfilter -m mac --mac-source " + kMac +
         " -m urlfilter --urlkey " + rest;
}

class FilterRulesTest : public GatewayTest {
 protected:
  FilterRulesTest() { loadProfile(R"({"ubusfilter": {}})"); }
  static int32_t run(const std::string &line) {
    return PcStartProgram("iptables", line.c_str(), 0, 0);
  }
};

using CommandLineTest = GatewayTest;

TEST_F(CommandLineTest, IsSplitAsAShellWould) {
  const std::pair<const char *, std::optional<Words>> cases[] = {
      {"", Words{}},
      {" a  b\tc ", Words{"a", "b", "c"}},
      {R"(a "b c" 'd "e')", Words{"a", "b c", "d \"e"}},
      {R"("" x"y"'z')", Words{"", "xyz"}},
      {R"("a\"b\\c\d" e\ f)", Words{"a\"b\\c\\d", "e f"}},
      {R"("; | & < > ( ) * #")", Words{"; | & < > ( ) * #"}},
      {R"("open)", std::nullopt},
      {"'open", std::nullopt},
      {"a\\", std::nullopt},
  };
  for (const auto &[line, words] : cases) EXPECT_EQ(splitCommandLine(line), words) << line;
  for (const char *line : {"a;b", "a|b", "a&", "a>b", "$x", "\"$x\"", "\"`x`\"", "*", "a\nb"}) {
    EXPECT_THROW(splitCommandLine(line), Refusal) << line;
  }
}

TEST_F(FilterRulesTest, RulesAreAddedInsertedAndDeleted) {
  EXPECT_EQ(run(rule("-A", "\"a b\" -j DROP ")), 0);
  EXPECT_EQ(run(rule("-A", "c")), 0);
  EXPECT_EQ(run(rule("-I", "first -j DROP")), 0);
  EXPECT_EQ(run(rule("-D", "c -j DROP")), 1) << "another target is another rule";
  EXPECT_EQ(run(rule("-D", "\"a b\" -j DROP")), 0);
  const std::string mac = "a1:b2:c3:d4:e5:f6";
  EXPECT_THAT(ubusfilter().ipv4,
              ElementsAre(FilterRule{mac, "first", "DROP"}, FilterRule{mac, "c", ""}));
  EXPECT_THAT(ubusfilter().ipv6, IsEmpty());

  const Json saved = gateway().save();
  gateway().load(saved);
  EXPECT_EQ(gateway().save().dump(), saved.dump());
  EXPECT_EQ(ubusfilter().ipv4.size(), 2u);
}

TEST_F(FilterRulesTest, WhatIsNoRuleIsRefused) {
  const std::pair<std::string, int32_t> cases[] = {
      {rule("-A", "\"open"), 2},
      {rule("-A", "a -j"), 2},
      {rule("-A", "a -j DRO"), 1},
      {rule("-A", "a --urlkey b"), 2},
      {rule("-A", "a -m comment"), 2},
      {rule("-A", "a -D ubusfilter"), 2},
      {"iptables -A INPUT -m mac --mac-source " + std::string(kMac), 1},
      {"iptables -A ubusfilter --mac-source " + std::string(kMac), 2},
      {"iptables -A ubusfilter -m mac --mac-source A1B2C3D4E5F6", 2},
      {"iptables -m mac --mac-source " + std::string(kMac), 2},
  };
  for (const auto &[line, status] : cases) EXPECT_EQ(run(line), status) << line;
  for (const std::string &line :
       {rule("-A", "a b c"), rule("-A", "a --comment x"), std::string("ip6tables -A ubusfilter")}) {
    EXPECT_EQ(run(line), 2) << line;
  }
  expectComplaint("an argument that no rule is made of: b");
  expectComplaint("an argument that no rule is made of: --comment");
  expectComplaint("does not begin with its program's name");
  ubusfilter().exists = false;
  EXPECT_EQ(run(rule("-A", "a")), 1) << "nobody has made the chain";
  EXPECT_THAT(ubusfilter().ipv4, IsEmpty());
}

TEST_F(CommandLineTest, ChainWithoutRulesIsKeptByASavedGateway) {
  gateway().load({{"ubusfilter", {{"ipv4", Json::array()}}}});
  gateway().load(gateway().save());
  EXPECT_TRUE(ubusfilter().exists);
  gateway().reset();
  EXPECT_FALSE(gateway().save().contains("ubusfilter"));
}

}  // namespace
}  // namespace gateway
