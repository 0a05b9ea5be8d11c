// A program's life on the terminal: standard streams, no windows, no display library.
#pragma once

#include "runtime/program_start.h"

namespace tessera {

// Returns the exit status. With `answerCancel` boxes of OK and Cancel are answered Cancel.
int RunOnConsole(const ProgramStart& start, bool answerCancel);

}  // namespace tessera
