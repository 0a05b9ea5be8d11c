// The desktop's wallpaper, changed by the desktop's own programs.
#pragma once

#include <string>

namespace tessera {

// A picture file by the system's path, absolute. False where no program of the desktop takes it.
bool SetDesktopWallpaper(const std::string& file);

}  // namespace tessera
