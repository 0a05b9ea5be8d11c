// A program's life on the standard streams: what it prints and asks, and the script that answers.
#pragma once

#include "runtime/program_start.h"
#include "windows/script_author.h"
#include "windows/stage.h"

namespace tessera {

// Returns the exit status. Windows stay in memory, and no display library is loaded.
int RunOnConsole(const ProgramStart& start);

// The same with its windows on that stage. The input is a script, whoever writes it.
int RunOnStage(const ProgramStart& start, Stage& stage);

// The same with a script that a person writes at that stage, into the file that the start names.
int RunRecorded(const ProgramStart& start, Stage& stage, ScriptAuthor& author);

}  // namespace tessera
