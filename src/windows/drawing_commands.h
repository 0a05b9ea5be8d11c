// Commands that draw straight on the current surface, and the one that reads a pixel of it.
#pragma once

#include "commands/command_table.h"
#include "values/run.h"
#include "windows/window_model.h"

namespace tessera {

void BindDrawingCommands(CommandTable& table, WindowModel& windows);

}  // namespace tessera
