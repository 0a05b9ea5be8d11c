#include "system/transfer_progress.h"

#include <string_view>
#include <utility>

namespace tessera {

namespace {

// A transfer that takes less needs no line.
constexpr std::chrono::milliseconds kLong{500};
constexpr std::chrono::milliseconds kBetween{200};
constexpr std::string_view kLineStart = "\r\033[K";

}  // namespace

TransferProgress::TransferProgress(std::string name, Teller tell)
    : name_(std::move(name)), tell_(std::move(tell)), next_(Clock::now() + kLong) {}

TransferProgress::~TransferProgress() {
  if (isShown_) tell_(kLineStart);
}

void TransferProgress::Show(const FtpProgress& progress) {
  constexpr std::uint64_t kKilobyte = 1024;
  if (!tell_ || Clock::now() < next_) return;
  next_ = Clock::now() + kBetween;
  isShown_ = true;
  std::string line = std::string(kLineStart) + name_ + ": ";
  if (progress.whole > 0) line += std::to_string(progress.done * 100 / progress.whole) + "%, ";
  tell_(line + std::to_string(progress.done / kKilobyte) + " KB");
}

}  // namespace tessera
