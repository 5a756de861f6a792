// pmapi_bench COUNT MEASURED [--renew]: prints the instructions that each call of the library
// takes, as the emulator's plugin counts them into the file COUNT, beside the figures of the file
// MEASURED. Ends with 1 when a figure has grown, lacks, or exceeds its limit. With --renew it
// writes MEASURED.
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cinttypes>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <map>
#include <optional>
#include <string>

#include "bench/cases.hpp"
#include "bench/meter.hpp"
#include "gateway/gateway.hpp"
#include "platform/logger.h"

namespace bench {
namespace {

constexpr uint64_t kMostGrowthPercent = 2;

using Figures = std::map<std::string, uint32_t>;

struct Figure {
  uint32_t instructions;
  /// Lines of the error level: the platform's answers may have led the call astray.
  bool logsErrors;
};

/// Where a child process leaves its figure.
Figure *sharedFigure() {
  static void *page =
      mmap(nullptr, sizeof(Figure), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
  return static_cast<Figure *>(page);
}

[[noreturn]] void measureHere(const Case &which, const std::function<void()> &work) {
  gateway::Gateway &gateway = gateway::Gateway::current();
  int failed = 0;
  try {
    gateway.load(which.profile ? which.profile() : example("home_router.json"));
    fflush(stdout);
    work();
    const bool logsErrors = std::ranges::any_of(
        gateway.logs(), [](const auto &line) { return line.level <= platform::LOG_LEVEL_ERROR; });
    *sharedFigure() = {lastCall(), logsErrors};
  } catch (const std::exception &error) {
    fprintf(stderr, "bench: %s: %s\n", which.name.c_str(), error.what());
    failed = 1;
  }
  gateway.reset();
  _exit(failed);
}

/// In a process of its own: what one case leaves in the library, its heap or its lists is not there
/// in the next, and the same build always gives the same figure.
std::optional<Figure> measure(const Case &which, const std::function<void()> &work) {
  const pid_t child = fork();
  if (child == 0) measureHere(which, work);
  int status = 0;
  if (child < 0 || waitpid(child, &status, 0) != child || status != 0) return std::nullopt;
  return *sharedFigure();
}

class Table {
 public:
  Table(FILE *out, Figures last) : out_(out), last_(std::move(last)) {
    fprintf(out_, "%-50s %12s %8s %10s %6s %6s %10s\n", "call", "instructions", "change", "floor",
            "ratio", "limit", "per item");
  }

  void add(const Case &which, std::optional<Figure> found, std::optional<Figure> floor) {
    if (!found || (which.floor && !floor)) {
      fprintf(out_, "%-50s  FAILED\n", which.name.c_str());
      good_ = false;
      return;
    }
    const uint32_t figure = found->instructions;
    measured_[which.name] = figure;
    fprintf(out_, "%-50s %12" PRIu32, which.name.c_str(), figure);
    const bool grew = printChange(which.name, figure);
    const bool above = printRatio(which, figure, floor);
    printPerItem(which, figure);
    fprintf(out_, "%s%s%s\n", found->logsErrors ? "  logs errors" : "", grew ? "  GREW" : "",
            above ? "  ABOVE ITS LIMIT" : "");
    withinLimits_ = withinLimits_ && !above;
    good_ = good_ && !grew;
  }

  const Figures &measured() const { return measured_; }
  bool withinLimits() const { return withinLimits_; }

  /// Whether every figure stands beside one measured before, and none has grown.
  bool isAsMeasured() {
    for (const auto &[name, figure] : last_) {
      if (measured_.contains(name)) continue;
      fprintf(out_, "%-50s  IS MEASURED NO MORE\n", name.c_str());
      good_ = false;
    }
    return good_;
  }

 private:
  bool printChange(const std::string &name, uint32_t figure) {
    const auto last = last_.find(name);
    if (last == last_.end()) {
      fprintf(out_, " %8s", "new");
      good_ = false;
      return false;
    }
    const double change = 100.0 * (static_cast<double>(figure) - last->second) / last->second;
    if (figure == last->second) {
      fprintf(out_, " %8s", "");
    } else {
      fprintf(out_, " %+7.1f%%", change);
    }
    return uint64_t{figure} * 100 > uint64_t{last->second} * (100 + kMostGrowthPercent);
  }

  bool printRatio(const Case &which, uint32_t figure, const std::optional<Figure> &floor) {
    if (!floor) {
      fprintf(out_, " %10s %6s %6s", "", "", "");
      return false;
    }
    const double ratio = static_cast<double>(figure) / floor->instructions;
    const double limit = which.limitPercent / 100.0;
    fprintf(out_, " %10" PRIu32 " %6.3f %6.2f", floor->instructions, ratio, limit);
    return ratio > limit;
  }

  /// Counted from the family's first case.
  void printPerItem(const Case &which, uint32_t figure) {
    if (which.family.empty() || which.family != family_) {
      family_ = which.family;
      firstItems_ = which.items;
      firstFigure_ = figure;
      fprintf(out_, " %10s", "");
      return;
    }
    fprintf(out_, " %10.1f",
            (static_cast<double>(figure) - firstFigure_) / (which.items - firstItems_));
  }

  FILE *out_;
  const Figures last_;
  Figures measured_;
  bool good_ = true;
  bool withinLimits_ = true;
  std::string family_;
  uint32_t firstItems_ = 0;
  uint32_t firstFigure_ = 0;
};

/// Lines "NAME FIGURE"; names may have blanks.
Figures readFigures(const char *path) {
  Figures figures;
  std::ifstream file(path);
  for (std::string line; std::getline(file, line);) {
    const size_t end = line.rfind(' ');
    if (end != std::string::npos) {
      figures[line.substr(0, end)] = static_cast<uint32_t>(std::stoul(line.substr(end + 1)));
    }
  }
  return figures;
}

void writeFigures(const char *path, const Figures &figures) {
  std::ofstream file(path);
  for (const auto &[name, figure] : figures) file << name << ' ' << figure << '\n';
}

/// The handlers' own lines on standard output are part of what they cost, but not of the table.
FILE *keepStandardOutput() {
  FILE *table = fdopen(dup(STDOUT_FILENO), "w");
  if (table == nullptr || freopen("/dev/null", "w", stdout) == nullptr) return nullptr;
  // The stream's buffer is there before anybody is charged for it.
  puts("");
  return table;
}

int run(const char *countFile, const char *measuredFile, bool renew) {
  if (!openMeter(countFile)) {
    fprintf(stderr, "bench: nothing counts instructions into %s: run me with scripts/bench.sh\n",
            countFile);
    return 2;
  }
  FILE *out = keepStandardOutput();
  if (out == nullptr || sharedFigure() == MAP_FAILED) {
    perror("bench");
    return 2;
  }
  Table table(out, renew ? Figures() : readFigures(measuredFile));
  for (const Case &which : allCases()) {
    fflush(out);
    const std::optional<Figure> figure = measure(which, which.call);
    table.add(which, figure, which.floor ? measure(which, which.floor) : std::nullopt);
  }
  if (renew) writeFigures(measuredFile, table.measured());
  const bool good = (renew || table.isAsMeasured()) && table.withinLimits();
  fclose(out);
  return good ? 0 : 1;
}

}  // namespace
}  // namespace bench

int main(int argc, char **argv) {
  const bool renew = argc == 4 && strcmp(argv[3], "--renew") == 0;
  if (argc != 3 && !renew) {
    fprintf(stderr, "usage: pmapi_bench COUNT MEASURED [--renew]\n");
    return 2;
  }
  return bench::run(argv[1], argv[2], renew);
}
