#include "runtime/own_folder.h"

#include "image/mapped_file.h"

namespace tessera {

std::filesystem::path OwnFolder() {
  // A removed executable reads "... (deleted)" here; its folder is the same.
  std::error_code error;
  return std::filesystem::read_symlink(kOwnExecutable, error).parent_path();
}

std::filesystem::path SiblingRuntime() {
  return OwnFolder() / "tessera-runtime";
}

}  // namespace tessera
