// Pictures in icon and cursor files. Their small container and its bitmaps are read here: the image library
// writes beyond its memory where the container is damaged.
#pragma once

#include <string_view>

#include "windows/picture.h"

namespace tessera {

// True for bytes that begin as an icon or a cursor file does.
bool IsIcon(std::string_view bytes);

// The bytes of the first picture, which is a bitmap or a PNG file; empty where they don't lie in the file.
std::string_view FirstIconImage(std::string_view bytes);

// Those of the largest one, as programs on a desktop want it.
std::string_view LargestIconImage(std::string_view bytes);

// The picture of an icon's bitmap: colours, then the mask of what is transparent. Nothing for a damaged one.
PictureRef DecodeIconBitmap(std::string_view image);

}  // namespace tessera
