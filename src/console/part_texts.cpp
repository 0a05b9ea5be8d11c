#include "console/part_texts.h"

#include <utility>

namespace tessera {

PartTexts::PartTexts(reports::PaperPart* part, std::function<void(std::string_view problem)> tell)
    : part_(part), tell_(std::move(tell)) {}

TextMask PartTexts::Mask(std::string_view text, const FontFace& font, double left, double top, Size surface) {
  if (part_ == nullptr) return {};
  reports::PagePainter* painter = part_->Painter();
  if (painter != nullptr) return painter->Texts().Mask(text, font, left, top, surface);
  if (tell_) std::exchange(tell_, {})(part_->problem());
  return {};
}

}  // namespace tessera
