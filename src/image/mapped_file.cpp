#include "image/mapped_file.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <utility>

namespace tessera {

std::optional<MappedFile> MappedFile::Open(const std::string& path) {
  const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (file < 0) return std::nullopt;
  struct stat status {};
  const bool regular = fstat(file, &status) == 0 && S_ISREG(status.st_mode);
  const auto size = static_cast<std::size_t>(status.st_size);
  // An empty file cannot be mapped; its bytes are none.
  void* address = nullptr;
  if (regular && size > 0) address = mmap(nullptr, size, PROT_READ, MAP_PRIVATE, file, 0);
  close(file);
  if (!regular || address == MAP_FAILED) return std::nullopt;
  return MappedFile(address, size);
}

MappedFile::MappedFile(MappedFile&& other) noexcept
    : address_(std::exchange(other.address_, nullptr)), size_(std::exchange(other.size_, 0)) {}

MappedFile::~MappedFile() {
  if (address_ != nullptr) munmap(address_, size_);
}

}  // namespace tessera
