#include "tools/command/trail.hpp"

#include <gtest/gtest.h>

#include <cstdio>

namespace command {
namespace {

using Lines = std::vector<std::string>;

TEST(Trail, DropsLinesAboveItsLevelAndKeepsTheirTexts) {
  Lines shown;
  Trail trail(4, false, [&](const std::string &line) { shown.push_back(line); });

  trail.log(4, "object.c", 12, "set", -5, "failed: %\xff\r\nhere\r\n");
  trail.log(5, "object.c", 13, "set", 0, "value\n");
  trail.printed("line:10");

  EXPECT_EQ(shown, Lines{"4 object.c:12 set (-5): failed: %\\xff\\r\\nhere"});
  EXPECT_EQ(trail.texts().size(), 3u);
}

TEST(Trail, MasksSecretsUnlessAsked) {
  for (const bool showSecrets : {false, true}) {
    Lines shown;
    Trail trail(5, showSecrets, [&](const std::string &line) { shown.push_back(line); });
    trail.secrets().insert("hunter22");
    trail.log(5, "object.c", 1, "get", 0, "pPwd:hunter22\n");
    trail.printed("value:hunter22");
    trail.note("> call(hunter22) = 0");
    const std::string text = showSecrets ? "hunter22" : "***";
    EXPECT_EQ(shown, (Lines{"5 object.c:1 get: pPwd:" + text, "- value:" + text,
                            "> call(" + text + ") = 0"}));
  }
}

TEST(Masked, HidesEveryOccurrenceAndNoMore) {
  const std::string longSecret(40, 'k');
  const struct {
    Secrets secrets;
    std::string line;
    std::string masked;
  } kCases[] = {
      {{"secret"}, "secret, secretive", "***, ***ive"},
      {{"pass", "passphrase"}, "a passphrase", "a ***"},
      {{"1"}, "pwd:1 100", "pwd:*** 100"},
      {{""}, "text", "text"},
      {{longSecret}, "cut " + longSecret.substr(0, 31), "cut ***"},
  };
  for (const auto &test : kCases) EXPECT_EQ(masked(test.line, test.secrets), test.masked);
}

TEST(OutputCapture, TakesWhatIsPrintedMeanwhile) {
  testing::internal::CaptureStdout();
  {
    OutputCapture capture;
    std::printf("one\ntwo");
    EXPECT_EQ(capture.take(), (Lines{"one", "two"}));
    std::printf("three\n");
    EXPECT_EQ(capture.take(), Lines{"three"});
    EXPECT_EQ(capture.take(), Lines{});
    std::printf("lost");
  }
  std::printf("after");
  std::fflush(stdout);
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "after");
}

}  // namespace
}  // namespace command
