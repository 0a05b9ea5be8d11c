// A folder of its own for a test, gone at the test's end, and the whole files that tests read and write.
#pragma once

#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <system_error>

namespace tessera {

// Empty for a file that is missing.
inline std::string ReadBytes(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

inline void WriteBytes(const std::filesystem::path& path, std::string_view bytes) {
  std::ofstream(path, std::ios::binary | std::ios::trunc)
      .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "tessera-test-XXXXXX").string();
    path_ = ::mkdtemp(name.data());
  }
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  const std::filesystem::path& path() const { return path_; }
  std::string operator/(std::string_view name) const { return (path_ / name).string(); }

  // Writes a file below the folder, with the folders on its way, and returns its path.
  std::string Write(std::string_view name, std::string_view bytes) const {
    std::filesystem::create_directories((path_ / name).parent_path());
    WriteBytes(path_ / name, bytes);
    return *this / name;
  }
  std::string Read(std::string_view name) const { return ReadBytes(path_ / name); }
  bool Has(std::string_view name) const { return std::filesystem::exists(path_ / name); }

 private:
  std::filesystem::path path_;
};

}  // namespace tessera
