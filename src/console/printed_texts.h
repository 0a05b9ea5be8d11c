// What is printed on a window in memory. Texts are painted when somebody takes a look, since most runs on a
// terminal never load a painter; until then it is remembered which pixels later drawings have covered.
#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <vector>

#include "windows/surface.h"

namespace tessera {

struct PrintedText {
  std::string text;
  FontFace font;
  Pixel pixel = 0;  // its colour, opaque
  double left = 0;
  double top = 0;
};

class PrintedTexts {
 public:
  void Add(PrintedText text);
  void Clear();
  // A drawing covers these pixels of all texts so far.
  void Cover(const Spans& spans);
  void Cover(const PlacedPicture& placed, Size within);

  void PaintOn(Raster& onto, TextPainter& painter) const;

 private:
  // A program may print for hours; a window shows the last texts.
  static constexpr std::size_t kMost = 2000;

  void CoverRow(std::int64_t y, std::int64_t left, std::int64_t right);

  std::deque<PrintedText> texts_;
  std::uint32_t gone_ = 0;  // texts that went before those
  // For each pixel of a row, as far as it was drawn on, the number of texts printed before.
  std::vector<std::vector<std::uint32_t>> covered_;
};

}  // namespace tessera
