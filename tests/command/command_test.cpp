// The command as its users meet it: a process with arguments, two streams and an exit status.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

namespace {

namespace fs = std::filesystem;

struct Outcome {
  int status;
  std::string output;
  std::string errors;
};

class Command : public testing::Test {
 protected:
  void SetUp() override {
    std::string name = (fs::temp_directory_path() / "pmapi-command-XXXXXX").string();
    ASSERT_NE(::mkdtemp(name.data()), nullptr);
    directory_ = name;
    write("profile.json", R"({"files":{"/userconfig/nexumd_cfgfile":["reportInterval=10"]}})");
  }
  void TearDown() override { fs::remove_all(directory_); }

  std::string path(const std::string &name) const { return (directory_ / name).string(); }

  std::string write(const std::string &name, const std::string &content) const {
    std::ofstream(directory_ / name) << content;
    return path(name);
  }

  std::string read(const std::string &name) const {
    std::ifstream file(directory_ / name);
    std::ostringstream content;
    content << file.rdbuf();
    return content.str();
  }

  // Arguments as for a shell.
  Outcome run(const std::string &arguments) const {
    const std::string line =
        PMAPI_COMMAND " " + arguments + " >'" + path("out") + "' 2>'" + path("err") + "'";
    const int status = std::system(line.c_str());
    return {WEXITSTATUS(status), read("out"), read("err")};
  }
  Outcome runOnProfile(const std::string &arguments) const {
    return run("--gateway '" + path("profile.json") + "' " + arguments);
  }

  fs::path directory_;
};

TEST_F(Command, UsageErrorsAreOneLineAndStatusTwo) {
  const std::string notJson = write("broken.json", "{\"files\":");
  const std::string noPlace = write("place.json", "{\"views\":{\"DBVIEW_NONE\":{}}}");
  const struct {
    std::string arguments;
    std::string error;
  } kCases[] = {
      {"", "subcommand"},
      {"--colour list", "colour"},
      {"call config", "METHOD"},
      {"call confg get", "pmapi: confg: no such object"},
      {"call config fetch", "pmapi: config fetch: no such method"},
      {"call config get '{\"item\":'", "pmapi: JSON: at byte"},
      {"call config get '[]'", "pmapi: config get: the arguments must be a JSON object"},
      {"call config get '{\"name\":\"x\"}'", "pmapi: config get: name: no such argument"},
      {"call config add '{\"item\":5}'", "pmapi: config add: item: expected a text, got a number"},
      {"call config add '{\"item\":\"12345678901234567890123456789012\"}'",
       "pmapi: config add: item: a text of 32 bytes does not fit 31"},
      {"list confg", "pmapi: confg: no such object"},
      {"run /none.jsonl", "pmapi: /none.jsonl: cannot be read"},
      {"--fail call=x call config get '{\"item\":\"x\"}'", "pmapi: --fail call=x: \"x\" is no"},
      {"--gateway '" + notJson + "' call helpers GetUpTime", "broken.json: not JSON at byte"},
      {"--gateway '" + noPlace + "' call helpers GetUpTime", "DBVIEW_NONE: no such view"},
      {"--gateway /none.json call helpers GetUpTime", "/none.json"},
  };
  for (const auto &test : kCases) {
    const bool named = test.arguments.starts_with("--gateway");
    const Outcome outcome = named ? run(test.arguments) : runOnProfile(test.arguments);
    EXPECT_EQ(outcome.status, 2) << test.arguments;
    EXPECT_EQ(outcome.output, "") << test.arguments;
    EXPECT_NE(outcome.errors.find(test.error), std::string::npos)
        << test.arguments << " said: " << outcome.errors;
    EXPECT_EQ(outcome.errors.find('\n') + 1, outcome.errors.size()) << outcome.errors;
  }
}

TEST_F(Command, StatusTellsWhatTheHandlerReturned) {
  const Outcome found = runOnProfile("call config get '{\"item\":\"reportInterval\"}'");
  EXPECT_EQ(found.status, 0);
  EXPECT_EQ(found.output, "{\"status\":0,\"value\":\"10\"}\n");
  EXPECT_EQ(found.errors, "");

  const Outcome missing = runOnProfile("call config get '{\"item\":\"sampleInterval\"}'");
  EXPECT_EQ(missing.status, 1);
  EXPECT_EQ(missing.output, "{\"status\":-1,\"value\":\"\"}\n");

  const Outcome value = runOnProfile("call helpers HexCharToVal '{\"digit\":\"b\"}'");
  EXPECT_EQ(value.status, 0) << "a value is no failure";
  EXPECT_EQ(value.output, "{\"value\":11}\n");
}

TEST_F(Command, LogLevelFiltersTheTrailAndPrintedLinesJoinIt) {
  const std::string call = "call config add '{\"item\":\"a\",\"value\":\"b\"}'";
  EXPECT_EQ(runOnProfile(call).errors, "");

  const Outcome outcome = runOnProfile("--log-level 5 " + call);
  EXPECT_EQ(outcome.output, "{\"status\":0}\n");
  EXPECT_NE(outcome.errors.find("- line:10, "), std::string::npos) << outcome.errors;
  EXPECT_NE(outcome.errors.find("5 object_nexumd_config_pmapi.c:"), std::string::npos);
}

TEST_F(Command, ListShowsMethodsWithTheirArgumentsAndAnswers) {
  EXPECT_NE(run("list").output.find("\nconfig  "), std::string::npos);
  const std::string listing = run("list -v config").output;
  EXPECT_TRUE(listing.starts_with(R"(config  (object_nexumd_config_pmapi.c)
  add  (pm_ubus_config_additem)
      Adds or replaces an item.
      in   item: text[32]
           value: text[4096]
           path: text[255], optional
           temporaryPath: text[255], optional
      out  status: int32
)")) << listing;
  const std::string json = run("list --json meshinfo").output;
  EXPECT_NE(json.find(R"("function": "pm_ubus_get_meshinfo")"), std::string::npos);
  EXPECT_NE(json.find(R"("secret": true)"), std::string::npos);
}

TEST_F(Command, TableShowsRowsForTheEye) {
  const std::string topology =
      R"({"topology information":[{"AL MAC":"a1","Device role":"Controller"},)"
      R"({"AL MAC":"a2","Device role":"Agent"}]})";
  write("profile.json", R"({"mesh":{"state":"up","topology":)" + topology + "}}");
  const std::string table = runOnProfile("--table call meshtopology get").output;
  EXPECT_NE(table.find("deviceNum  meshRole    alMac"), std::string::npos) << table;
  EXPECT_NE(table.find("2          Controller  a1"), std::string::npos) << table;
  EXPECT_NE(table.find("2          Agent       a2"), std::string::npos) << table;
}

TEST_F(Command, StateIsReadBackInsteadOfTheProfile) {
  const std::string state = "--state '" + path("state.json") + "' ";
  EXPECT_EQ(runOnProfile(state + "call config add '{\"item\":\"reportInterval\",\"value\":\"30\"}'")
                .status,
            0);
  const Outcome outcome = runOnProfile(state + "call config get '{\"item\":\"reportInterval\"}'");
  EXPECT_EQ(outcome.output, "{\"status\":0,\"value\":\"30\"}\n");
}

TEST_F(Command, RootHoldsTheGatewaysFiles) {
  const std::string root = "--root '" + path("root") + "' ";
  fs::create_directories(directory_ / "root/userconfig");
  write("root/userconfig/nexumd_cfgfile", "sampleInterval=5\n");
  EXPECT_EQ(runOnProfile(root + "call config delete '{\"item\":\"sampleInterval\"}'").status, 0);
  EXPECT_EQ(read("root/userconfig/nexumd_cfgfile"), "\n");
}

TEST_F(Command, TraceShowsPlatformCallsAndFaults) {
  const Outcome outcome =
      runOnProfile("--trace --fail fopen@1x1 call config get '{\"item\":\"reportInterval\"}'");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_NE(outcome.errors.find("> fopen(/userconfig/nexumd_cfgfile r) = NULL"), std::string::npos)
      << outcome.errors;
}

TEST_F(Command, FaultThatNeverFiredIsAFailure) {
  const Outcome outcome = runOnProfile("--fail vcorDbSave=-1 call helpers GetUpTime");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_NE(outcome.errors.find("fault never fired: vcorDbSave"), std::string::npos);
}

TEST_F(Command, SecretsAreMaskedUnlessAsked) {
  const std::string add =
      "--log-level 5 call config add '{\"item\":\"if3_password\",\"value\":\"hunter22\"}'";
  const std::string get = "--log-level 5 call config get '{\"item\":\"if3_password\"}'";
  write("profile.json", R"({"files":{"/userconfig/nexumd_cfgfile":["if3_password=opensesame"]}})");
  for (const std::string &call : {add, get}) {
    const Outcome masked = runOnProfile(call);
    const std::string all = masked.output + masked.errors;
    EXPECT_EQ(all.find("hunter22"), std::string::npos) << all;
    EXPECT_EQ(all.find("opensesame"), std::string::npos) << all;
    const Outcome open = runOnProfile("--show-secrets " + call);
    EXPECT_NE((open.output + open.errors).find("opensesame"), std::string::npos) << open.errors;
  }
}

TEST_F(Command, RunPlaysStepsInOneProcessAndComplainsOfWhatWasNotExpected) {
  const std::string steps = write("steps.jsonl", R"(# two items
{"call":"config add","with":{"item":"x","value":"1"},"expect":{"status":0},"trail":["now in"]}
{"read":"/userconfig/nexumd_cfgfile","expect":["reportInterval=10","x=2"]}
{"call":"config get","with":{"item":"y"}}
{"call":"config get","with":{"item":"x"},"trail":["item exist","no such line"]}
{"state":"/files/~1userconfig~1nexumd_cfgfile","expect":"reportInterval=10\nx=1\n"}
)");
  const Outcome outcome = runOnProfile("run '" + steps + "'");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.errors, steps + ":3: [1]: expected \"x=2\", got \"x=1\"\n" + steps +
                                ":4: status: expected 0, got -1\n" + steps +
                                ":5: trail: no line with \"no such line\"\n");
}

TEST_F(Command, RunRefusesStepsThatMakeNoSense) {
  const struct {
    const char *line;
    const char *error;
  } kCases[] = {
      {"nonsense", ":1: not JSON"},
      {"[]", ":1: expected a JSON object"},
      {R"({"advance":"soon"})", ":1: advance: expected a whole number, got a text"},
      {R"({"advance":-1})", ":1: advance: -1 is outside 0 to"},
      {R"({"read":1})", ":1: read: missing or of the wrong type"},
      {R"({"expect":1})", ":1: no such step"},
      {R"({"wait":1})", ":1: wait: no such member"},
      {R"({"call":"config"})", ":1: expected \"OBJECT METHOD\""},
      {R"({"call":"config get","with":{"item":5}})", ":1: config get: item: expected a text"},
  };
  for (const auto &test : kCases) {
    const std::string steps = write("steps.jsonl", std::string(test.line) + "\n");
    const Outcome outcome = runOnProfile("run '" + steps + "'");
    EXPECT_EQ(outcome.status, 2) << test.line;
    EXPECT_NE(outcome.errors.find(test.error), std::string::npos) << outcome.errors;
  }
}

TEST_F(Command, RecordedTranscriptPlaysAsExpected) {
  const std::string steps = write("steps.jsonl", R"(# kept
{"advance":60}
{"call":"helpers GetUpTime","expect":{"seconds":0}}
{"call":"config get","with":{"item":"reportInterval"}}
)");
  const Outcome recorded = runOnProfile("run --record '" + steps + "'");
  EXPECT_EQ(recorded.output, R"(# kept
{"advance":60}
{"call":"helpers GetUpTime","expect":{"seconds":3660}}
{"call":"config get","with":{"item":"reportInterval"},"expect":{"status":0,"value":"10"}}
)");
  write("steps.jsonl", recorded.output);
  EXPECT_EQ(runOnProfile("run '" + steps + "'").status, 0);
}

}  // namespace
