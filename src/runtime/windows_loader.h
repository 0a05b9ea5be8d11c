// Loads the part with the windows out of the runtime's own file.
#pragma once

#include <string>
#include <string_view>

#include "runtime/windows_part.h"

namespace tessera {

struct LoadedWindows {
  FoundWindows found;
  // In Portuguese (UTF-8), what the part needs of this machine and does not find, with the command that
  // brings it; empty where it was loaded, or no display was named.
  std::string lacking;
};

// Loads the part out of the file's bytes and opens the windows. Where the environment names no display that
// is the problem, and nothing is loaded; the libraries below the part are loaded with it, and never before.
LoadedWindows LoadWindows(std::string_view file, const WindowsCall& call);

// Shows a message (UTF-8) in a box by a program of the desktop, where there is one. It does not wait for the
// person.
void ShowByDesktop(const std::string& message);

}  // namespace tessera
