// Texts on surfaces by the part that paints pages, so that they look as they do with windows. The part is
// loaded when the first text is painted.
#pragma once

#include <functional>
#include <string_view>

#include "reports/paper_part.h"
#include "windows/text_painter.h"

namespace tessera {

class PartTexts final : public TextPainter {
 public:
  // The part outlives it; null paints nothing. Of a part that can't be loaded `tell` hears once.
  PartTexts(reports::PaperPart* part, std::function<void(std::string_view problem)> tell);

  TextMask Mask(std::string_view text, const FontFace& font, double left, double top, Size surface) override;

 private:
  reports::PaperPart* part_;
  std::function<void(std::string_view problem)> tell_;
};

}  // namespace tessera
