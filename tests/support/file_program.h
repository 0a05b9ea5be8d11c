// A run with the command library in a program folder of its own; drive letters lie in its folder "dados".
#pragma once

#include "commands/file_commands.h"
#include "support/library_program.h"
#include "support/temp_folder.h"

namespace tessera::test {

class FileProgram : public LibraryProgram {
 public:
  FileProgram() : files(run) {
    run.ProgramFolderText = FromUtf8Lossy(folder.path()) + "\\";
    run.RuntimeFolderText = run.ProgramFolderText;
    run.paths = PathMapping(folder.path(), folder / "dados");
    files.Register(commands);
  }

  TempFolder folder;
  FileCommands files;
};

}  // namespace tessera::test
