// The device that sound is recorded from.
#pragma once

#include <cstdint>
#include <functional>
#include <span>

#include "media/sound_files.h"

namespace tessera::media {

// Takes what is heard; in a thread of the microphone's own.
using Hearing = std::function<void(std::span<const SoundFrame> frames)>;

struct RecordingFormat {
  std::int32_t samplesPerSecond = 0;
  std::int32_t channels = 0;
  std::int32_t bitsPerSample = 0;
  std::int32_t alignment = 0;       // bytes of all channels at one time
  std::int32_t bytesPerSecond = 0;  // not computed yet while it is 0
};

// Each step tells whether it could be done.
class Microphone {
 public:
  virtual ~Microphone() = default;
  virtual bool Open() = 0;
  // Of an open device.
  virtual bool SetFormat(const RecordingFormat& format) = 0;
  // What is heard from now on goes to `hearing`.
  virtual bool Start(Hearing hearing) = 0;
  // When it returns nothing more comes.
  virtual void Stop() = 0;
  virtual bool Close() = 0;
};

}  // namespace tessera::media
