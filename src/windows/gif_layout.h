// Where the frames of a GIF file stand, told without reading their pixels: how much a file promises is known
// before any room is made for it. Format: "Graphics Interchange Format, Version 89a" (CompuServe, 1990).
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace tessera {

struct GifLayout {
  int frames = 0;
  std::uint64_t screenPixels = 0;
  std::uint64_t framePixels = 0;  // of all frames together
  std::size_t end = 0;            // behind the last frame
};

// The frames that the file has as a whole. Those behind a broken block, or of no pixels, don't count.
GifLayout ReadGifLayout(std::string_view bytes);

// The pixels of the first frame; 0 where there is none.
std::uint64_t FirstGifFrame(std::string_view bytes);

}  // namespace tessera
