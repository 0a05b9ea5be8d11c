#include "system/crash_watch.h"

#include <unistd.h>

#include <cstddef>
#include <utility>

namespace tessera {

namespace {

constexpr int kCrashed = 1;

// What the handler reaches: it runs on a stack of its own, since the crash may be the end of the other one.
alignas(16) std::array<char, std::size_t{1} << 16> handlerStack;
const char* told = nullptr;
std::size_t toldLength = 0;

void OnCrash(int) {
  [[maybe_unused]] const ssize_t written = write(STDERR_FILENO, told, toldLength);
  _exit(kCrashed);
}

}  // namespace

CrashWatch::CrashWatch(std::string message) : message_(std::move(message)) {
  message_ += '\n';
  told = message_.data();
  toldLength = message_.size();
  const stack_t own{.ss_sp = handlerStack.data(), .ss_flags = 0, .ss_size = handlerStack.size()};
  sigaltstack(&own, &stackBefore_);
  struct sigaction action {};
  action.sa_handler = OnCrash;
  action.sa_flags = SA_ONSTACK;
  sigemptyset(&action.sa_mask);
  for (std::size_t i = 0; i < kSignals.size(); ++i) sigaction(kSignals[i], &action, &before_[i]);
}

CrashWatch::~CrashWatch() {
  for (std::size_t i = 0; i < kSignals.size(); ++i) sigaction(kSignals[i], &before_[i], nullptr);
  sigaltstack(&stackBefore_, nullptr);
}

}  // namespace tessera
