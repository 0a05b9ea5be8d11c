// `Fontes`: the names of the fonts.
#pragma once

#include "commands/command_table.h"
#include "values/run.h"
#include "windows/screen.h"

namespace tessera {

void BindFontCommands(CommandTable& table, Screen& screen);

}  // namespace tessera
