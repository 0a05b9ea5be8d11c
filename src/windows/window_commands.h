// The commands that print into the current window and set its text cursor and font: `Escreva`, `Posicione`,
// `Cls`, `LimpaJanela`, `Fonte`.
#pragma once

#include "commands/command_table.h"
#include "values/run.h"
#include "windows/window_model.h"

namespace tessera {

void AddWindowCommands(CommandTable& table, Run& run, WindowModel& windows);

}  // namespace tessera
