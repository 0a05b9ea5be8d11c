#include "platform/termination.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <limits>

namespace tessera::termination {

namespace {

// A signal's handler reaches what is static, and nothing else. Lock-free, and written before a handler runs.
volatile std::sig_atomic_t asked = 0;
std::array<int, 2> wake = {-1, -1};

void OnSignal(int) {
  const int kept = errno;
  asked = 1;
  [[maybe_unused]] const ssize_t written = write(wake[1], "", 1);
  errno = kept;
}

void Take(int signal) {
  struct sigaction before {};
  if (sigaction(signal, nullptr, &before) != 0 || before.sa_handler == SIG_IGN) return;
  struct sigaction action {};
  action.sa_handler = OnSignal;
  action.sa_flags = signal == SIGPIPE ? 0 : static_cast<int>(SA_RESETHAND);
  sigemptyset(&action.sa_mask);
  sigaction(signal, &action, nullptr);
}

}  // namespace

void Install(bool brokenOutput) {
  if (wake[0] < 0 && pipe2(wake.data(), O_CLOEXEC | O_NONBLOCK) != 0) return;
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) Take(signal);
  if (brokenOutput) Take(SIGPIPE);
}

bool IsAsked() {
  return asked != 0;
}

int Descriptor() {
  return wake[0];
}

void Sleep(std::chrono::milliseconds time) {
  using Clock = std::chrono::steady_clock;
  const auto end = Clock::now() + time;
  for (auto left = time; left.count() > 0 && !IsAsked();
       left = std::chrono::ceil<std::chrono::milliseconds>(end - Clock::now())) {
    pollfd wish{.fd = wake[0], .events = POLLIN, .revents = 0};
    const auto most = std::min<std::chrono::milliseconds::rep>(left.count(), std::numeric_limits<int>::max());
    poll(&wish, 1, static_cast<int>(most));
  }
}

}  // namespace tessera::termination
