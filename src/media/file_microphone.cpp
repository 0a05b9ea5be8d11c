#include "media/file_microphone.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "platform/file_store.h"

namespace tessera::media {

bool FileMicrophone::Start(Hearing hearing) {
  if (!isOpen_) return false;
  hearing_ = std::move(hearing);
  since_ = host_.events.DispatchTime();
  return true;
}

// What was heard is told by the time that has gone by.
void FileMicrophone::Stop() {
  constexpr std::size_t kPortion = 16'384;
  const Hearing hearing = std::exchange(hearing_, nullptr);
  if (!hearing) return;
  const Milliseconds time = host_.events.DispatchTime() - since_;
  auto left = static_cast<std::uint64_t>(time.count()) * kSamplesPerSecond / 1000;
  auto [file, error] = host_.files.Open(file_, OpenAs::Read);
  const std::unique_ptr<SoundReader> sound = error == 0 ? sounds_.Open(std::move(file)) : nullptr;
  std::vector<SoundFrame> frames(kPortion);
  while (left > 0) {
    const auto now = static_cast<std::size_t>(std::min<std::uint64_t>(left, kPortion));
    const std::size_t heard = sound ? sound->Read({frames.data(), now}) : 0;
    std::fill(frames.begin() + static_cast<std::ptrdiff_t>(heard), frames.end(), SoundFrame{});
    hearing({frames.data(), now});
    left -= now;
  }
}

bool FileMicrophone::Close() {
  Stop();
  isOpen_ = false;
  return true;
}

}  // namespace tessera::media
