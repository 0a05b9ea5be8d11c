// The commands on whole files and folders: searching, copying, deleting, making, and packages.
#pragma once

#include "commands/command_table.h"

namespace tessera {

void BindFolderCommands(CommandTable& table);

}  // namespace tessera
