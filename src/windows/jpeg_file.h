// Pictures written as JPEG files.
#pragma once

#include <string>

#include "windows/raster.h"

namespace tessera {

class FileStore;

// Puts the raster into a file in the JPEG format, what is transparent in white; an old file is replaced
// whole. The quality is clipped to 1 to 100. The system's error number.
int SaveJpeg(const Raster& raster, int quality, FileStore& files, const std::string& path);

}  // namespace tessera
