// A file's bytes, mapped for reading.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace tessera {

class MappedFile {
 public:
  // Nothing where the file cannot be opened or mapped, or is no regular file.
  static std::optional<MappedFile> Open(const std::string& path);

  MappedFile(MappedFile&& other) noexcept;
  MappedFile& operator=(MappedFile&&) = delete;
  ~MappedFile();

  std::string_view bytes() const { return {static_cast<const char*>(address_), size_}; }

 private:
  MappedFile(void* address, std::size_t size) : address_(address), size_(size) {}

  void* address_;
  std::size_t size_;
};

// The running process's own executable, under whatever name; it opens even after a rename or a removal.
inline constexpr const char* kOwnExecutable = "/proc/self/exe";

}  // namespace tessera
