// A folder among the temporary files, for one piece of the tool's work.
#pragma once

#include <stdlib.h>

#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>

namespace tessera {

// Gone with the object, with all that is in it.
class Workshop {
 public:
  Workshop() : path_(std::filesystem::temp_directory_path().string() + "/tessera-XXXXXX") {
    if (mkdtemp(path_.data()) == nullptr) path_.clear();
  }
  ~Workshop() {
    std::error_code error;
    if (!path_.empty()) std::filesystem::remove_all(path_, error);
  }
  Workshop(const Workshop&) = delete;
  Workshop& operator=(const Workshop&) = delete;

  // False where no folder could be made.
  bool IsThere() const { return !path_.empty(); }
  std::filesystem::path operator/(std::string_view name) const { return std::filesystem::path(path_) / name; }

 private:
  std::string path_;
};

}  // namespace tessera
