#include "media/recording.h"

#include <algorithm>
#include <cstring>

namespace tessera::media {

bool Recording::Append(std::span<const SoundFrame> frames) {
  if (HasEnded()) return false;
  const auto room = static_cast<std::size_t>(std::min<std::uint64_t>(frames.size(), most_ - Frames()));
  error_ = file_.Append({reinterpret_cast<const char*>(frames.data()), room * sizeof(SoundFrame)});
  return error_ == 0 && room == frames.size();
}

std::vector<SoundFrame> Recording::Read(std::uint64_t from, std::size_t most) const {
  std::string bytes;
  while (bytes.size() < most * sizeof(SoundFrame)) {
    const std::size_t before = bytes.size();
    const std::uint64_t offset = from * sizeof(SoundFrame) + before;
    if (file_.ReadAt(offset, most * sizeof(SoundFrame) - before, bytes) != 0 || bytes.size() == before) break;
  }
  std::vector<SoundFrame> frames(bytes.size() / sizeof(SoundFrame));
  std::memcpy(frames.data(), bytes.data(), frames.size() * sizeof(SoundFrame));
  return frames;
}

}  // namespace tessera::media
