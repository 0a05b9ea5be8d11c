// Printed text as pixels. A painter says how much of each pixel a text covers, and the surface blends its
// colour in, so that a text looks alike on every host that has loaded the painter.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "windows/font_face.h"
#include "windows/raster.h"
#include "windows/shapes.h"

namespace tessera {

struct TextMask {
  PixelPoint corner{0, 0};  // its upper left one, on the surface
  Size size;
  std::vector<std::uint8_t> coverage;  // row by row; 255 is all of a pixel
};

class TextPainter {
 public:
  virtual ~TextPainter() = default;
  // Program text of one line or several, its upper left corner that many pixels from the surface's. The mask
  // lies within the surface.
  virtual TextMask Mask(std::string_view text, const FontFace& font, double left, double top,
                        Size surface) = 0;
};

}  // namespace tessera
