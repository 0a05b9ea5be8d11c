#include "sndsound/stored_sound.h"

#include <algorithm>
#include <cstdio>
#include <string>

namespace tessera::sndsound {

Bytes::Bytes(std::unique_ptr<StoredFile> file) : file_(std::move(file)) {
  error_ = file_->Size(length_);
}

Sound Bytes::Open(int mode, SF_INFO& info) {
  SF_VIRTUAL_IO calls{Length, Seek, Read, Write, Tell};
  return Sound(sf_open_virtual(&calls, mode, &info, this));
}

sf_count_t Bytes::Length(void* self) {
  return static_cast<sf_count_t>(static_cast<Bytes*>(self)->length_);
}

sf_count_t Bytes::Seek(sf_count_t offset, int whence, void* self) {
  Bytes& bytes = *static_cast<Bytes*>(self);
  const std::uint64_t from = whence == SEEK_CUR ? bytes.place_ : whence == SEEK_END ? bytes.length_ : 0;
  const sf_count_t to = static_cast<sf_count_t>(from) + offset;
  if (to < 0) return -1;
  bytes.place_ = static_cast<std::uint64_t>(to);
  return to;
}

sf_count_t Bytes::Read(void* to, sf_count_t count, void* self) {
  Bytes& bytes = *static_cast<Bytes*>(self);
  std::string read;
  while (read.size() < static_cast<std::size_t>(count)) {
    const std::size_t before = read.size();
    const int error =
        bytes.file_->ReadAt(bytes.place_ + before, static_cast<std::size_t>(count) - before, read);
    if (error != 0 || read.size() == before) break;
  }
  read.copy(static_cast<char*>(to), read.size());
  bytes.place_ += read.size();
  return static_cast<sf_count_t>(read.size());
}

sf_count_t Bytes::Write(const void* from, sf_count_t count, void* self) {
  Bytes& bytes = *static_cast<Bytes*>(self);
  if (bytes.error_ == 0) {
    bytes.error_ =
        bytes.store_(bytes.place_, {static_cast<const char*>(from), static_cast<std::size_t>(count)});
  }
  if (bytes.error_ != 0) return 0;
  bytes.place_ += static_cast<std::uint64_t>(count);
  bytes.length_ = std::max(bytes.length_, bytes.place_);
  return count;
}

sf_count_t Bytes::Tell(void* self) {
  return static_cast<sf_count_t>(static_cast<Bytes*>(self)->place_);
}

}  // namespace tessera::sndsound
