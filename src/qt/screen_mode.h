// The screen's own interface for its mode.
#pragma once

#include <string>

#include "windows/screen.h"

namespace tessera {

// Changes the mode of the screen. Empty, or the reason why it can't, in the user's language.
std::string SetScreenMode(const VideoMode& mode);

}  // namespace tessera
