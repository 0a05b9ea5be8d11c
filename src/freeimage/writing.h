// Pictures become files. See `PictureCodec`.
#pragma once

#include <string>

#include "windows/picture.h"

namespace tessera::freeimage {

std::string EncodePng(const Raster& raster);
std::string EncodePage(const Raster& page);
std::string EncodeBitmap(const Raster& raster);
std::string EncodeJpeg(const Raster& raster, int quality);

}  // namespace tessera::freeimage
