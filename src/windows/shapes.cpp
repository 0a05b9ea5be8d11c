#include "windows/shapes.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <limits>

namespace tessera {

namespace {

struct RealPoint {
  double x;
  double y;
};

// The part of a row that a form covers; an empty one has its ends crossed.
struct Reach {
  double left = std::numeric_limits<double>::infinity();
  double right = -std::numeric_limits<double>::infinity();

  void Take(double low, double high) {
    left = std::min(left, low);
    right = std::max(right, high);
  }
};

// Keeps pixels strictly inside a form off its edge, where rounding would decide.
constexpr double kEdge = 1e-9;

void AddSpan(Spans& spans, Size size, std::int64_t y, std::int64_t left, std::int64_t right) {
  if (y < 0 || y >= size.height) return;
  left = std::max<std::int64_t>(left, 0);
  right = std::min<std::int64_t>(right, size.width - 1);
  if (left > right) return;
  spans.push_back({static_cast<int>(y), static_cast<int>(left), static_cast<int>(right)});
}

int FirstRow(double top) {
  return static_cast<int>(std::ceil(std::max(top, 0.0)));
}

int LastRow(Size size, double bottom) {
  return static_cast<int>(std::floor(std::min(bottom, double(size.height) - 1)));
}

void AddReach(Spans& spans, Size size, int y, const Reach& reach) {
  const double left = std::ceil(std::max(reach.left + kEdge, 0.0));
  const double right = std::floor(std::min(reach.right - kEdge, double(size.width) - 1));
  if (left <= right) spans.push_back({y, static_cast<int>(left), static_cast<int>(right)});
}

void TakeDisc(Reach& reach, RealPoint centre, double radius, double y) {
  const double square = radius * radius - (y - centre.y) * (y - centre.y);
  if (square > 0) reach.Take(centre.x - std::sqrt(square), centre.x + std::sqrt(square));
}

// Where the straight edge between two corners crosses the row.
void TakeEdge(Reach& reach, RealPoint a, RealPoint b, double y) {
  if (y < std::min(a.y, b.y) || y > std::max(a.y, b.y)) return;
  if (a.y == b.y) return reach.Take(std::min(a.x, b.x), std::max(a.x, b.x));
  const double x = a.x + (b.x - a.x) * (y - a.y) / (b.y - a.y);
  reach.Take(x, x);
}

Spans OpenDiscSpans(Size size, RealPoint centre, double radius) {
  Spans spans;
  const int last = LastRow(size, centre.y + radius);
  for (int y = FirstRow(centre.y - radius); y <= last; ++y) {
    Reach reach;
    TakeDisc(reach, centre, radius, y);
    AddReach(spans, size, y, reach);
  }
  return spans;
}

// The middle of a pen: an even one has it between two pixels.
RealPoint PenCentre(PixelPoint at, int width) {
  const double shift = width % 2 == 0 ? 0.5 : 0;
  return {at.x - shift, at.y - shift};
}

// All that lies less than half the pen's width from the line. The form bulges nowhere inwards, so that a row
// meets it in one piece.
Spans ThickLineSpans(Size size, PixelPoint from, PixelPoint to, int width) {
  const RealPoint a = PenCentre(from, width);
  const RealPoint b = PenCentre(to, width);
  const double half = width / 2.0;
  const double length = std::hypot(b.x - a.x, b.y - a.y);
  if (length == 0) return OpenDiscSpans(size, a, half);
  const double acrossX = -(b.y - a.y) / length * half;
  const double acrossY = (b.x - a.x) / length * half;
  const RealPoint corners[] = {{a.x + acrossX, a.y + acrossY},
                               {b.x + acrossX, b.y + acrossY},
                               {b.x - acrossX, b.y - acrossY},
                               {a.x - acrossX, a.y - acrossY}};
  Spans spans;
  const int last = LastRow(size, std::max(a.y, b.y) + half);
  for (int y = FirstRow(std::min(a.y, b.y) - half); y <= last; ++y) {
    Reach reach;
    TakeDisc(reach, a, half, y);
    TakeDisc(reach, b, half, y);
    for (int i = 0; i < 4; ++i) TakeEdge(reach, corners[i], corners[(i + 1) % 4], y);
    AddReach(spans, size, y, reach);
  }
  return spans;
}

// One pixel in every step along the longer way, the nearest one to the line; a half goes down or right.
Spans ThinLineSpans(Size size, PixelPoint from, PixelPoint to) {
  const double dx = double(to.x) - from.x;
  const double dy = double(to.y) - from.y;
  Spans spans;
  if (std::abs(dx) >= std::abs(dy)) {
    const int first = std::max(std::min(from.x, to.x), 0);
    const int last = std::min(std::max(from.x, to.x), size.width - 1);
    for (int x = first; x <= last; ++x) {
      const double way = dx == 0 ? 0 : (double(x) - from.x) * dy / dx;
      const auto y = static_cast<std::int64_t>(std::floor(from.y + way + 0.5));
      if (!spans.empty() && spans.back().y == y) {
        spans.back().right = x;
      } else {
        AddSpan(spans, size, y, x, x);
      }
    }
  } else {
    const int first = std::max(std::min(from.y, to.y), 0);
    const int last = std::min(std::max(from.y, to.y), size.height - 1);
    for (int y = first; y <= last; ++y) {
      const auto x = static_cast<std::int64_t>(std::floor(from.x + (double(y) - from.y) * dx / dy + 0.5));
      AddSpan(spans, size, y, x, x);
    }
  }
  return spans;
}

// A rectangle's sides in order.
struct Sides {
  std::int64_t left, top, right, bottom;
};

Sides SidesOf(PixelPoint a, PixelPoint b) {
  return {std::min(a.x, b.x), std::min(a.y, b.y), std::max(a.x, b.x), std::max(a.y, b.y)};
}

void AddRows(Spans& spans, Size size, const Sides& box) {
  const std::int64_t last = std::min<std::int64_t>(box.bottom, size.height - 1);
  for (std::int64_t y = std::max<std::int64_t>(box.top, 0); y <= last; ++y) {
    AddSpan(spans, size, y, box.left, box.right);
  }
}

}  // namespace

Spans DiscSpans(Size size, PixelPoint centre, double radius) {
  return OpenDiscSpans(size, {double(centre.x), double(centre.y)}, radius + 0.5);
}

Spans PenSpans(Size size, PixelPoint at, int width) {
  Spans spans;
  if (width > 1) return OpenDiscSpans(size, PenCentre(at, width), width / 2.0);
  AddSpan(spans, size, at.y, at.x, at.x);
  return spans;
}

Spans LineSpans(Size size, PixelPoint from, PixelPoint to, int width) {
  return width > 1 ? ThickLineSpans(size, from, to, width) : ThinLineSpans(size, from, to);
}

Spans FrameSpans(Size size, PixelPoint corner, PixelPoint opposite, int width) {
  const Sides at = SidesOf(corner, opposite);
  const std::int64_t before = width / 2;
  const std::int64_t behind = width - before - 1;
  const Sides outer{at.left - before, at.top - before, at.right + behind, at.bottom + behind};
  Spans spans;
  AddRows(spans, size, {outer.left, outer.top, outer.right, at.top + behind});
  AddRows(spans, size, {outer.left, at.top + behind + 1, at.left + behind, at.bottom - before - 1});
  AddRows(spans, size, {at.right - before, at.top + behind + 1, outer.right, at.bottom - before - 1});
  AddRows(spans, size, {outer.left, at.bottom - before, outer.right, outer.bottom});
  return spans;
}

Spans BoxSpans(Size size, PixelPoint corner, PixelPoint opposite) {
  Spans spans;
  AddRows(spans, size, SidesOf(corner, opposite));
  return spans;
}

}  // namespace tessera
