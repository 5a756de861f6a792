// pmapi: stands in for the daemon. Calls the library's handlers on a virtual gateway, JSON in and
// JSON out.
#include <CLI/CLI.hpp>
#include <fstream>
#include <iostream>

#include "tools/command/layout_listing.hpp"
#include "tools/command/listing.hpp"
#include "tools/command/output.hpp"
#include "tools/command/session.hpp"
#include "tools/command/transcript.hpp"

namespace command {
namespace {

enum Exit : int { kExitOk = 0, kExitFailed = 1, kExitUsage = 2 };

struct Request {
  Options options;
  std::string object;
  std::string method;
  std::string arguments = "{}";
  std::string file;
  bool verbose = false;
  bool json = false;
  bool layouts = false;
  bool record = false;
};

int list(const Request &request) {
  if (request.layouts) {
    std::cout << layoutsAsJson().dump(2) << '\n';
  } else if (request.json) {
    std::cout << listingAsJson(request.object).dump(2) << '\n';
  } else {
    std::cout << listing(request.object, request.verbose || !request.object.empty());
  }
  return kExitOk;
}

Json parseArguments(const std::string &text) {
  try {
    return Json::parse(text);
  } catch (const Json::parse_error &error) {
    throw UsageError("JSON",
                     "at byte " + std::to_string(error.byte) + " of the arguments: " + "not valid");
  }
}

int call(const Request &request) {
  const Json arguments = parseArguments(request.arguments);
  checkArguments(findObject(request.object), findMethod(findObject(request.object), request.method),
                 arguments);
  Session session(request.options);
  const Answer answer = session.call(request.object, request.method, arguments);
  printAnswer(request.options.showSecrets ? answer.full : answer.shown, request.options.table);
  const bool complete = session.close();
  return answer.failed || !complete ? kExitFailed : kExitOk;
}

int run(const Request &request) {
  std::ifstream file;
  if (request.file != "-") {
    file.open(request.file);
    if (!file) throw UsageError(request.file, "cannot be read");
  }
  Session session(request.options);
  const bool asExpected =
      playTranscript(request.file == "-" ? std::cin : file, request.file,
                     request.record ? Playing::kRecord : Playing::kCheck, request.options, session);
  const bool complete = session.close();
  return asExpected && complete ? kExitOk : kExitFailed;
}

void addOptions(CLI::App &app, Options &options) {
  app.add_option("--gateway", options.gateway, "Profile of the gateway (default: a home router)")
      ->type_name("FILE");
  app.add_option("--state", options.state,
                 "What the gateway became; read instead of the profile once it exists")
      ->type_name("FILE");
  app.add_option("--root", options.root, "Directory behind the gateway's /userconfig, /proc, /tmp")
      ->type_name("DIR");
  app.add_option("--fail", options.faults,
                 "CALL[/MATCH][@FROM[xTIMES]][=ANSWER]: make platform calls fail; repeatable")
      ->type_name("RULE")
      ->allow_extra_args(false);
  app.add_flag("--trace", options.trace, "Show each platform call on standard error");
  app.add_option("--log-level", options.logLevel,
                 "Log lines to show: 0 faults, 4 errors, 5 information, 7 detail, 8 all")
      ->type_name("N")
      ->capture_default_str();
  app.add_flag("--real-time", options.realTime, "Take the time that the library sleeps");
  app.add_flag("--table", options.table, "Print answers for the eye instead of as JSON");
  app.add_flag("--show-secrets", options.showSecrets, "Do not mask passwords and keys");
}

int parseAndRun(int argc, char **argv) {
  Request request;
  CLI::App app("Calls the handlers of libpmapi.so on a virtual gateway.", "pmapi");
  app.require_subcommand(1);
  app.fallthrough();
  addOptions(app, request.options);

  CLI::App *listCommand = app.add_subcommand("list", "Names objects, with -v their methods");
  listCommand->add_option("OBJECT", request.object);
  listCommand->add_flag("-v,--verbose", request.verbose, "Methods, arguments and answers");
  listCommand->add_flag("--json", request.json, "The same for programs");
  listCommand->add_flag("--layouts", request.layouts, "What a gateway profile may hold instead");

  CLI::App *callCommand = app.add_subcommand("call", "Calls a method once");
  callCommand->add_option("OBJECT", request.object)->required();
  callCommand->add_option("METHOD", request.method)->required();
  callCommand->add_option("JSON", request.arguments, "Arguments, as one JSON object");

  CLI::App *runCommand = app.add_subcommand("run", "Plays a file of steps in one process");
  runCommand->add_option("FILE", request.file, "Lines of JSON; - for standard input")->required();
  runCommand->add_flag("--record", request.record, "Print the file with the answers it got");

  try {
    app.parse(argc, argv);
  } catch (const CLI::Success &help) {
    return app.exit(help);
  } catch (const CLI::ParseError &error) {
    std::cerr << "pmapi: " << error.what() << " (pmapi --help)\n";
    return kExitUsage;
  }
  if (listCommand->parsed()) return list(request);
  return callCommand->parsed() ? call(request) : run(request);
}

}  // namespace
}  // namespace command

int main(int argc, char **argv) {
  try {
    return command::parseAndRun(argc, argv);
  } catch (const std::exception &error) {
    std::cerr << "pmapi: " << error.what() << '\n';
    return command::kExitUsage;
  }
}
