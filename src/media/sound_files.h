// Files of sound: their length, what is heard in them, and the writing of one. Who knows their formats is a
// part of its own, loaded at the first of them.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string_view>

#include "platform/file_store.h"

namespace tessera::media {

// All sound that is recorded: 16 bits in two channels, 44,100 times a second.
inline constexpr int kSamplesPerSecond = 44'100;
inline constexpr int kChannels = 2;
inline constexpr int kBitsPerSample = 16;

struct SoundFrame {
  std::int16_t left;
  std::int16_t right;
};

// One file, heard from its start in the format of recordings, whatever its own is.
class SoundReader {
 public:
  virtual ~SoundReader() = default;
  virtual std::chrono::milliseconds Length() const = 0;
  // Fills the frames from the front; fewer, or none, at the file's end.
  virtual std::size_t Read(std::span<SoundFrame> frames) = 0;
};

// One file in the WAV format, written in the format of recordings.
class WaveWriter {
 public:
  virtual ~WaveWriter() = default;
  virtual bool Write(std::span<const SoundFrame> frames) = 0;
  // Behind the last frame; false where what was written is no whole file.
  virtual bool Finish() = 0;
};

class SoundFiles {
 public:
  virtual ~SoundFiles() = default;

  // Null for a file of a kind that is not known, or damaged. Kinds are told by what is in the file.
  virtual std::unique_ptr<SoundReader> Open(std::unique_ptr<StoredFile> file) = 0;

  // Takes the bytes of a file at their offsets; the system's error number.
  using Store = std::function<int(std::uint64_t offset, std::string_view bytes)>;
  // Null where not even the beginning could be written.
  virtual std::unique_ptr<WaveWriter> NewWave(Store store) = 0;
};

// The entry point of the part.
inline constexpr const char* kSoundFilesEntry = "TesseraSoundFiles";
using SoundFilesEntry = SoundFiles* (*)();

}  // namespace tessera::media
