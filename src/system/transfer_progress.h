// The line that tells a person at a terminal how far a long transfer is. Elsewhere nothing is written.
#pragma once

#include <chrono>
#include <string>

#include "system/ftp_client.h"

namespace tessera {

class TransferProgress {
 public:
  // `name` is the file's, in UTF-8.
  explicit TransferProgress(std::string name);
  // The line vanishes.
  ~TransferProgress();
  TransferProgress(const TransferProgress&) = delete;
  TransferProgress& operator=(const TransferProgress&) = delete;

  void Show(const FtpProgress& progress);

 private:
  using Clock = std::chrono::steady_clock;

  std::string name_;
  bool isTerminal_;
  bool isShown_ = false;
  Clock::time_point next_;
};

}  // namespace tessera
