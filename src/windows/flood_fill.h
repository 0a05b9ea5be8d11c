// Filling an area of one colour around a point.
#pragma once

#include <functional>

#include "windows/raster.h"

namespace tessera {

// The pixels of the start's kind that are reached from it by steps to the four sides, each once. `isSame`
// tells whether a pixel is of that kind. Nothing for a start beyond the size.
Spans FloodSpans(Size size, int x, int y, const std::function<bool(int x, int y)>& isSame);

}  // namespace tessera
