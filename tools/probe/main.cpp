// pmapi-probe: calls the library's handlers on the platform that it is linked with. Log lines go
// where the platform's logger puts them; what handlers print goes to standard error.
#include <CLI/CLI.hpp>
#include <fstream>
#include <iostream>

#include "pmapi/uplinkinfo.h"
#include "tools/command/listing.hpp"
#include "tools/command/output.hpp"
#include "tools/command/transcript.hpp"

namespace command {
namespace {

enum Exit : int { kExitOk = 0, kExitFailed = 1, kExitUsage = 2 };

struct Request {
  Printing printing;
  std::string object;
  std::string method;
  std::string arguments = "{}";
  std::string file;
  bool record = false;
};

class Device : public Stage {
 public:
  Device() {
    // The library leaves it to the daemon to make the lists of samples empty.
    for (ListLink *head : {&g_net_sta_ifa_list, &g_net_sta_if6_list, &g_net_uplink_ifa_list,
                           &g_net_uplink_if6_list}) {
      head->next = head->prev = head;
    }
  }

  Answer call(const std::string &objectName, const std::string &methodName,
              const Json &arguments) override {
    const Object &object = findObject(objectName);
    const Method &method = findMethod(object, methodName);
    std::cout.flush();
    Secrets secrets;
    OutputCapture capture;
    const Answer answer = invoke(object, method, arguments, secrets);
    for (const std::string &line : capture.take()) std::cerr << line << '\n';
    return answer;
  }

  Json shown(const Json &value) const override { return value; }
};

int call(const Request &request) {
  const Json arguments = Json::parse(request.arguments, nullptr, false);
  if (arguments.is_discarded()) throw UsageError("JSON", "the arguments are not valid");
  const Answer answer = Device().call(request.object, request.method, arguments);
  printAnswer(request.printing.showSecrets ? answer.full : answer.shown, request.printing.table);
  return answer.failed ? kExitFailed : kExitOk;
}

int run(const Request &request) {
  std::ifstream file(request.file);
  if (!file) throw UsageError(request.file, "cannot be read");
  Device device;
  const Playing playing = request.record ? Playing::kRecord : Playing::kCheck;
  return playTranscript(file, request.file, playing, request.printing, device) ? kExitOk
                                                                               : kExitFailed;
}

int parseAndRun(int argc, char **argv) {
  Request request;
  CLI::App app("Calls the handlers of libpmapi.so on the platform of this device.", "pmapi-probe");
  app.require_subcommand(1);
  app.fallthrough();
  app.add_flag("--table", request.printing.table, "Print answers for the eye instead of as JSON");
  app.add_flag("--show-secrets", request.printing.showSecrets, "Do not mask passwords and keys");

  CLI::App *listCommand = app.add_subcommand("list", "Names objects, or one object's methods");
  listCommand->add_option("OBJECT", request.object);

  CLI::App *callCommand = app.add_subcommand("call", "Calls a method once");
  callCommand->add_option("OBJECT", request.object)->required();
  callCommand->add_option("METHOD", request.method)->required();
  callCommand->add_option("JSON", request.arguments, "Arguments, as one JSON object");

  CLI::App *runCommand = app.add_subcommand("run", "Makes the calls of a file in one process");
  runCommand->add_option("FILE", request.file, "Lines of JSON")->required();
  runCommand->add_flag("--record", request.record, "Print the file with the answers it got");

  try {
    app.parse(argc, argv);
  } catch (const CLI::Success &help) {
    return app.exit(help);
  } catch (const CLI::ParseError &error) {
    std::cerr << "pmapi-probe: " << error.what() << " (pmapi-probe --help)\n";
    return kExitUsage;
  }
  if (listCommand->parsed()) {
    std::cout << listing(request.object, !request.object.empty());
    return kExitOk;
  }
  return callCommand->parsed() ? call(request) : run(request);
}

}  // namespace
}  // namespace command

int main(int argc, char **argv) {
  try {
    return command::parseAndRun(argc, argv);
  } catch (const std::exception &error) {
    std::cerr << "pmapi-probe: " << error.what() << '\n';
    return command::kExitUsage;
  }
}
