// Commands that draw straight on the current surface, and the one that reads a pixel of it.
#pragma once

#include "commands/command_table.h"
#include "values/run.h"

namespace tessera {

struct WindowModel;

void BindDrawingCommands(CommandTable& table, WindowModel& windows);

}  // namespace tessera
