// The commands that reach the person and the clock: `Mensagem`, `EntraTexto`, `Aguarde`.
#pragma once

#include "commands/command_table.h"
#include "values/run.h"

namespace tessera {

void BindSystemCommands(CommandTable& table);

}  // namespace tessera
