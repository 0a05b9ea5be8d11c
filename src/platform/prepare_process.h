// What every program of this system sets right before it does anything else.
#pragma once

namespace tessera {

// Opens the null device on each of the descriptors 0 to 2 that the process was started without: the next file
// would take its number, and what is printed would go into that file. And takes a file that grows too large
// for an error of its writing, where the system would end the process. Called first of all by a main.
void PrepareProcess();

}  // namespace tessera
