// How the tool gives a program to the runtime without writing it to the disk: the tool leaves an image in an
// unnamed file, and becomes the runtime with that file open. Only a runtime without a program of its own
// looks for one; a finished program's command line is the program's alone.
#pragma once

#include <optional>
#include <string>

#include "runtime/program_start.h"

namespace tessera {

// Replaces the running process by the runtime at `runtime`. Returns only where that fails, with the reason.
std::string BecomeRuntime(const std::string& runtime, const ProgramStart& start);

// The program that the tool left for this process; nothing where its arguments tell of none, or where what
// was left cannot be read.
std::optional<ProgramStart> TakeHandover(int argc, char** argv);

}  // namespace tessera
