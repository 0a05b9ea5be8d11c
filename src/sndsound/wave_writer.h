// A WAV file in the format of recordings, written into a store.
#pragma once

#include "sndsound/stored_sound.h"

namespace tessera::sndsound {

class Writer final : public media::WaveWriter {
 public:
  // Null where the store refuses its beginning.
  static std::unique_ptr<Writer> Begin(media::SoundFiles::Store store);

  bool Write(std::span<const media::SoundFrame> frames) override;
  bool Finish() override;

 private:
  explicit Writer(media::SoundFiles::Store store) : bytes_(std::move(store)) {}

  Bytes bytes_;
  Sound sound_;
};

}  // namespace tessera::sndsound
