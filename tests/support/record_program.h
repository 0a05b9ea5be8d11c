// A core program with the record database in a folder.
#pragma once

#include <filesystem>
#include <string>

#include "support/core_program.h"
#include "support/temporary_folder.h"

namespace tessera::test {

class RecordProgram : public CoreProgram {
 public:
  // Paths of the program lie below `folder`.
  explicit RecordProgram(const std::filesystem::path& folder, bool quickOrders = true)
      : CoreProgram([=](Services& services) { services.quickOrders = quickOrders; }) {
    run.paths = PathMapping(run.host.files, folder.string(), folder.string());
  }
};

}  // namespace tessera::test
