// What is heard in a file, in the format of recordings.
#pragma once

#include <vector>

#include "sndsound/stored_sound.h"

namespace tessera::sndsound {

class Reader final : public media::SoundReader {
 public:
  // Null for a file that the library can't read, or must not be shown.
  static std::unique_ptr<Reader> Open(std::unique_ptr<StoredFile> file);

  std::chrono::milliseconds Length() const override;
  std::size_t Read(std::span<media::SoundFrame> frames) override;

 private:
  explicit Reader(std::unique_ptr<StoredFile> file) : bytes_(std::move(file)) {}

  // The file's next frame, in its own rate; false at the end.
  bool Next(media::SoundFrame& frame);

  Bytes bytes_;
  SF_INFO info_{};
  Sound sound_;
  std::vector<std::int16_t> samples_;  // read ahead
  std::size_t next_ = 0;
  // The next frame lies between these two of the file, so many parts behind the first.
  void Advance();
  media::SoundFrame before_{};
  media::SoundFrame behind_{};
  std::int64_t part_ = 0;
  enum class Place { Start, Within, AtLast, Behind } place_ = Place::Start;
};

}  // namespace tessera::sndsound
