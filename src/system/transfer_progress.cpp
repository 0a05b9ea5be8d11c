#include "system/transfer_progress.h"

#include <unistd.h>

#include <string_view>
#include <utility>

#include "platform/descriptor_io.h"

namespace tessera {

namespace {

// A transfer that takes less needs no line.
constexpr std::chrono::milliseconds kLong{500};
constexpr std::chrono::milliseconds kBetween{200};
constexpr std::string_view kLineStart = "\r\033[K";

void Write(std::string_view text) {
  WriteAll(STDERR_FILENO, text);
}

}  // namespace

TransferProgress::TransferProgress(std::string name)
    : name_(std::move(name)), isTerminal_(isatty(STDERR_FILENO) != 0), next_(Clock::now() + kLong) {}

TransferProgress::~TransferProgress() {
  if (isShown_) Write(kLineStart);
}

void TransferProgress::Show(const FtpProgress& progress) {
  constexpr std::uint64_t kKilobyte = 1024;
  if (!isTerminal_ || Clock::now() < next_) return;
  next_ = Clock::now() + kBetween;
  isShown_ = true;
  std::string line = std::string(kLineStart) + name_ + ": ";
  if (progress.whole > 0) line += std::to_string(progress.done * 100 / progress.whole) + "%, ";
  Write(line + std::to_string(progress.done / kKilobyte) + " KB");
}

}  // namespace tessera
