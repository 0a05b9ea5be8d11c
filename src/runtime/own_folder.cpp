#include "runtime/own_folder.h"

#include "image/mapped_file.h"

namespace tessera {

std::filesystem::path OwnFolder() {
  // A removed executable reads "... (deleted)" here; its folder is the same.
  std::error_code error;
  return std::filesystem::read_symlink(kOwnExecutable, error).parent_path();
}

const std::vector<std::filesystem::path>& PartFolders() {
  static const std::vector<std::filesystem::path> folders = [] {
    const std::filesystem::path own = OwnFolder();
    return std::vector<std::filesystem::path>{own, own.parent_path() / "lib" / "tessera" / "parts",
                                              TESSERA_PARTS_INSTALLED, "/usr/lib/tessera/parts",
#ifdef TESSERA_PARTS_BUILT
                                              TESSERA_PARTS_BUILT
#endif
    };
  }();
  return folders;
}

std::filesystem::path SiblingRuntime() {
  return OwnFolder() / "tessera-runtime";
}

}  // namespace tessera
