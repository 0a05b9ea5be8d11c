// A file that arrives piece by piece: it is written beside its place, and takes it when it is whole. Until
// then, and where it never becomes whole, what was in its place stays. Failures are the system's error
// numbers.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "platform/file_store.h"

namespace tessera {

class ArrivingFile {
 public:
  ArrivingFile(FileStore& files, std::string place) : files_(files), place_(std::move(place)) {}
  ~ArrivingFile();
  ArrivingFile(const ArrivingFile&) = delete;
  ArrivingFile& operator=(const ArrivingFile&) = delete;

  int Append(std::string_view bytes) { return WriteAt(length_, bytes); }
  // At an offset within what is written, or at its end.
  int WriteAt(std::uint64_t offset, std::string_view bytes);
  // Returns when the file stands in its place on the disk.
  int Commit();

 private:
  int Begin();

  FileStore& files_;
  std::string place_;
  std::string fresh_;  // empty while there is none beside the place
  std::unique_ptr<StoredFile> file_;
  std::uint64_t length_ = 0;
};

}  // namespace tessera
