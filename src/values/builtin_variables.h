// The variables that every program finds declared, and their first values.
#pragma once

#include <cstdint>
#include <string>

#include "platform/user_folders.h"
#include "values/run.h"

namespace tessera {

// What the outside tells of them; program folder and runtime folder stand in the run.
struct BuiltinValues {
  UserFolders folders;
  std::int32_t fontCount = 0;
  std::string commandLine = {};
};

// Declares and fills them. The run's `ProgramFolderText` is trimmed on the way.
void DeclareBuiltinVariables(Run& run, const BuiltinValues& values);

}  // namespace tessera
