// The line that tells a person at a terminal how far a long transfer is.
#pragma once

#include <chrono>
#include <functional>
#include <string>
#include <string_view>

#include "system/ftp_client.h"

namespace tessera {

class TransferProgress {
 public:
  using Teller = std::function<void(std::string_view text)>;

  // `name` is the file's, in UTF-8. No teller, nobody reads along.
  TransferProgress(std::string name, Teller tell);
  // The line vanishes.
  ~TransferProgress();
  TransferProgress(const TransferProgress&) = delete;
  TransferProgress& operator=(const TransferProgress&) = delete;

  void Show(const FtpProgress& progress);

 private:
  using Clock = std::chrono::steady_clock;

  std::string name_;
  Teller tell_;
  bool isShown_ = false;
  Clock::time_point next_;
};

}  // namespace tessera
