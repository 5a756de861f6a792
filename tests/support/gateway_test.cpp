#include "tests/support/gateway_test.hpp"

#include <cstdio>
#include <cstring>
#include <fstream>
#include <nlohmann/json.hpp>
#include <sstream>

#include "gateway/host.hpp"
#include "gateway/library_calls.hpp"
#include "gateway/mesh.hpp"

namespace gateway {

void PrintTo(const LogLine &line, std::ostream *stream) {
  *stream << line.level << " " << line.function << " code " << line.code << ": "
          << ::testing::PrintToString(line.text);
}

namespace testing {

using ::testing::AllOf;
using ::testing::Contains;
using ::testing::Field;
using ::testing::Matcher;

Matcher<const std::vector<LogLine> &> HasLog(int32_t level, Matcher<std::string> text) {
  return Contains(
      AllOf(Field("level", &LogLine::level, level), Field("text", &LogLine::text, text)));
}

Matcher<const std::vector<LogLine> &> HasLogLine(const LogExpectation &expected) {
  return Contains(AllOf(Field("level", &LogLine::level, expected.level),
                        Field("function", &LogLine::function, expected.function),
                        Field("text", &LogLine::text, expected.text),
                        Field("code", &LogLine::code, expected.code)));
}

GatewayTest::GatewayTest() {
  gateway().reset();
}

void GatewayTest::TearDown() {
  for (const Fault &fault : gateway().boundary().unfiredFaults()) {
    ADD_FAILURE() << "a planned fault did not fire: " << toString(fault);
  }
  checkComplaints();
  if (leaksChecked_) checkLeaks();
}

void GatewayTest::checkComplaints() {
  std::vector<std::string> expected = expectedComplaints_;
  for (const std::string &complaint : gateway().takeComplaints()) {
    bool met = false;
    for (const std::string &part : expectedComplaints_) {
      if (complaint.find(part) == std::string::npos) continue;
      std::erase(expected, part);
      met = true;
    }
    EXPECT_TRUE(met) << "the platform complained: " << complaint;
  }
  EXPECT_THAT(expected, ::testing::IsEmpty()) << "the platform did not complain of this";
}

void GatewayTest::checkLeaks() {
  EXPECT_THAT(blocks().liveSizes(), ::testing::IsEmpty()) << "blocks were not given back";
  EXPECT_EQ(files().openStreams(), 0u);
  EXPECT_EQ(mesh().openHandles, 0u);
}

void GatewayTest::loadProfile(std::string_view json) {
  profile_ = json;
  restart();
}

void GatewayTest::loadExample(const std::string &fileName) {
  std::ifstream file(std::string(PMAPI_EXAMPLES_DIR "/") + fileName);
  ASSERT_TRUE(file) << fileName;
  std::ostringstream content;
  content << file.rdbuf();
  loadProfile(content.str());
}

void GatewayTest::restart() {
  gateway().reset();
  if (!profile_.empty()) gateway().load(Json::parse(profile_));
}

size_t GatewayTest::fail(const std::string &call, const std::string &match, int32_t answer,
                         uint32_t from, uint32_t times) {
  Fault fault{call, match, from, times};
  fault.answer = answer;
  return fail(fault);
}

size_t GatewayTest::fail(const std::string &call, const std::string &match) {
  return fail(Fault{call, match});
}

size_t GatewayTest::fail(Fault fault) {
  return gateway().boundary().addFault(std::move(fault));
}

std::vector<std::string> GatewayTest::trace(std::string_view call) {
  std::vector<std::string> lines;
  for (const Call &made : gateway().boundary().calls()) {
    if (call.empty() || made.name == call) lines.push_back(toString(made));
  }
  return lines;
}

void GatewayTest::forgetCalls() {
  gateway().boundary().clearCalls();
  gateway().clearLogs();
}

void GatewayTest::expectWords(const Row &row,
                              const std::vector<std::pair<uint32_t, int32_t>> &words) {
  for (const auto &[offset, value] : words) {
    int32_t word = 0;
    std::memcpy(&word, row.data() + offset, sizeof word);
    EXPECT_EQ(word, value) << "at " << offset;
  }
}

std::string GatewayTest::printedBy(const std::function<void()> &run) {
  ::testing::internal::CaptureStdout();
  run();
  std::fflush(stdout);
  return ::testing::internal::GetCapturedStdout();
}

uint32_t GatewayTest::healthyRun(const std::function<int32_t()> &handler, int32_t *status) {
  restart();
  if (prepare_) prepare_();
  const uint32_t before = gateway().boundary().fallibleCalls();
  *status = handler();
  return gateway().boundary().fallibleCalls() - before;
}

void GatewayTest::faultyRun(const std::function<int32_t()> &handler,
                            const std::function<void(const SweepRun &)> &check, SweepRun run) {
  SCOPED_TRACE("call " + std::to_string(run.failed) + " failing " +
               (run.once ? "once" : "and all after it"));
  restart();
  if (prepare_) prepare_();
  Fault planned{"*", "", run.failed, run.once ? 1 : Fault::kUnlimited};
  planned.failure = sweepFailure_;
  const size_t number = fail(planned);
  run.status = handler();
  EXPECT_GT(gateway().boundary().fault(number).fired, 0u) << "the planned fault did not fire";
  checkComplaints();
  if (leaksChecked_) checkLeaks();
  if (check) check(run);
}

uint32_t GatewayTest::sweepFaults(const std::function<int32_t()> &handler,
                                  const std::function<void(const SweepRun &)> &check) {
  int32_t healthy = 0;
  // What the library keeps for the life of its process is filled by the first run.
  healthyRun(handler, &healthy);
  const uint32_t calls = healthyRun(handler, &healthy);
  for (const bool once : {true, false}) {
    for (uint32_t failed = 1; failed <= calls; ++failed) {
      faultyRun(handler, check, {failed, once, 0});
      if (HasFatalFailure()) return calls;
    }
  }
  int32_t status = 0;
  EXPECT_EQ(healthyRun(handler, &status), calls) << "a run without faults makes other calls";
  EXPECT_EQ(status, healthy) << "the faults left something behind";
  std::printf("[   SWEEP  ] %u calls, %u faulty runs\n", calls, 2 * calls);
  return calls;
}

}  // namespace testing
}  // namespace gateway
