// `ResolveFile`: the full path of a file that must exist.
#pragma once

#include <string>
#include <string_view>

#include "values/run.h"

namespace tessera {

// The path as a program writes it; a name without a folder lies in the program's one. Empty for the empty
// path, for a file that does not exist, and where the look itself fails.
std::string ResolveFile(const Run& run, std::string_view path);

}  // namespace tessera
