// The forms that programs draw, as rows of pixels. A form is cut to the picture that it is drawn on before
// it is walked through, so that the cost of a form is that of its part in sight, however far it reaches.
#pragma once

#include "windows/raster.h"

namespace tessera {

struct PixelPoint {
  int x;
  int y;
};

// All pixels whose centre lies less than half a pixel beyond the radius. A radius of 0 is one pixel.
Spans DiscSpans(Size size, PixelPoint centre, double radius);

// A pen of that many pixels put down once: round, and for an even width one pixel more to the left and up.
Spans PenSpans(Size size, PixelPoint at, int width);

// From one point to the other, both included; a pen of more than one pixel has round ends.
Spans LineSpans(Size size, PixelPoint from, PixelPoint to, int width);

// The outline of a rectangle given by two opposite corners, both included, with square corners.
Spans FrameSpans(Size size, PixelPoint corner, PixelPoint opposite, int width);

// What lies between the corners, both included.
Spans BoxSpans(Size size, PixelPoint corner, PixelPoint opposite);

}  // namespace tessera
