// A watch over code of somebody else's: where it crashes, the process ends at once, and the person is told by
// whose fault.
#pragma once

#include <array>
#include <csignal>
#include <string>

namespace tessera {

class CrashWatch {
 public:
  // While it lives a crash writes `message` (UTF-8) on the error stream and ends the process with status 1.
  // What the program has written must be with the system before: nothing runs behind a crash. One watch at a
  // time.
  explicit CrashWatch(std::string message);
  ~CrashWatch();
  CrashWatch(const CrashWatch&) = delete;
  CrashWatch& operator=(const CrashWatch&) = delete;

 private:
  static constexpr std::array kSignals = {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGABRT, SIGSYS, SIGTRAP};

  std::string message_;
  std::array<struct sigaction, kSignals.size()> before_{};
  stack_t stackBefore_{};
};

}  // namespace tessera
