// All families of objects of the language, by their commands.
#pragma once

#include "commands/command_table.h"
#include "objects/object_frame.h"
#include "windows/display.h"

namespace tessera {

void AddObjectCommands(CommandTable& table, ObjectFrame& frame, Display& display);

}  // namespace tessera
