// Files of pictures become pictures, as far as their bytes can be believed.
#pragma once

#include <cstdint>
#include <string_view>

#include "freeimage/bitmap.h"
#include "windows/animation.h"
#include "windows/picture.h"

namespace tessera::freeimage {

// See `PictureCodec`.
PictureRef Decode(std::string_view bytes);
AnimationRef DecodeGif(std::string_view bytes);

// The pixels that a file of these bytes is believed to hold; 0 for what is no picture.
std::uint64_t MostPixelsOf(std::string_view bytes);

// Null where the memory is short, or there are no pixels.
PictureRef ToPicture(FIBITMAP* source);

}  // namespace tessera::freeimage
