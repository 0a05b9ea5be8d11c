// A core program with the record database in a folder.
#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "support/core_program.h"

namespace tessera::test {

class RecordProgram : public CoreProgram {
 public:
  // Paths of the program lie below `folder`.
  explicit RecordProgram(const std::filesystem::path& folder, bool quickOrders = true)
      : CoreProgram([=](Services& services) { services.quickOrders = quickOrders; }) {
    run.paths = PathMapping(run.host.files, folder.string(), folder.string());
  }
};

inline std::string ReadFile(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

inline void WriteFile(const std::filesystem::path& path, std::string_view bytes) {
  std::ofstream(path, std::ios::binary | std::ios::trunc)
      .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

}  // namespace tessera::test
