// The commands that reach the person and the clock: `Mensagem`, `EntraTexto`, `Aguarde`.
#pragma once

#include <string_view>

#include "commands/command_table.h"
#include "values/run.h"

namespace tessera {

// What `EntraTexto` answers where the person gives up.
inline constexpr std::string_view kCancelledAnswer = "CANCELADO";

void BindSystemCommands(CommandTable& table);

}  // namespace tessera
