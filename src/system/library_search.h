// Which files a program may mean by the name of a library.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "values/run.h"

namespace tessera {

// What to ask the system's loader for, one after the other, in UTF-8. A name with a separator is a path. Any
// other is a file of the program's folder, then the name as it stands, then the library of that name in the
// loader's own folders, in its highest version: "z" and "libz.so" are both "libz.so.1". Nothing for the empty
// name.
std::vector<std::string> LibraryCandidates(const Run& run, std::string_view name);

}  // namespace tessera
