// A folder of its own for a test, gone at the test's end.
#pragma once

#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <string_view>

namespace tessera::test {

class TempFolder {
 public:
  TempFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "tessera-XXXXXX").string();
    path_ = ::mkdtemp(name.data());
  }
  ~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  std::string operator/(std::string_view name) const { return path_ + "/" + std::string(name); }
  const std::string& path() const { return path_; }

  void Write(std::string_view name, std::string_view bytes) const {
    std::filesystem::create_directories(std::filesystem::path(*this / name).parent_path());
    std::ofstream(*this / name, std::ios::binary)
        .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  }
  std::string Read(std::string_view name) const {
    std::ostringstream bytes;
    bytes << std::ifstream(*this / name, std::ios::binary).rdbuf();
    return bytes.str();
  }
  bool Has(std::string_view name) const { return std::filesystem::exists(*this / name); }

 private:
  std::string path_;
};

}  // namespace tessera::test
