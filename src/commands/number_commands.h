// The commands on numbers: rounding, functions of analysis, other bases, chance, colours.
#pragma once

#include "commands/command_table.h"

namespace tessera {

void BindNumberCommands(CommandTable& table);

}  // namespace tessera
