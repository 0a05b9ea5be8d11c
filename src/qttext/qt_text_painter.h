// The painter of printed text that stands on the window system's fonts. It needs no display.
#pragma once

#include "windows/text_painter.h"

class QImage;

namespace tessera {

class QtTextPainter final : public TextPainter {
 public:
  TextMask Mask(std::string_view text, const FontFace& font, double left, double top, Size surface) override;
};

// Gives a font's points the same pixels in the picture as on every screen.
void SetFontScale(QImage& image);

}  // namespace tessera
