// The command `MudaIcone`; what it does to the file is told in icon_changer.h.
#pragma once

#include "commands/command_table.h"

namespace tessera {

void BindIconCommands(CommandTable& table);

}  // namespace tessera
