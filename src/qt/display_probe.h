// Is there a display? Asked before the window system is started, for it ends the process where it finds none.
#pragma once

#include <string>

namespace tessera {

// Empty when windows can be shown; else one line, in UTF-8, that tells why not. Where a session offers both
// X11 and Wayland it is X11 that will be used, for there a program may place its windows.
std::string FindDisplay();

}  // namespace tessera
