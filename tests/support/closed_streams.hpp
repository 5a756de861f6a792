#pragma once

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>

namespace gateway::testing {

/// A process without standard streams, as daemons often are. What it prints goes out at once, and
/// into whatever file has taken the place of descriptor 1.
class ClosedStandardStreams {
 public:
  ClosedStandardStreams() {
    fflush(stdout);
    setvbuf(stdout, nullptr, _IONBF, 0);
    for (int standard = 0; standard <= STDERR_FILENO; ++standard) {
      kept_[standard] = fcntl(standard, F_DUPFD_CLOEXEC, kFarAway);
      close(standard);
    }
  }
  ~ClosedStandardStreams() {
    for (int standard = 0; standard <= STDERR_FILENO; ++standard) {
      dup2(kept_[standard], standard);
      close(kept_[standard]);
    }
    setvbuf(stdout, nullptr, _IOLBF, BUFSIZ);
  }
  ClosedStandardStreams(const ClosedStandardStreams &) = delete;
  ClosedStandardStreams &operator=(const ClosedStandardStreams &) = delete;

  static bool anyOpen() {
    for (int standard = 0; standard <= STDERR_FILENO; ++standard) {
      if (fcntl(standard, F_GETFD) >= 0) return true;
    }
    return false;
  }

 private:
  static constexpr int kFarAway = 100;
  int kept_[STDERR_FILENO + 1];
};

}  // namespace gateway::testing
