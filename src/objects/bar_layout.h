// How a scroll bar is laid out on a window, as an object and inside a grid.
#pragma once

#include <algorithm>

#include "controls/scroll_bar.h"

namespace tessera {

inline constexpr int kBarThickness = 16;  // pixels

// The arrows are squares and the thumb is half as long again; in a short bar all three share the length.
// Pixels.
inline void LayOutBar(ScrollBar& bar, int length, int thickness) {
  const int arrow = std::clamp(thickness, 0, std::max(length / 3, 0));
  const int thumb = std::clamp(thickness * 3 / 2, 0, std::max((length - 2 * arrow) / 2, 0));
  bar.IniciaBarra(length, arrow, thumb);
}

}  // namespace tessera
