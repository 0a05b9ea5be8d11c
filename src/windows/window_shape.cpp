// The shape of a window that is no full rectangle.
#include <algorithm>
#include <cmath>

#include "windows/colours.h"
#include "windows/form.h"

namespace tessera {

namespace {

// What is left of a surface where the pixels of that colour are cut out: runs of pixels, row by row.
Spans SpansWithout(const Surface& surface, Size size, Colour colour) {
  const Colour cut = ResolveColour(colour);
  Spans left;
  for (int y = 0; y < size.height; ++y) {
    for (int x = 0; x < size.width;) {
      const int start = x;
      while (x < size.width && surface.Point({x, y}) != cut) ++x;
      if (x > start) left.push_back({.y = y, .left = start, .right = x - 1});
      while (x < size.width && surface.Point({x, y}) == cut) ++x;
    }
  }
  return left;
}

bool IsFull(const Spans& spans, Size size) {
  return spans.size() == static_cast<std::size_t>(size.height) &&
         std::all_of(spans.begin(), spans.end(),
                     [&](const Span& span) { return span.left == 0 && span.right == size.width - 1; });
}

}  // namespace

void Form::ShapeMe(Colour colour) {
  SetCaption("");
  SetBackColor(colour);
  const Size size{static_cast<int>(std::round(ScaleWidth())), static_cast<int>(std::round(ScaleHeight()))};
  shape_ = SpansWithout(*this, size, colour);
  if (IsFull(*shape_, size)) shape_.reset();
  ShowShape();
}

}  // namespace tessera
