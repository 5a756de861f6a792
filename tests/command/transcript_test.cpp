#include "tools/command/transcript.hpp"

#include <gtest/gtest.h>

namespace command {
namespace {

TEST(Difference, NamesTheFirstPlaceThatDiffers) {
  const struct {
    const char *expected;
    const char *actual;
    const char *difference;
  } kCases[] = {
      {R"({"a":1})", R"({"a":1,"b":2})", ""},
      {R"({"a":[{"b":1}]})", R"({"a":[{"b":1,"c":2}]})", ""},
      {R"({"a":1})", R"({"a":2})", "a: expected 1, got 2"},
      {R"({"a":"1"})", R"({"a":1})", "a: expected \"1\", got 1"},
      {R"({"a":null})", R"({})", "a: expected null, got nothing"},
      {R"({"a":{"b":[1,2]}})", R"({"a":{"b":[1]}})", "a.b: expected 2 elements, got 1"},
      {R"({"a":[{"b":1}]})", R"({"a":[{"b":3}]})", "a[0].b: expected 1, got 3"},
      {"[]", "null", "expected [], got null"},
      {R"(["x"])", R"(["y"])", "[0]: expected \"x\", got \"y\""},
  };
  for (const auto &test : kCases) {
    EXPECT_EQ(difference(Json::parse(test.expected), Json::parse(test.actual)), test.difference);
  }
}

}  // namespace
}  // namespace command
