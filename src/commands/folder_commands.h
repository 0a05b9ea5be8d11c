// The commands on whole files and folders: searching, copying, deleting, making, and packages.
#pragma once

#include "commands/command_table.h"

namespace tessera {

void AddFolderCommands(CommandTable& table, Run& run);

}  // namespace tessera
