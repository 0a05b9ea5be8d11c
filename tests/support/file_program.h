// A run in a program folder of its own; drive letters lie in its folder "dados", what the machine keeps in
// its folder "config".
#pragma once

#include "support/library_program.h"
#include "support/temporary_folder.h"

namespace tessera::test {

// The folder stands before the run that lies in it.
struct OwnFolder {
  TemporaryFolder folder;
};

class FileProgram : public OwnFolder, public LibraryProgram {
 public:
  explicit FileProgram(const std::string& ports = "/dev/null/port", bool isFinished = true)
      : LibraryProgram([this, &ports, isFinished](Services& services) {
          services.machine = {
              .registry = RegistryFile(services.host.files, folder / "config/tessera/registro"),
              .startList = StartList(services.host.files, folder / "config/autostart"),
              .ports = HardwarePorts(ports),
              .isFinished = isFinished};
        }) {
    run.ProgramFolderText = FromUtf8Lossy(folder.path().string()) + "\\";
    run.RuntimeFolderText = run.ProgramFolderText;
    run.paths = PathMapping(run.host.files, folder.path(), folder / "dados");
  }
};

}  // namespace tessera::test
