// pmapi: stands in for the daemon. Calls the library's handlers on a virtual gateway, JSON in and
// JSON out.
#include "gateway/profile.hpp"
#include "gateway/temporary_root.hpp"
#include "tools/command/listing.hpp"
#include "tools/command/output.hpp"
#include "tools/command/subcommands.hpp"
#include "tools/command/transcript.hpp"
#include "tools/session/layout_listing.hpp"
#include "tools/session/session.hpp"

namespace command {
namespace {

struct Request {
  Options options;
  Target target;
  bool verbose = false;
  bool json = false;
  bool layouts = false;
  bool schema = false;
};

int list(const Request &request) {
  const std::string &object = request.target.object;
  if (request.schema) {
    std::cout << gateway::profileSchema().dump(1) << '\n';
  } else if (request.layouts) {
    std::cout << layoutsAsJson().dump(2) << '\n';
  } else if (request.json) {
    std::cout << listingAsJson(object).dump(2) << '\n';
  } else {
    std::cout << listing(object, request.verbose || !object.empty());
  }
  return kExitOk;
}

int call(const Request &request) {
  const Target &target = request.target;
  const Json arguments = records::parseJson(target.arguments, "JSON");
  const Object &object = findObject(target.object);
  checkArguments(object, findMethod(object, target.method), arguments);
  Session session(request.options);
  const Answer answer = session.call(target.object, target.method, arguments);
  printAnswer(request.options.showSecrets ? answer.full : answer.shown, request.options.table);
  const bool complete = session.close();
  return answer.failed || !complete ? kExitFailed : kExitOk;
}

int run(const Request &request) {
  Session session(request.options);
  const Playing playing = request.target.record ? Playing::kRecord : Playing::kCheck;
  const bool asExpected = playFile(request.target.file, playing, request.options, session);
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
  addPrinting(app, options);
}

}  // namespace
}  // namespace command

int main(int argc, char **argv) {
  using namespace command;
  gateway::removeTemporaryRootOnSignals();
  Request request;
  CLI::App app("Calls the handlers of libpmapi.so on a virtual gateway.", "pmapi");
  const Subcommands subcommands = addSubcommands(app, request.target);
  subcommands.list->add_flag("-v,--verbose", request.verbose, "Methods, arguments and answers");
  subcommands.list->add_flag("--json", request.json, "The same for programs");
  subcommands.list->add_flag("--layouts", request.layouts, "The platform's views and records");
  subcommands.list->add_flag("--schema", request.schema,
                             "What a gateway profile may hold, as a JSON schema");
  addOptions(app, request.options);
  return runProgram(app, argc, argv, [&] {
    if (subcommands.list->parsed()) return list(request);
    return subcommands.call->parsed() ? call(request) : run(request);
  });
}
