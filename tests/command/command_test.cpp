// The command as its users meet it: a process with arguments, two streams and an exit status.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
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
  // `%` in a script stands for the command on the test's profile.
  int runScript(std::string script) const {
    const std::string command = PMAPI_COMMAND " --gateway '" + path("profile.json") + "'";
    for (size_t at; (at = script.find('%')) != std::string::npos;) script.replace(at, 1, command);
    const std::string line = "cd '" + directory_.string() + "'; exec 2>err >out; " + script;
    return WEXITSTATUS(std::system(line.c_str()));
  }
  Outcome runOnProfile(const std::string &arguments) const {
    return run("--gateway '" + path("profile.json") + "' " + arguments);
  }

  fs::path directory_;
};

TEST_F(Command, UsageErrorsAreOneLineAndStatusTwo) {
  const std::string notJson = write("broken.json", "{\"files\":");
  const std::string noPlace = write("place.json", "{\"views\":{\"DBVIEW_NONE\":{}}}");
  const std::string late = write("late.json", "{\"clock\":{\"uptime\":9223372036854775807}}");
  const std::string here = "'" + directory_.string() + "'";
  const struct {
    std::string arguments;
    std::string error;
  } kCases[] = {
      {"", "subcommand"},
      {"--colour list", "colour"},
      {"call config", "METHOD"},
      {"call confg get", "pmapi: confg: no such object"},
      {"call config fetch", "pmapi: config fetch: no such method"},
      {"call config get '{\"item\":'", "pmapi: JSON: not JSON at byte 9"},
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
      {"--gateway '" + late + "' call helpers GetUpTime",
       "clock.uptime: 9223372036854775807 is outside"},
      {"--gateway " + here + " call helpers GetUpTime", "cannot be read: Is a directory"},
      {"--state " + here + " call helpers GetUpTime", "no regular file"},
      {"--state /dev/full call helpers GetUpTime", "/dev/full: no regular file"},
      {"--root '" + notJson + "' call helpers GetUpTime",
       "broken.json/userconfig/: cannot be made"},
      {"run " + here, "cannot be read"},
      {"call config get \"$(printf '[%.0s' $(seq 300))\"",
       "pmapi: JSON: nested deeper than 100 levels"},
      {R"(call config get '{"item":"a","item":"b"}')",
       "pmapi: JSON: the member \"item\" stands twice"},
      {R"(call config get '{"item":1e999}')", "pmapi: JSON: a number is too large"},
      {R"(call config add '{"item":"a"}')", "pmapi: config add: value: missing argument"},
      {R"(call limit set '{"records":[{"deviceMac":"A1B2C3D4E5F6","TxRate":"1"}]}')",
       "pmapi: limit set: records[0].RxRate: missing argument"},
      {"--fail fopen@0 call helpers GetUpTime", "calls are counted from 1"},
      {"--fail pm_wlan_set_esaymesh call helpers GetUpTime", "is no call of the library"},
      {"--fail fopen=count:1 call helpers GetUpTime", "lists nothing"},
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
      Replaces the value on every line that matches, or appends the item if none does.
      in   item: text[32]
           value: text[4096]
           path: text[255], optional
           temporaryPath: text[255], optional
      out  status: int32
)")) << listing;
  const std::string json = run("list --json meshinfo").output;
  EXPECT_NE(json.find(R"("function": "pm_ubus_get_meshinfo")"), std::string::npos);
  EXPECT_NE(json.find(R"("secret": true)"), std::string::npos);
  const auto method = nlohmann::json::parse(run("list --json qos").output)[0]["methods"][1];
  EXPECT_EQ(method["examples"][0]["profile"], "home_router.json");
  EXPECT_EQ(method["examples"][0]["with"], nlohmann::json::object());
  EXPECT_EQ(method["examples"][0]["after"]["call"], "qos set");
  EXPECT_EQ(method["examples"][0]["after"]["with"]["rules"][0]["label"], "games");
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

TEST_F(Command, StateKeepsBytesThatAreNoText) {
  fs::create_directories(directory_ / "root/userconfig");
  write("root/userconfig/nexumd_cfgfile", "name=caf\xc3\nsampleInterval=\xfe\n");
  const std::string read = "call config get '{\"item\":\"sampleInterval\"}'";
  for (const char *options : {"--root root --state state.json ", "--state state.json "}) {
    ASSERT_EQ(runScript("% " + (options + read) + " >out"), 0) << this->read("err");
    EXPECT_EQ(this->read("out"), "{\"status\":0,\"value\":\"\\\\xfe\"}\n");
  }
  write("steps.jsonl",
        R"({"read":"/userconfig/nexumd_cfgfile","expect":["name=caf\\xc3","sampleInterval=\\xfe"]}
{"state":"/files/~1userconfig~1nexumd_cfgfile","expect":"name=caf\\xc3\nsampleInterval=\\xfe\n"})");
  EXPECT_EQ(runScript("% --state state.json run steps.jsonl >out"), 0) << this->read("err");
}

TEST_F(Command, StateOutlivesAWriteThatFails) {
  ASSERT_EQ(runScript("% --state state.json call config add '{\"item\":\"a\",\"value\":\"1\"}'"),
            0);
  const std::string before = read("state.json");
  // Each file fits the limit, the state does not.
  const std::string lines = "\",\"lines\":[\"" + std::string(2000, 'x') + "\"]}\n";
  write("big.jsonl", "{\"write\":\"/tmp/a" + lines + "{\"write\":\"/tmp/b" + lines);
  EXPECT_EQ(runScript("ulimit -f 5; % --state state.json run big.jsonl >/dev/null"), 2);
  EXPECT_EQ(read("state.json"), before);
  EXPECT_NE(read("err").find("state.json: cannot be written"), std::string::npos) << read("err");
  EXPECT_FALSE(fs::exists(path("state.json.new")) || fs::exists(path("state.json.lock")));
}

TEST_F(Command, CommandsThatShareAStateTakeTurns) {
  EXPECT_EQ(runScript(R"(for i in 1 2 3 4 5 6 7 8; do
    % --state state.json call config add '{"item":"item'$i'","value":"1"}' & done; wait)"),
            0);
  const std::string state = read("state.json");
  for (int i = 1; i <= 8; ++i) {
    EXPECT_NE(state.find("item" + std::to_string(i) + "=1"), std::string::npos) << i;
  }
}

TEST_F(Command, OutputThatCannotBeWrittenIsAnError) {
  write("steps.jsonl", "{\"call\":\"helpers GetUpTime\"}\n");
  for (const std::string work : {"list", "list --json", "--help", "call helpers GetUpTime",
                                 "run steps.jsonl", "run --record steps.jsonl"}) {
    // Nobody reads what goes to descriptor 4.
    for (const std::string output : {">/dev/full", ">&-", ">&4"}) {
      const std::string script =
          "rm -f pipe; mkfifo pipe; exec 3<>pipe 4>pipe 3<&-; % " + work + output;
      EXPECT_EQ(runScript(script), 2) << work << output;
      EXPECT_NE(read("err").find("standard output: cannot be written\n"), std::string::npos)
          << work << output << ": " << read("err");
    }
  }
}

TEST_F(Command, RootMayHoldFilesOfOthers) {
  fs::create_directories(directory_ / "root/other");
  fs::create_directories(directory_ / "root/userconfig");
  write("root/other/file", "x");
  write("root/\xff", "x");
  ASSERT_EQ(::mkfifo(path("root/userconfig/pipe").c_str(), 0600), 0);
  EXPECT_EQ(runScript("% --root root --state state.json call helpers GetUpTime"), 0) << read("err");
  EXPECT_EQ(read("state.json").find("other"), std::string::npos);

  fs::remove(path("root/userconfig/nexumd_cfgfile"));
  ASSERT_EQ(::mkfifo(path("root/userconfig/nexumd_cfgfile").c_str(), 0600), 0);
  EXPECT_EQ(runScript("timeout 20 % --root root call config get '{\"item\":\"a\"}'"), 2);
  EXPECT_NE(read("err").find("nexumd_cfgfile: no regular file"), std::string::npos) << read("err");
}

TEST_F(Command, PathOutsideTheGatewayIsRefused) {
  write("own", "a=1\n");
  EXPECT_EQ(runScript(R"(% call config add '{"item":"a","value":"2","path":"own"}' >out)"), 1);
  EXPECT_NE(read("err").find("not a path of the gateway"), std::string::npos) << read("err");
  EXPECT_EQ(read("own"), "a=1\n");
}

TEST_F(Command, SignalsLeaveNoTemporaryDirectory) {
  ASSERT_EQ(::mkfifo(path("steps").c_str(), 0600), 0);
  fs::create_directories(directory_ / "tmp");
  for (const std::string name : {"TERM", "HUP", "ABRT", "SEGV"}) {
    // The command waits for steps, with its files in place.
    runScript(
        "export TMPDIR=\"$PWD/tmp\"; % run steps & "
        "while [ -z \"$(ls tmp/*/userconfig 2>/dev/null)\" ]; do sleep 0.05; done; "
        "kill -" +
        name + " $!; wait $!");
    EXPECT_TRUE(fs::is_empty(path("tmp"))) << name << ": " << read("err");
  }
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
      {R"({"advance":1,"expect":1})", R"(:1: expect: not with "advance")"},
      {R"({"call":"helpers GetUpTime","expect":1})", ":1: expect: an answer is an object"},
      {R"({"call":"helpers GetUpTime","read":"/tmp/a"})", R"(:1: read: a step beside "call")"},
      {R"({"read":"/tmp/a","trail":["x"]})", R"(:1: trail: not with "read")"},
      {R"({"advance":1,"advance":2})", R"(:1: the member "advance" stands twice)"},
      {R"({"read":"/tmp/a\u0000b"})", ":1: read: the text holds a zero"},
      {R"({"read":"/etc/passwd"})", ":1: /etc/passwd: not a path of the gateway"},
      {R"({"write":"/userconfig/","lines":[]})", "/userconfig/: no regular file"},
      {R"({"state":"/a~"})", R"(:1: "/a~" is no place in a profile)"},
      {R"({"fail":"fopen@1x0"})", ":1: --fail fopen@1x0: calls are counted from 1"},
      {"[]", ":1: expected a JSON object"},
      {R"({"advance":"soon"})", ":1: advance: expected a whole number, got a text"},
      {R"({"advance":-1})", ":1: advance: -1 is outside 0 to"},
      {R"({"read":1})", ":1: read: missing or of the wrong type"},
      {R"({"expect":1})", ":1: no such step"},
      {R"({"wait":1})", ":1: wait: no such member"},
      {R"({"call":"config"})", ":1: expected \"OBJECT METHOD\""},
      {R"({"call":"config get","with":{"item":5}})", ":1: config get: item: expected a text"},
  };
  const std::string deep = "{\"advance\":" + std::string(500000, '[');
  for (const auto &[line, error] :
       {std::pair(deep, ":1: nested deeper than 100 levels"),
        std::pair(std::string("{\"advance\":1}\0x", 15), ":1: not JSON")}) {
    const Outcome outcome = runOnProfile("run '" + write("steps.jsonl", line) + "'");
    EXPECT_EQ(outcome.status, 2) << outcome.errors;
    EXPECT_NE(outcome.errors.find(error), std::string::npos) << outcome.errors;
  }
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
