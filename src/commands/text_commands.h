// The commands on texts: joining, cutting, searching, and texts of numbers.
#pragma once

#include "commands/command_table.h"

namespace tessera {

void BindTextCommands(CommandTable& table);

}  // namespace tessera
