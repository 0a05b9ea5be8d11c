// A line that breaks while it is written to is an error of that writing, and no signal to the process.
#pragma once

#include <csignal>

namespace tessera::curlnet {

class QuietPipe {
 public:
  QuietPipe();
  ~QuietPipe();
  QuietPipe(const QuietPipe&) = delete;
  QuietPipe& operator=(const QuietPipe&) = delete;

 private:
  sigset_t before_{};
  bool wasWaiting_ = false;  // a signal of somebody else's
};

}  // namespace tessera::curlnet
