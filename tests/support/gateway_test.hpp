// The fixture of every test that runs on the virtual gateway: a fresh gateway per test, and the
// contract with it checked at the end.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "gateway/gateway.hpp"

namespace gateway {

void PrintTo(const LogLine &line, std::ostream *stream);

namespace testing {

/// EXPECT_THAT(logs(), HasLog(4, "list vlan fail!")): a line of exactly this text, or one that a
/// matcher such as HasSubstr accepts.
::testing::Matcher<const std::vector<LogLine> &> HasLog(int32_t level,
                                                        ::testing::Matcher<std::string> text);

struct LogExpectation {
  int32_t level;
  std::string function;
  std::string text;
  int32_t code = 0;
};

/// The same with the function's name and the code.
::testing::Matcher<const std::vector<LogLine> &> HasLogLine(const LogExpectation &expected);

/// One run of a fault sweep.
struct SweepRun {
  uint32_t failed; /**< the fallible call that failed first, from 1 */
  bool once;       /**< false: every call from that one on failed */
  int32_t status;  /**< what the handler answered */
};

class GatewayTest : public ::testing::Test {
 protected:
  GatewayTest();
  void TearDown() override;

  Gateway &gateway() { return Gateway::current(); }
  Store &store() { return gateway().store(); }
  Files &files() { return gateway().files(); }

  /// Starts over with a profile given as JSON text.
  void loadProfile(std::string_view json);
  /// Starts over with a profile of examples/.
  void loadExample(const std::string &fileName);
  /// Starts over with the profile loaded last, or with an empty gateway.
  void restart();

  /// Makes calls fail, see Fault; each fault must have fired when the test ends.
  size_t fail(const std::string &call, const std::string &match, int32_t answer, uint32_t from = 1,
              uint32_t times = Fault::kUnlimited);
  /// The same with the call's own natural failure.
  size_t fail(const std::string &call, const std::string &match = "");
  size_t fail(Fault fault);

  /// The calls so far, "NAME(KEY) = ANSWER" each.
  std::vector<std::string> trace() { return trace(""); }
  /// Only those of this name.
  std::vector<std::string> trace(std::string_view call);
  const std::vector<LogLine> &logs() { return gateway().logs(); }
  void forgetCalls();

  /// Words of a record by their offsets, {offset, value} each.
  static void expectWords(const Row &row, const std::vector<std::pair<uint32_t, int32_t>> &words);

  /// What `run` prints to standard output.
  static std::string printedBy(const std::function<void()> &run);

  /// The platform must complain of this during the test; any other complaint fails it.
  void expectComplaint(const std::string &part) { expectedComplaints_.push_back(part); }
  /// Blocks, streams and control connections must all be given back when the test ends.
  void expectNoLeaks() { leaksChecked_ = true; }

  /// Runs `handler` on a restarted gateway with its 1st, 2nd, ... fallible call failing, once and
  /// from then on, until a run needs no fault; every planned fault must fire. Returns how many
  /// calls a healthy run makes.
  uint32_t sweepFaults(const std::function<int32_t()> &handler,
                       const std::function<void(const SweepRun &)> &check = {});
  /// What the failing calls of a sweep answer, where that is a status; -1 unless set.
  void sweepWith(int32_t failure) { sweepFailure_ = failure; }
  /// Runs before every run of a sweep, after the gateway was restarted.
  void beforeEachRun(std::function<void()> prepare) { prepare_ = std::move(prepare); }

 private:
  uint32_t healthyRun(const std::function<int32_t()> &handler, int32_t *status);
  void faultyRun(const std::function<int32_t()> &handler,
                 const std::function<void(const SweepRun &)> &check, SweepRun run);
  void checkComplaints();
  void checkLeaks();

  std::string profile_;
  std::vector<std::string> expectedComplaints_;
  std::function<void()> prepare_;
  int32_t sweepFailure_ = kFailed;
  bool leaksChecked_ = false;
};

}  // namespace testing
}  // namespace gateway

using gateway::testing::GatewayTest;
using gateway::testing::HasLog;
using gateway::testing::HasLogLine;
