#include "gateway/temporary_root.hpp"

#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstddef>

namespace gateway {

namespace {

constexpr std::array kEndings = {SIGHUP,  SIGINT, SIGQUIT, SIGTERM, SIGABRT,
                                 SIGSEGV, SIGBUS, SIGFPE,  SIGILL};
constexpr size_t kLongestPath = 4096;
constexpr size_t kStack = 65536;

// A handler must not allocate: all that it needs lies ready.
char remembered[kLongestPath];
struct sigaction before[kEndings.size()];
alignas(std::max_align_t) char stack[kStack];

/// To walk a directory is not for a handler, but another process may.
void removeRemembered() {
  if (remembered[0] == '\0') return;
  const pid_t remover = ::fork();
  if (remover == 0) {
    ::execl("/bin/rm", "rm", "-rf", "--", remembered, static_cast<char *>(nullptr));
    ::_exit(127);
  }
  while (remover > 0 && ::waitpid(remover, nullptr, 0) < 0 && errno == EINTR) {
  }
}

void end(int signal) {
  removeRemembered();
  for (size_t i = 0; i < kEndings.size(); ++i) {
    if (kEndings[i] == signal) ::sigaction(signal, &before[i], nullptr);
  }
  // Blocked until this returns; then the signal does what it would have done.
  ::raise(signal);
}

}  // namespace

void rememberTemporaryRoot(const std::string &directory) {
  const size_t length = directory.copy(remembered, kLongestPath - 1);
  remembered[length] = '\0';
}

void removeTemporaryRootOnSignals() {
  // The stack may be what is used up.
  const stack_t alternative = {.ss_sp = stack, .ss_flags = 0, .ss_size = kStack};
  ::sigaltstack(&alternative, nullptr);
  struct sigaction ending = {};
  ending.sa_handler = end;
  ending.sa_flags = SA_ONSTACK;
  for (size_t i = 0; i < kEndings.size(); ++i) {
    ::sigaction(kEndings[i], &ending, &before[i]);
    // What the shell told this process to ignore stays ignored.
    if (before[i].sa_handler == SIG_IGN) ::sigaction(kEndings[i], &before[i], nullptr);
  }
}

}  // namespace gateway
