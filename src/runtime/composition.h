// The composition root: the one place that knows all rooms. It makes a run on a host, lists the command
// groups and fills the doors by which a low room calls a high one.
#pragma once

#include "platform/host.h"
#include "runtime/program_start.h"

namespace tessera {

class Display;

// The whole life of a program on a host and its display; returns the exit status of the process.
int RunProgram(const ProgramStart& start, const Host& host, Display& display);

}  // namespace tessera
