// pmapi-probe: calls the library's handlers on the platform that it is linked with. Log lines go
// where the platform's logger puts them; what handlers print goes to standard error.
#include "tools/command/listing.hpp"
#include "tools/command/output.hpp"
#include "tools/command/subcommands.hpp"
#include "tools/command/transcript.hpp"
#include "tools/probe/cjson_check.hpp"

namespace command {
namespace {

class Device : public Stage {
 public:
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

int call(const Target &target, const Printing &printing) {
  const Json arguments = records::parseJson(target.arguments, "JSON");
  const Answer answer = Device().call(target.object, target.method, arguments);
  printAnswer(printing.showSecrets ? answer.full : answer.shown, printing.table);
  return answer.failed ? kExitFailed : kExitOk;
}

int run(const Target &target, const Printing &printing) {
  Device device;
  const Playing playing = target.record ? Playing::kRecord : Playing::kCheck;
  return playFile(target.file, playing, printing, device) ? kExitOk : kExitFailed;
}

}  // namespace
}  // namespace command

int main(int argc, char **argv) {
  using namespace command;
  Target target;
  Printing printing;
  bool verbose = false;
  CLI::App app("Calls the handlers of libpmapi.so on the platform of this device.", "pmapi-probe");
  const Subcommands subcommands = addSubcommands(app, target);
  subcommands.list->add_flag("-v,--verbose", verbose, "Methods, arguments and answers");
  addPrinting(app, printing);
  return runProgram(app, argc, argv, [&] {
    if (const std::string difference = probe::cjsonDifference(); !difference.empty()) {
      std::cerr << "pmapi-probe: " << difference << '\n';
    }
    if (subcommands.call->parsed()) return call(target, printing);
    if (subcommands.run->parsed()) return run(target, printing);
    std::cout << listing(target.object, verbose || !target.object.empty());
    return static_cast<int>(kExitOk);
  });
}
