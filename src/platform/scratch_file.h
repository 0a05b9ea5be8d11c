// A file without a name, for more bytes than the memory should hold. It lies on a disk, and goes with its
// owner, be it by a death. Failures are the system's error numbers.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/descriptor.h"

namespace tessera {

class ScratchFile {
 public:
  // In the folder for large temporary files: `TMPDIR`, else /var/tmp.
  ScratchFile();

  // Why there is no file.
  int error() const { return error_; }

  std::uint64_t Length() const { return length_; }
  int Append(std::string_view bytes);
  // Appends up to `most` bytes from the offset on; none at the end.
  int ReadAt(std::uint64_t offset, std::size_t most, std::string& bytes) const;

 private:
  int error_ = 0;
  Descriptor file_;
  std::uint64_t length_ = 0;
};

}  // namespace tessera
