// The commands that print into the current window, set its text cursor and font, and tell its size:
// `Escreva`, `Posicione`, `Cls`, `LimpaJanela`, `Fonte`, `AlturaJanela`, `LarguraJanela`.
#pragma once

#include "commands/command_table.h"
#include "values/run.h"

namespace tessera {

struct WindowModel;

void BindWindowCommands(CommandTable& table, WindowModel& windows);

}  // namespace tessera
