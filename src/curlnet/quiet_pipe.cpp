#include "curlnet/quiet_pipe.h"

#include <ctime>

namespace tessera::curlnet {

namespace {

sigset_t PipeSignal() {
  sigset_t signals;
  sigemptyset(&signals);
  sigaddset(&signals, SIGPIPE);
  return signals;
}

bool IsWaiting() {
  sigset_t waiting;
  return sigpending(&waiting) == 0 && sigismember(&waiting, SIGPIPE) == 1;
}

}  // namespace

QuietPipe::QuietPipe() : wasWaiting_(IsWaiting()) {
  const sigset_t pipe = PipeSignal();
  pthread_sigmask(SIG_BLOCK, &pipe, &before_);
}

QuietPipe::~QuietPipe() {
  const sigset_t pipe = PipeSignal();
  const timespec atOnce{};
  if (!wasWaiting_ && IsWaiting()) sigtimedwait(&pipe, nullptr, &atOnce);
  pthread_sigmask(SIG_SETMASK, &before_, nullptr);
}

}  // namespace tessera::curlnet
