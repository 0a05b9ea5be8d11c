#include "platform/arriving_file.h"

#include <algorithm>
#include <cerrno>

namespace tessera {

ArrivingFile::~ArrivingFile() {
  if (!fresh_.empty()) files_.Remove(fresh_);
}

// What a process that was killed has left is begun anew; a file that somebody else is writing is passed over.
int ArrivingFile::Begin() {
  constexpr int kMostOthers = 100;
  if (file_) return 0;
  if (files_.IsFolder(place_)) return EISDIR;
  for (int i = 1; i <= kMostOthers; ++i) {
    const std::string path = place_ + ".parte" + (i == 1 ? "" : std::to_string(i));
    auto [file, error] = files_.Open(path, OpenAs::Update);
    if (error != 0) return error;
    if (file->TryLock() != 0) continue;
    fresh_ = path;
    file_ = std::move(file);
    return file_->Resize(0);
  }
  return EAGAIN;
}

int ArrivingFile::WriteAt(std::uint64_t offset, std::string_view bytes) {
  if (const int error = Begin()) return error;
  const std::size_t count = bytes.size();
  const int error = file_->WriteAt(offset, bytes);
  length_ = std::max(length_, offset + count - bytes.size());
  return error;
}

int ArrivingFile::Commit() {
  if (const int error = Begin()) return error;
  if (const int error = file_->Sync()) return error;
  if (const int error = files_.TakePlace(fresh_, place_)) return error;
  fresh_.clear();
  return 0;
}

}  // namespace tessera
