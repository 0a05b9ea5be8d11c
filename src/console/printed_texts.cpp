#include "console/printed_texts.h"

#include <algorithm>
#include <utility>

namespace tessera {

void PrintedTexts::Add(PrintedText text) {
  texts_.push_back(std::move(text));
  if (texts_.size() <= kMost) return;
  texts_.pop_front();
  ++gone_;
}

void PrintedTexts::Clear() {
  texts_.clear();
  covered_.clear();
  gone_ = 0;
}

void PrintedTexts::CoverRow(std::int64_t y, std::int64_t left, std::int64_t right) {
  if (y < 0 || right < 0) return;
  left = std::max<std::int64_t>(left, 0);
  if (left > right) return;
  if (covered_.size() <= static_cast<std::size_t>(y)) covered_.resize(static_cast<std::size_t>(y) + 1);
  auto& row = covered_[static_cast<std::size_t>(y)];
  if (row.size() <= static_cast<std::size_t>(right)) row.resize(static_cast<std::size_t>(right) + 1);
  std::fill(row.begin() + left, row.begin() + right + 1, gone_ + static_cast<std::uint32_t>(texts_.size()));
}

void PrintedTexts::Cover(const Spans& spans) {
  if (texts_.empty()) return;
  for (const Span& span : spans) CoverRow(span.y, span.left, span.right);
}

void PrintedTexts::Cover(const PlacedPicture& placed, Size within) {
  if (texts_.empty()) return;
  const Raster& picture = placed.picture->raster;
  const std::int64_t left = placed.at.x;
  const int width = std::min(picture.size().width, placed.part.width);
  const int height = std::min(picture.size().height, placed.part.height);
  for (int y = 0; y < height && std::int64_t{placed.at.y} + y < within.height; ++y) {
    for (int x = 0; x < width; ++x) {
      const int start = x;
      while (x < width && picture.At(x, y) >> 24 != 0) ++x;
      if (x == start) continue;
      CoverRow(std::int64_t{placed.at.y} + y, left + start,
               std::min<std::int64_t>(left + x, within.width) - 1);
    }
  }
}

void PrintedTexts::PaintOn(Raster& onto, TextPainter& painter) const {
  std::uint32_t number = gone_;
  for (const PrintedText& text : texts_) {
    TextMask mask = painter.Mask(text.text, text.font, text.left, text.top, onto.size());
    auto coverage = mask.coverage.begin();
    ++number;
    for (int y = 0; y < mask.size.height; ++y) {
      const auto row = static_cast<std::size_t>(mask.corner.y) + static_cast<std::size_t>(y);
      for (int x = 0; x < mask.size.width; ++x, ++coverage) {
        const auto column = static_cast<std::size_t>(mask.corner.x) + static_cast<std::size_t>(x);
        const bool isCovered =
            row < covered_.size() && column < covered_[row].size() && covered_[row][column] >= number;
        if (isCovered) *coverage = 0;
      }
    }
    LayText(mask, text.pixel, onto);
  }
}

}  // namespace tessera
