// The commands on dates and times. A date is a text, day first, or a number of days.
#pragma once

#include "commands/command_table.h"

namespace tessera {

void BindDateCommands(CommandTable& table);

}  // namespace tessera
