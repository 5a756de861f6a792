// What the command and the probe have in common on the command line.
#pragma once

#include <CLI/CLI.hpp>
#include <iostream>
#include <string>

#include "records/json.hpp"
#include "tools/command/output.hpp"
#include "tools/command/stage.hpp"

namespace command {

using namespace catalogue;
using namespace records;

enum Exit : int { kExitOk = 0, kExitFailed = 1, kExitUsage = 2 };

/// What is to be listed, called or played.
struct Target {
  std::string object;
  std::string method;
  std::string arguments = "{}";
  std::string file;
  bool record = false;
};

struct Subcommands {
  CLI::App *list;
  CLI::App *call;
  CLI::App *run;
};

inline Subcommands addSubcommands(CLI::App &app, Target &target) {
  app.require_subcommand(1);
  app.fallthrough();
  const Subcommands added{app.add_subcommand("list", "Names objects, with -v their methods"),
                          app.add_subcommand("call", "Calls a method once"),
                          app.add_subcommand("run", "Plays a file of steps in one process")};
  added.list->add_option("OBJECT", target.object);
  added.call->add_option("OBJECT", target.object)->required();
  added.call->add_option("METHOD", target.method)->required();
  added.call->add_option("JSON", target.arguments, "Arguments, as one JSON object");
  added.run->add_option("FILE", target.file, "Lines of JSON; - for standard input")->required();
  added.run->add_flag("--record", target.record, "Print the file with the answers it got");
  return added;
}

inline void addPrinting(CLI::App &app, Printing &printing) {
  app.add_flag("--table", printing.table, "Print answers for the eye instead of as JSON");
  app.add_flag("--show-secrets", printing.showSecrets, "Do not mask passwords and keys");
}

/// Parses the command line, does `work` and tells on standard error what kept it from being done.
template <class Work>
int runProgram(CLI::App &app, int argc, char **argv, Work work) {
  keepStandardDescriptors();
  const std::string prefix = app.get_name() + ": ";
  int status = kExitUsage;
  try {
    app.parse(argc, argv);
    status = work();
  } catch (const CLI::Success &help) {
    status = app.exit(help);
  } catch (const CLI::ParseError &error) {
    std::cerr << prefix << error.what() << " (" << app.get_name() << " --help)\n";
  } catch (const std::exception &error) {
    std::cerr << prefix << reasonOf(error) << '\n';
  }
  if (isOutputWritten()) return status;
  std::cerr << prefix << "standard output: cannot be written\n";
  return kExitUsage;
}

}  // namespace command
