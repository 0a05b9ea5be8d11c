// What was recorded and not saved yet: plain frames in a file without a name, so that hours of them cost no
// memory.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "media/sound_files.h"
#include "platform/scratch_file.h"

namespace tessera::media {

// So many frames fit into a file that counts its bytes in 32 bits, its header among them.
inline constexpr std::uint64_t kMostFrames = (0xFFFF'FFFFU - 64) / sizeof(SoundFrame);

class Recording {
 public:
  // `most`: where it ends by itself.
  explicit Recording(std::uint64_t most = kMostFrames) : most_(most) {}

  // False where there is no room for all of them; then it has ended, and the next ones are dropped.
  bool Append(std::span<const SoundFrame> frames);
  bool HasEnded() const { return error_ != 0 || Frames() == most_; }
  // Why the disk took no more: the system's error number.
  int error() const { return error_; }

  std::uint64_t Frames() const { return file_.Length() / sizeof(SoundFrame); }
  // Up to `most` frames from one on; none where they can't be read.
  std::vector<SoundFrame> Read(std::uint64_t from, std::size_t most) const;

 private:
  std::uint64_t most_;
  ScratchFile file_;
  int error_ = 0;
};

}  // namespace tessera::media
