// The commands on texts: joining, cutting, searching, and texts of numbers.
#pragma once

#include "commands/command_table.h"

namespace tessera {

void AddTextCommands(CommandTable& table, Run& run);

}  // namespace tessera
