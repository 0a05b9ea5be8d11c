// The commands by which a program meets events: `Aguarde` lets them through, `Evento`, `TestaTecla` and
// `TestaMouse` tell what they left behind, `Temporizador` starts and stops the program's timers, and
// `CaptureJanela` and `DescaptureJanela` let the main window be dragged.
#pragma once

#include "commands/command_table.h"
#include "values/run.h"

namespace tessera {

struct WindowModel;

void BindEventCommands(CommandTable& table, WindowModel& windows);

}  // namespace tessera
