// `Fontes`: the names of the fonts.
#pragma once

#include "commands/command_table.h"
#include "values/run.h"
#include "windows/display.h"

namespace tessera {

void BindFontCommands(CommandTable& table, Display& display);

}  // namespace tessera
