// How the sound library reaches the bytes of a file: it reads those of a stored file, and writes into a
// store.
#pragma once

#include <sndfile.h>

#include <cstdint>
#include <memory>

#include "media/sound_files.h"

namespace tessera::sndsound {

struct CloseSound {
  void operator()(SNDFILE* sound) const { sf_close(sound); }
};
using Sound = std::unique_ptr<SNDFILE, CloseSound>;

// One file's bytes and the place in them. It outlives the sound that was opened on it, for the library writes
// when it closes.
class Bytes {
 public:
  explicit Bytes(std::unique_ptr<StoredFile> file);
  explicit Bytes(media::SoundFiles::Store store) : store_(std::move(store)) {}
  Bytes(const Bytes&) = delete;
  Bytes& operator=(const Bytes&) = delete;

  // Null where the library refuses. `info` is filled for reading, and says what to write.
  Sound Open(int mode, SF_INFO& info);

  // The first of the system's refusals; 0 for none.
  int error() const { return error_; }

 private:
  static sf_count_t Length(void* self);
  static sf_count_t Seek(sf_count_t offset, int whence, void* self);
  static sf_count_t Read(void* to, sf_count_t count, void* self);
  static sf_count_t Write(const void* from, sf_count_t count, void* self);
  static sf_count_t Tell(void* self);

  std::unique_ptr<StoredFile> file_;
  media::SoundFiles::Store store_;
  std::uint64_t length_ = 0;
  std::uint64_t place_ = 0;
  int error_ = 0;
};

}  // namespace tessera::sndsound
