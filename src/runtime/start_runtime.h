// The start of `tessera-runtime`: finds the program to run and the host to run it on.
#pragma once

namespace tessera {

// Returns the exit status of the process. The command line is only offered to the program inside the file; a
// runtime without one takes what the tool left for it, or shows the notice that it is a runtime.
int StartRuntime(int argc, char** argv);

}  // namespace tessera
