// What a finished program needs of the machine that it runs on: packages of the system, told by the words
// that the program uses.
#pragma once

#include <vector>

#include "image/packed_program.h"
#include "runtime/windows_libraries.h"

namespace tessera {

// In the order in which a program meets them.
std::vector<NeededPackage> NeedsOf(const PackedProgram& program);

// Whether the library can be loaded on this machine, or is a part of the system that lies where parts do.
bool IsOnThisMachine(const NeededPackage& needed);

}  // namespace tessera
