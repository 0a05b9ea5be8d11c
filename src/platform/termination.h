// The system's wish that this process ends: Ctrl+C, a polite kill, a terminal that is gone. It is granted as
// a person's closing of the main window is. A second wish of the same kind ends the process at once.
#pragma once

#include <chrono>

namespace tessera::termination {

// Takes the wishes from now on; those that the starter of the process has switched off stay so. With
// `brokenOutput` a reader of the output that goes away is one of them.
void Install(bool brokenOutput);

bool IsAsked();

// Becomes readable with the first wish, and stays so; -1 before `Install`.
int Descriptor();

// Sleeps, though no longer than until a wish comes.
void Sleep(std::chrono::milliseconds time);

}  // namespace tessera::termination
