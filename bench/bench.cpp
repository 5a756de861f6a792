// bench COUNT: prints instructions per call of every case, as the emulator's plugin counts them
// into the file COUNT. Ends with 1 when a case exceeds its limit or does not repeat to the
// instruction.
#include "bench/bench.hpp"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <cinttypes>
#include <cstdio>
#include <optional>
#include <string>

#include "bench/counter/instruction_count.hpp"
#include "bench/platform/process.hpp"
#include "bench/platform/recorder.hpp"
#include "platform/logger.h"

namespace bench {
namespace {

constexpr int kWarmUps = 3;
constexpr int kRepetitions = 15;
constexpr uint32_t kMostSpreadPercent = 5;

std::vector<Case> &allCases() {
  static std::vector<Case> cases;
  return cases;
}

std::vector<Case> &allSingles() {
  static std::vector<Case> singles;
  return singles;
}

struct Figure {
  uint32_t instructions;
  uint32_t spread;

  Figure &operator+=(const Figure &other) {
    instructions += other.instructions;
    spread += other.spread;
    return *this;
  }
};

struct Figures {
  Figure handler;
  Figure floor;
  bool failed;
};

/// Instructions of `work`: the median of some runs, and by how much they differ. Before counting it
/// runs a few times: by then symbols are bound, the heap is grown, and what is cached is cached.
template <class Before, class Work>
Figure instructionsOf(Before before, Work work) {
  const auto once = [&] {
    before();
    fflush(stdout);
    return rawInstructionsOf(work) - rawInstructionsOf([] {});
  };
  for (int i = 0; i < kWarmUps; ++i) once();
  std::array<uint32_t, kRepetitions> counts;
  std::generate(counts.begin(), counts.end(), once);
  std::sort(counts.begin(), counts.end());
  return {counts[kRepetitions / 2], counts.back() - counts.front()};
}

std::vector<Call> recordCalls(const Case &which, uint32_t items) {
  if (which.before != nullptr) which.before(items);
  recorder.start();
  which.handler(items);
  return recorder.stop();
}

bool isErrorLine(const Call &call) {
  const auto level = static_cast<int32_t>(call.arguments[3]);
  return call.function == reinterpret_cast<void *>(ProcUserLog) && level <= LOG_LEVEL_ERROR;
}

Figure floorOf(const Case &which, uint32_t items, const std::vector<Call> &calls) {
  const auto before = [&] {
    if (which.before != nullptr) which.before(items);
  };
  if (which.floor != nullptr) {
    return instructionsOf(before, [&] { which.floor(items); });
  }
  const BlockState blocks = saveBlocks();
  Figure floor = instructionsOf([&] { restoreBlocks(blocks); }, [&] { replay(calls); });
  restoreBlocks(blocks);
  floor.instructions -= replayOverhead(calls);
  if (which.besides != nullptr) {
    floor += instructionsOf(before, [&] { which.besides(items); });
  }
  return floor;
}

Figures measure(const Case &which, uint32_t items) {
  Answer::forgetAll();
  if (which.platform != nullptr) which.platform(items);
  const auto before = [&] {
    if (which.before != nullptr) which.before(items);
  };
  const Figure handler = instructionsOf(before, [&] { which.handler(items); });
  const std::vector<Call> calls = recordCalls(which, items);
  const bool failed = !which.logsErrors && std::any_of(calls.begin(), calls.end(), isErrorLine);
  return {handler, floorOf(which, items, calls), failed};
}

class Table {
 public:
  Table(FILE *out, const char *title, const char *measured) : out_(out) {
    fprintf(out_, "%-50s %10s %10s %7s %6s %10s %7s\n", title, measured, "floor", "ratio", "limit",
            "per item", "varies");
  }

  /// Prints a row; false when a figure is not what it may be.
  bool add(const std::string &name, const Figures &figures, uint32_t limitPercent,
           std::optional<double> perItem) {
    const uint64_t handler = figures.handler.instructions;
    const uint64_t floor = figures.floor.instructions;
    const uint32_t spread = std::max(figures.handler.spread, figures.floor.spread);
    const bool within = limitPercent == 0 || handler * 100 <= floor * limitPercent;
    const bool steady = uint64_t{spread} * 100 <= handler * kMostSpreadPercent;

    fprintf(out_, "%-50s %10" PRIu64 " %10" PRIu64 " %7.3f", name.c_str(), handler, floor,
            static_cast<double>(handler) / static_cast<double>(floor));
    printCell(6, 2, limitPercent == 0 ? std::nullopt : std::optional(limitPercent / 100.0));
    printCell(10, 1, perItem);
    printCell(7, 0, spread == 0 ? std::nullopt : std::optional<double>(spread));
    fprintf(out_, "%s%s%s\n", within ? "" : "  ABOVE ITS LIMIT", steady ? "" : "  UNSTEADY",
            figures.failed ? "  LOGS AN ERROR" : "");
    return within && steady && !figures.failed;
  }

 private:
  void printCell(int width, int digits, std::optional<double> value) {
    if (value) {
      fprintf(out_, " %*.*f", width, digits, *value);
    } else {
      fprintf(out_, " %*s", width, "");
    }
  }

  FILE *out_;
};

bool runCase(const Case &which, Table &table) {
  bool good = true;
  std::optional<Figures> first;
  const bool grows = !which.items.empty();
  for (const uint32_t items : grows ? which.items : std::vector<uint32_t>{0}) {
    const Figures figures = measure(which, items);
    std::optional<double> perItem;
    if (first) {
      const uint32_t more = figures.handler.instructions - first->handler.instructions;
      perItem = static_cast<double>(more) / (items - which.items.front());
    } else {
      first = figures;
    }
    std::string name = which.name;
    if (grows) name += ", " + std::to_string(items);
    good = table.add(name, figures, which.limitPercent, perItem) && good;
  }
  return good;
}

/// The handlers' own lines on standard output are part of what they cost, but not of the table.
FILE *keepStandardOutput() {
  FILE *table = fdopen(dup(STDOUT_FILENO), "w");
  if (table == nullptr || freopen("/dev/null", "w", stdout) == nullptr) return nullptr;
  return table;
}

int run(const char *countFile) {
  if (!openInstructionCount(countFile)) {
    fprintf(stderr, "bench: nothing counts instructions into %s: run me with scripts/bench.sh\n",
            countFile);
    return 2;
  }
  FILE *out = keepStandardOutput();
  if (out == nullptr) {
    perror("bench");
    return 2;
  }
  Table handlers(out, "instructions per call", "handler");
  bool good = true;
  for (const Case &which : allCases()) good = runCase(which, handlers) && good;
  fputc('\n', out);
  Table singles(out, "single answers and helpers", "function");
  for (const Case &which : allSingles()) good = runCase(which, singles) && good;
  fclose(out);
  return good ? 0 : 1;
}

}  // namespace

Cases::Cases(std::initializer_list<Case> cases) {
  allCases().insert(allCases().end(), cases.begin(), cases.end());
}

Singles::Singles(std::initializer_list<Case> cases) {
  allSingles().insert(allSingles().end(), cases.begin(), cases.end());
}

Singles::Singles(void (*platform)(uint32_t items), std::initializer_list<Single> singles) {
  for (const Single &single : singles) {
    allSingles().push_back({.name = single.name, .platform = platform, .handler = single.call});
  }
}

}  // namespace bench

int main(int argc, char **argv) {
  if (argc != 2) {
    fprintf(stderr, "usage: pmapi_bench COUNT\n");
    return 2;
  }
  return bench::run(argv[1]);
}
